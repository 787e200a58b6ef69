#include "model/occurrences.h"

#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

using Numbers = std::vector<std::int32_t>;
using Places = std::vector<Occurrences::Place>;

// Columns with those lists of row numbers.
OneBased<ColumnRecord> ColumnsOf(const std::vector<Numbers>& lists) {
  OneBased<ColumnRecord> columns;
  for (const Numbers& list : lists) {
    columns.Append({});
    for (const std::int32_t row : list) columns.last().Elements.Append({row, 1});
  }
  return columns;
}

Places Take(Occurrences& occurrences, std::int32_t position, std::int32_t next) {
  Places taken;
  occurrences.Prepare(position);
  occurrences.TakeFirsts(position, next,
                         [&](const Occurrences::Place& place) { taken.push_back(place); });
  return taken;
}

Numbers Owners(Occurrences& occurrences, std::int32_t position) {
  Numbers owners;
  occurrences.Prepare(position);
  occurrences.ForEachOwner(position, [&](std::int32_t owner) { owners.push_back(owner); });
  return owners;
}

TEST(Occurrences, TakesTheFirstOfEachListAndPassesTheOthersOn) {
  Occurrences occurrences;
  occurrences.Make(ColumnsOf({{2, 2, 3}, {3, 2}, {1}}), 3, 3);
  EXPECT_EQ(Owners(occurrences, 2), (Numbers{1, 2}));
  EXPECT_EQ(Take(occurrences, 2, 3), (Places{{1, 1}, {2, 2}}));
  EXPECT_EQ(Owners(occurrences, 2), Numbers{});
  EXPECT_EQ(Take(occurrences, 3, 0), (Places{{1, 2}, {2, 1}}));
  EXPECT_EQ(Take(occurrences, 1, 0), (Places{{3, 1}}));
}

TEST(Occurrences, KnowsNothingOfNumbersAndListsBeyondWhatItWasMadeOf) {
  Occurrences occurrences;
  occurrences.Make(ColumnsOf({{0, -1, 4, 1}, {1}}), 1, 3);
  EXPECT_EQ(Take(occurrences, 1, 2), (Places{{1, 4}}));
  EXPECT_EQ(Take(occurrences, 3, 0), Places{});
}

// In the plain way: the first entry of each list that names the row goes, the others move on.
Places TakePlainly(std::vector<Numbers>& lists, std::int32_t row, std::int32_t next) {
  Places taken;
  for (std::size_t list = 0; list < lists.size(); ++list) {
    bool first = true;
    for (std::size_t place = 0; place < lists[list].size(); ++place) {
      std::int32_t& named = lists[list][place];
      if (named != row) continue;
      if (first) {
        taken.push_back(
            {static_cast<std::int32_t>(list) + 1, static_cast<std::int32_t>(place) + 1});
      }
      named = first ? 0 : next;
      first = false;
    }
  }
  return taken;
}

TEST(Occurrences, AgreeWithWalksThroughAllLists) {
  constexpr std::int32_t kRows = 12;
  std::mt19937 random(21);
  for (int run = 0; run < 200; ++run) {
    std::vector<Numbers> lists(5);
    for (int entry = 0; entry < 60; ++entry) {
      lists[random() % lists.size()].push_back(static_cast<std::int32_t>(random() % kRows) + 1);
    }
    Occurrences occurrences;
    occurrences.Make(ColumnsOf(lists), 5, kRows);
    Numbers left;
    for (std::int32_t row = 1; row <= kRows; ++row) left.push_back(row);
    while (!left.empty()) {
      const auto offset = random() % left.size();
      const std::int32_t row = left[offset];
      left.erase(left.begin() + static_cast<std::ptrdiff_t>(offset));
      const std::int32_t next = offset < left.size() ? left[offset] : 0;
      ASSERT_EQ(Take(occurrences, row, next), TakePlainly(lists, row, next)) << "run " << run;
    }
  }
}

}  // namespace
}  // namespace quarvel::model
