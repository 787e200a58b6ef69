#include "model/list_places.h"

#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

ElementList ListOf(const std::vector<std::int32_t>& positions) {
  ElementList list;
  for (const std::int32_t position : positions) list.Append({position, 1});
  return list;
}

TEST(ListPlaces, FindsTheFirstOfThoseThatNameOnePosition) {
  ListPlaces places(ListOf({5, 3, 5, 5}), Gaps());
  EXPECT_EQ(places.First(5), 1);
  EXPECT_EQ(places.First(3), 2);
  EXPECT_EQ(places.First(4), 0);
  places.Remove(1, 5);
  EXPECT_EQ(places.First(5), 3);
  EXPECT_EQ(places.PlaceOf(2), 3);
  EXPECT_EQ(places.NumberOf(4), 3);
  places.Append(5);
  places.Remove(4, 5);
  places.Remove(3, 5);
  EXPECT_EQ(places.First(5), 5);
}

TEST(ListPlaces, LeavesOutWhatIsGoneAlready) {
  Gaps gaps;
  gaps.Open(5);
  gaps.Note(3);
  const ListPlaces places(ListOf({3, 5, 3, 1}), gaps);
  EXPECT_EQ(places.First(3), 0);
  EXPECT_EQ(places.PlaceOf(1), 2);
  EXPECT_EQ(places.NumberOf(4), 2);
}

TEST(ListPlaces, TakesBackWhatWasAppended) {
  ListPlaces places(ListOf({2, 4}), Gaps());
  places.Append(4);
  places.TakeBackAppend(4);
  places.Append(2);
  EXPECT_EQ(places.First(4), 2);
  places.Remove(1, 2);
  EXPECT_EQ(places.First(2), 3);
  EXPECT_EQ(places.PlaceOf(2), 3);
}

TEST(ListPlaces, AgreesWithAListThroughRandomChanges) {
  std::mt19937 random(3);
  for (int run = 0; run < 40; ++run) {
    ListPlaces places{ElementList(), Gaps()};
    std::vector<std::int32_t> named;  // by place - 1; 0 for what is gone
    for (int step = 0; step < 200; ++step) {
      const auto position = static_cast<std::int32_t>(random() % 9) + 1;
      const std::int32_t first = places.First(position);
      std::int32_t wanted = 0;
      std::int32_t left = 0;
      for (std::size_t i = 0; i < named.size(); ++i) {
        if (named[i] != 0) {
          ASSERT_EQ(places.PlaceOf(++left), static_cast<std::int32_t>(i) + 1);
        }
        if (wanted == 0 && named[i] == position) wanted = static_cast<std::int32_t>(i) + 1;
      }
      ASSERT_EQ(first, wanted);
      if (random() % 2 == 0 || first == 0) {
        places.Append(position);
        named.push_back(position);
      } else {
        const auto at = static_cast<std::size_t>(random() % named.size());
        if (named[at] == 0) continue;
        places.Remove(static_cast<std::int32_t>(at) + 1, named[at]);
        named[at] = 0;
      }
    }
  }
}

// Walks are cheaper at first.
TEST(LongLists, KnowThePlacesOfLongListsThatAreWalkedOften) {
  const ElementList list = ListOf(std::vector<std::int32_t>(100, 7));
  const ElementList shorter = ListOf({1, 2});
  LongLists lists;
  EXPECT_EQ(lists.Find(1, list, Gaps()), nullptr);
  for (int i = 0; i < 100; ++i) lists.Find(1, list, Gaps());
  for (int i = 0; i < 100; ++i) lists.Find(2, shorter, Gaps());
  EXPECT_EQ(lists.Known(2), nullptr);
  ASSERT_NE(lists.Known(1), nullptr);
  EXPECT_EQ(lists.Find(1, list, Gaps())->First(7), 1);
  lists.Clear();
  EXPECT_EQ(lists.Known(1), nullptr);
}

}  // namespace
}  // namespace quarvel::model
