#include "model/stored_model.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

using Numbers = std::vector<std::int32_t>;

ModelData RowsOf(std::string_view letters) {
  ModelData data;
  for (const char letter : letters) {
    RowRecord row;
    row.Type = RowTypeOf(std::string_view(&letter, 1));
    data.Rows.Append(row);
    ++data.NumberOfRows;
  }
  return data;
}

TEST(RebuildRowIndexes, PutsEachRowIntoOneListInOrder) {
  ModelData data = RowsOf("NGLNER");
  RebuildRowIndexes(data);
  EXPECT_EQ(data.NumberOfBindingRows, 4);
  EXPECT_EQ(data.NumberOfNonBindingRows, 2);
  EXPECT_EQ(data.BindingRows.store(), (Numbers{2, 3, 5, 6}));
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{1, 4}));
}

TEST(RebuildRowIndexes, ReleasesBothListsOfAModelWithoutRows) {
  ModelData data;
  data.NumberOfBindingRows = 3;
  data.BindingRows.Resize(3);
  RebuildRowIndexes(data);
  EXPECT_EQ(data.NumberOfBindingRows, 0);
  EXPECT_EQ(data.NumberOfNonBindingRows, 0);
  EXPECT_TRUE(data.BindingRows.empty());
  EXPECT_TRUE(data.NonBindingRows.empty());
}

TEST(RebuildRowIndexes, HasNoBindingRowsWhenAllAreFree) {
  ModelData data = RowsOf("NNN");
  RebuildRowIndexes(data);
  EXPECT_EQ(data.NumberOfBindingRows, 0);
  EXPECT_TRUE(data.BindingRows.empty());
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{1, 2, 3}));
}

TEST(RebuildRowIndexes, CountsARowWithoutATypeAsBinding) {
  ModelData data = RowsOf("?");
  RebuildRowIndexes(data);
  EXPECT_EQ(data.NumberOfBindingRows, 1);
}

}  // namespace
}  // namespace quarvel::model
