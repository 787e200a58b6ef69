#include "model/deferred_removals.h"

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "model/stored_model.h"

namespace quarvel::model {
namespace {

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

TEST(CloseGaps, RowsLeaveTheListsAndNames) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  removals.rows.Open(3);
  removals.rows.Note(1);
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
}

// Enough rows that their new numbers take several blocks, with gaps at the borders of one.
TEST(CloseGaps, RowsOfALargeModelGetTheirNewNumbers) {
  constexpr std::int32_t kRows = 1000;
  StoredModel model;
  ModelData& data = model.data;
  DeferredRemovals removals;
  removals.rows.Open(kRows);
  data.Rows.Resize(kRows);
  data.Columns.Resize(1);
  data.NumberOfColumns = 1;
  std::vector<std::int32_t> kept;
  for (std::int32_t r = 1; r <= kRows; ++r) {
    data.Rows[r].Type = RowType::kGreater;
    data.Columns[1].Elements.Append({r, static_cast<double>(r)});
    if (r == 128 || r == 129 || r == 256 || (r > 500 && r <= 800)) {
      removals.rows.Note(r);
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

TEST(CloseGaps, ColumnsLeaveTheLists) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  removals.columns.Open(3);
  removals.columns.Note(2);
  removals.columns.Note(3);
  data.NumberOfColumns = 1;
  CloseGaps(model, removals);
  EXPECT_EQ(data.Columns.size(), 1);
  EXPECT_TRUE(data.Rows[1].Elements.empty());
  ASSERT_EQ(data.Rows[3].Elements.size(), 1);
  EXPECT_EQ(data.Rows[3].Elements[1], (ElementEntry{1, 31}));
}

TEST(CloseGaps, ClosesThoseOfRowsAndColumnsTogether) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  removals.rows.Open(3);
  removals.columns.Open(3);
  removals.rows.Note(2);
  removals.columns.Note(1);
  data.NumberOfRows = data.NumberOfColumns = 2;
  CloseGaps(model, removals);
  ASSERT_EQ(data.Rows[1].Elements.size(), 2);
  EXPECT_EQ(data.Rows[1].Elements[1], (ElementEntry{1, 12}));
  EXPECT_EQ(data.Rows[1].Elements[2], (ElementEntry{2, 13}));
  ASSERT_EQ(data.Columns[1].Elements.size(), 2);
  EXPECT_EQ(data.Columns[1].Elements[2], (ElementEntry{2, 32}));
  EXPECT_EQ(data.Columns[2].Elements.size(), 1);
}

TEST(CloseGaps, NumbersBeyondTheModelMoveDownWithTheOthers) {
  StoredModel model = SmallModel();
  ModelData& data = model.data;
  DeferredRemovals removals;
  data.Columns[1].Elements[1].Index = 9;
  removals.rows.Open(3);
  removals.rows.Note(2);
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
}

}  // namespace
}  // namespace quarvel::model
