#include "model/deferred_removals.h"

#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "model/stored_model.h"

namespace quarvel::model {
namespace {

using Kind = DeferredRemovals::Kind;

TEST(DeferredRemovals, NumbersArePositionsWhileNothingIsDeferred) {
  const DeferredRemovals removals;
  EXPECT_TRUE(removals.empty());
  EXPECT_EQ(removals.Position(Kind::kRows, 5), 5);
  EXPECT_EQ(removals.Position(Kind::kColumns, 1), 1);
}

TEST(DeferredRemovals, OnlyItsOwnKindIsMoved) {
  DeferredRemovals removals;
  removals.Note(Kind::kColumns, 2);
  EXPECT_EQ(removals.Position(Kind::kColumns, 2), 3);
  EXPECT_EQ(removals.Position(Kind::kRows, 2), 2);
}

TEST(DeferredRemovals, PositionsStandAscendingInWhateverOrderTheyCome) {
  DeferredRemovals removals;
  for (const std::int32_t position : {7, 2, 9, 1, 8}) removals.Note(Kind::kRows, position);
  EXPECT_EQ(removals.positions(), (std::vector<std::int32_t>{1, 2, 7, 8, 9}));
  const std::vector<std::int32_t> left = {3, 4, 5, 6, 10, 11};
  for (std::size_t i = 0; i < left.size(); ++i) {
    EXPECT_EQ(removals.Position(Kind::kRows, static_cast<std::int32_t>(i) + 1), left[i]);
  }
}

TEST(DeferredRemovals, RandomRemovalsAgreeWithAListOfWhatIsLeft) {
  std::mt19937 generator(7);
  for (int run = 0; run < 50; ++run) {
    DeferredRemovals removals;
    std::vector<std::int32_t> left;
    for (std::int32_t position = 1; position <= 60; ++position) left.push_back(position);
    while (!left.empty()) {
      const auto offset = generator() % left.size();
      const auto number = static_cast<std::int32_t>(offset) + 1;
      ASSERT_EQ(removals.Position(Kind::kRows, number), left[offset]) << "run " << run;
      removals.Note(Kind::kRows, left[offset]);
      left.erase(left.begin() + static_cast<std::ptrdiff_t>(offset));
    }
  }
}

TEST(DeferredRemovals, ClearingForgetsEverything) {
  DeferredRemovals removals;
  removals.Note(Kind::kColumns, 3);
  removals.elements_left().Resize(4);
  removals.Clear();
  EXPECT_TRUE(removals.empty());
  EXPECT_TRUE(removals.elements_left().empty());
  EXPECT_EQ(removals.Position(Kind::kColumns, 3), 3);
}

TEST(DeferredRemovals, ManyPositionsOutOfOrderAreCostly) {
  DeferredRemovals removals;
  for (std::int32_t position = 100; position < 17000; ++position) {
    removals.Note(Kind::kRows, position);
  }
  EXPECT_TRUE(removals.IsCostly(1));
  EXPECT_FALSE(removals.IsCostly(17000));
  EXPECT_FALSE(removals.IsCostly(16000));
}

// Row r at column c for every pair but the diagonal, three of each.
StoredModel SmallModel() {
  StoredModel model;
  ModelData& data = model.data;
  const auto names = [&data](std::int32_t number) { return data.Rows[number].Name; };
  for (std::int32_t n = 1; n <= 3; ++n) {
    data.Rows.Append({});
    data.Rows[n].Name = "R" + std::to_string(n);
    data.Rows[n].Type = n == 2 ? RowType::kFree : RowType::kGreater;
    model.row_names.Add(data.Rows[n].Name, n, names);
    data.Columns.Append({});
  }
  data.NumberOfRows = data.NumberOfColumns = 3;
  for (std::int32_t r = 1; r <= 3; ++r) {
    for (std::int32_t c = 1; c <= 3; ++c) {
      if (r == c) continue;
      data.Rows[r].Elements.Append({c, 10.0 * r + c});
      data.Columns[c].Elements.Append({r, 10.0 * r + c});
      ++data.NumberOfElements;
    }
  }
  return model;
}

TEST(CloseGaps, RowsLeaveTheListsNamesAndIndexes) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  removals.Note(Kind::kRows, 1);
  data.NumberOfRows = 2;
  CloseGaps(model, removals);
  EXPECT_TRUE(removals.empty());
  EXPECT_EQ(data.Rows.size(), 2);
  EXPECT_EQ(FindRow(model, NameKey::Of("R1"), "R1"), 0);
  EXPECT_EQ(FindRow(model, NameKey::Of("R3"), "R3"), 2);
  ASSERT_EQ(data.Columns[1].Elements.size(), 2);
  EXPECT_EQ(data.Columns[1].Elements[2], (ElementEntry{2, 31}));
  ASSERT_EQ(data.Columns[2].Elements.size(), 1);
  EXPECT_EQ(data.Columns[2].Elements[1], (ElementEntry{2, 32}));
  EXPECT_EQ(data.NonBindingRows.store(), std::vector{1});
  EXPECT_EQ(data.BindingRows.store(), std::vector{2});
}

// Enough rows that their new numbers take several blocks, with gaps at the borders of one.
TEST(CloseGaps, RowsOfALargeModelGetTheirNewNumbers) {
  constexpr std::int32_t kRows = 1000;
  StoredModel model;
  ModelData& data = model.data;
  DeferredRemovals removals;
  data.Rows.Resize(kRows);
  data.Columns.Resize(1);
  data.NumberOfColumns = 1;
  std::vector<std::int32_t> kept;
  for (std::int32_t r = 1; r <= kRows; ++r) {
    data.Rows[r].Type = RowType::kGreater;
    data.Columns[1].Elements.Append({r, static_cast<double>(r)});
    if (r == 128 || r == 129 || r == 256 || (r > 500 && r <= 800)) {
      removals.Note(Kind::kRows, r);
    } else {
      kept.push_back(r);
    }
  }
  data.NumberOfRows = static_cast<std::int32_t>(kept.size());
  CloseGaps(model, removals);
  ASSERT_EQ(data.Rows.size(), data.NumberOfRows);
  ASSERT_EQ(data.Columns[1].Elements.size(), data.NumberOfRows);
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    const ElementEntry expected{r, static_cast<double>(kept[static_cast<std::size_t>(r - 1)])};
    ASSERT_EQ(data.Columns[1].Elements[r], expected) << r;
  }
}

