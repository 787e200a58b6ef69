// The arrays of the model: numbering, range checks, and the lists that stand in an arena.

#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/element_store.h"
#include "model/model_data.h"
#include "model/one_based.h"

namespace quarvel::model {
namespace {

std::vector<std::int32_t> Indexes(const ElementStore& list) {
  std::vector<std::int32_t> indexes;
  for (const ElementEntry& entry : list) indexes.push_back(entry.Index);
  return indexes;
}

template <class Call>
std::int32_t NumberRaised(const Call& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

TEST(OneBased, IsNumberedFromOne) {
  OneBased<int> numbers;
  numbers.Append(10);
  numbers.Append(20);
  EXPECT_EQ(numbers[1], 10);
  EXPECT_EQ(numbers[2], 20);
  EXPECT_EQ(numbers.last(), 20);
}

TEST(OneBased, RaisesNineOutsideItsNumbers) {
  OneBased<int> numbers;
  EXPECT_EQ(NumberRaised([&] { numbers.last(); }), 9);
  numbers.Append(10);
  for (const std::int32_t number : {0, 2, -1, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(NumberRaised([&] { numbers[number] = 1; }), 9) << number;
  }
}

TEST(OneBased, RemovesOneEntryAndRaisesNineForNone) {
  OneBased<int> numbers;
  for (int i = 1; i <= 5; ++i) numbers.Append(i);
  numbers.Remove(2);
  EXPECT_EQ(numbers[2], 3);
  EXPECT_EQ(numbers.size(), 4);
  EXPECT_EQ(NumberRaised([&] { numbers.Remove(5); }), 9);
  EXPECT_EQ(NumberRaised([&] { numbers.Remove(0); }), 9);
}

TEST(OneBased, KeepsItsContentsWhenResized) {
  OneBased<int> numbers;
  for (int i = 1; i <= 3; ++i) numbers.Append(i);
  numbers.Resize(2);
  numbers.Resize(4);
  EXPECT_EQ(numbers[2], 2);
  EXPECT_EQ(numbers[3], 0);
  numbers.Resize(-1);
  EXPECT_TRUE(numbers.empty());
}

TEST(ElementStore, GrowsAndShrinksEntryByEntry) {
  ElementStore list;
  for (std::int32_t i = 1; i <= 100; ++i) list.push_back({i, 1.0 * i});
  list.erase(list.begin() + 49);
  EXPECT_EQ(list.size(), 99u);
  EXPECT_EQ(list.data()[49].Index, 51);
  list.resize(1);
  EXPECT_EQ(Indexes(list), std::vector<std::int32_t>{1});
  list.resize(3);
  EXPECT_EQ(list.data()[2], (ElementEntry{0, 0}));
}

TEST(ElementStore, CopiesDeeplyAndMovesCheaply) {
  ElementStore list;
  list.push_back({1, 2});
  ElementStore copy = list;
  copy.data()[0].Index = 9;
  EXPECT_EQ(list.data()[0].Index, 1);
  const ElementEntry* data = list.data();
  const ElementStore moved = std::move(list);
  EXPECT_EQ(moved.data(), data);
}

TEST(ElementArena, AppendsToTheLastListInPlace) {
  ElementArena arena;
  ElementStore a;
  ElementStore b;
  for (std::int32_t i = 1; i <= 3; ++i) arena.Append(a, {i, 1});
  for (std::int32_t i = 4; i <= 5; ++i) arena.Append(b, {i, 1});
  EXPECT_EQ(b.data(), a.data() + 3);
  EXPECT_EQ(Indexes(a), (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_EQ(Indexes(b), (std::vector<std::int32_t>{4, 5}));
}

TEST(ElementArena, LetsAnEarlierListGrowByItself) {
  ElementArena arena;
  ElementStore a;
  ElementStore b;
  arena.Append(a, {1, 1});
  arena.Append(b, {2, 1});
  arena.Append(a, {3, 1});
  arena.Append(b, {4, 1});
  EXPECT_EQ(Indexes(a), (std::vector<std::int32_t>{1, 3}));
  EXPECT_EQ(Indexes(b), (std::vector<std::int32_t>{2, 4}));
}

TEST(ElementArena, TakesAListAlongToTheNextBlock) {
  ElementArena arena;
  std::vector<ElementStore> lists(7);
  // Sizes that make lists meet the end of a block in their middle, one of them larger than a block.
  const std::int32_t sizes[] = {40000, 40000, 40000, 200000, 1, 0, 90000};
  for (std::size_t l = 0; l < lists.size(); ++l) {
    for (std::int32_t i = 1; i <= sizes[l]; ++i) arena.Append(lists[l], {i, 1.0 * i});
  }
  for (std::size_t l = 0; l < lists.size(); ++l) {
    ASSERT_EQ(lists[l].size(), static_cast<std::size_t>(sizes[l]));
    for (std::int32_t i = 0; i < sizes[l]; ++i) {
      ASSERT_EQ(lists[l].data()[i].Index, i + 1) << l;
    }
  }
}

TEST(ElementArena, SurvivesChangesOfALentList) {
  ElementArena arena;
  ElementStore a;
  for (std::int32_t i = 1; i <= 4; ++i) arena.Append(a, {i, 1});
  a.erase(a.begin());
  arena.Append(a, {5, 1});
  ElementStore b;
  arena.Append(b, {6, 1});
  a.push_back({7, 1});
  EXPECT_EQ(Indexes(a), (std::vector<std::int32_t>{2, 3, 4, 5, 7}));
  EXPECT_EQ(Indexes(b), std::vector<std::int32_t>{6});
}

TEST(ElementArena, MovesALentListThatIsResized) {
  ElementArena arena;
  ElementStore a;
  ElementStore b;
  arena.Append(a, {1, 1});
  arena.Append(b, {2, 1});
  a.resize(3);
  EXPECT_EQ(Indexes(a), (std::vector<std::int32_t>{1, 0, 0}));
  EXPECT_EQ(Indexes(b), std::vector<std::int32_t>{2});
}

}  // namespace
}  // namespace quarvel::model
