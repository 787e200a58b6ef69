#include "model/deferred_row_indexes.h"

#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

using Numbers = std::vector<std::int32_t>;

ModelData RowsOf(const std::vector<RowType>& types) {
  ModelData data;
  for (const RowType type : types) {
    RowRecord row;
    row.Type = type;
    data.Rows.Append(row);
  }
  data.NumberOfRows = data.Rows.size();
  return data;
}

TEST(DeferredRowIndexes, ListsTheRowsThereWereByTheTypesTheyHave) {
  ModelData data = RowsOf({RowType::kLess, RowType::kFree, RowType::kEqual, RowType::kFree});
  DeferredRowIndexes indexes;
  indexes.Rebuild(3);
  EXPECT_TRUE(indexes.due());
  data.Rows[1].Type = RowType::kFree;
  indexes.CatchUp(data);
  EXPECT_FALSE(indexes.due());
  EXPECT_EQ(data.BindingRows.store(), Numbers{3});
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{1, 2}));
  EXPECT_EQ(data.NumberOfNonBindingRows, 2);
}

TEST(DeferredRowIndexes, AppendsRowsThatGotTheirFirstTypeInTheOrderTheyDid) {
  ModelData data = RowsOf({RowType::kLess, RowType::kFree, RowType::kFree});
  DeferredRowIndexes indexes;
  indexes.Rebuild(1);
  EXPECT_TRUE(indexes.Append(3, 3, RowType::kFree));
  EXPECT_TRUE(indexes.Append(2, 3, RowType::kFree));
  indexes.CatchUp(data);
  EXPECT_EQ(data.BindingRows.store(), Numbers{1});
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{3, 3}));
}

// A row without a type is listed as one that binds, and stays there.
TEST(DeferredRowIndexes, RefusesARowThatIsListedAsTheOtherKind) {
  DeferredRowIndexes indexes;
  indexes.Rebuild(2);
  EXPECT_FALSE(indexes.Append(2, 2, RowType::kFree));
  EXPECT_TRUE(indexes.Append(2, 2, RowType::kLess));
  EXPECT_TRUE(indexes.Append(3, 3, RowType::kFree));
}

TEST(DeferredRowIndexes, NothingDueLeavesTheListsAlone) {
  ModelData data = RowsOf({RowType::kLess});
  DeferredRowIndexes().CatchUp(data);
  EXPECT_EQ(data.NumberOfBindingRows, 0);
}

}  // namespace
}  // namespace quarvel::model