TEST(CloseGaps, ColumnsLeaveTheListsAndNoIndex) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  removals.Note(Kind::kColumns, 2);
  removals.Note(Kind::kColumns, 3);
  data.NumberOfColumns = 1;
  CloseGaps(model, removals);
  EXPECT_EQ(data.Columns.size(), 1);
  EXPECT_TRUE(data.Rows[1].Elements.empty());
  ASSERT_EQ(data.Rows[3].Elements.size(), 1);
  EXPECT_EQ(data.Rows[3].Elements[1], (ElementEntry{1, 31}));
  EXPECT_EQ(data.NumberOfBindingRows, 0);
  EXPECT_TRUE(data.BindingRows.empty());
}

TEST(CloseGaps, NumbersBeyondTheModelMoveDownWithTheOthers) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  data.Columns[1].Elements[1].Index = 9;
  removals.Note(Kind::kRows, 2);
  data.NumberOfRows = 2;
  CloseGaps(model, removals);
  EXPECT_EQ(data.Columns[1].Elements[1].Index, 8);
}

TEST(CloseGaps, NothingDeferredChangesNothing) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  CloseGaps(model, removals);
  EXPECT_EQ(data.Rows.size(), 3);
  EXPECT_EQ(data.NumberOfBindingRows, 0);
}

}  // namespace
}  // namespace quarvel::model
