// Creating, emptying and indexing a model.

#include <any>
#include <vector>

#include <gtest/gtest.h>

#include "tests/model/query_model.h"

namespace quarvel {
namespace {

std::vector<std::int32_t> List(const RowNumbers& numbers) {
  return {numbers.begin(), numbers.end()};
}

void AddRows(LPModel& model, const char* types) {
  for (const char* type = types; *type != '\0'; ++type) {
    RowRecord row;
    row.Name = "R" + std::to_string(model.data().NumberOfRows + 1);
    row.Type = RowTypeOf(std::string_view(type, 1));
    model.data().Rows.Append(row);
    ++model.data().NumberOfRows;
  }
  model.data().row_names.MarkStale();
}

TEST(NewObject, HasAllFieldsZeroAndEmpty) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  EXPECT_EQ(model.strMPSFile(), "");
  EXPECT_EQ(model.ReadMPSFileErr(), 0);
  EXPECT_FALSE(model.frmViewEquationsIsShowing());
  EXPECT_FALSE(model.showFrm().has_value());
  EXPECT_EQ(model.ModelName(), "");
  EXPECT_EQ(model.ModelDescription(), "");
  EXPECT_EQ(model.FileLocation(), "");
  EXPECT_EQ(model.NumberOfRows(), 0);
  EXPECT_EQ(model.NumberOfColumns(), 0);
  EXPECT_EQ(model.NumberOfElements(), 0);
  EXPECT_EQ(model.NumberOfBindingRows(), 0);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 0);
  EXPECT_TRUE(model.data().Rows.empty());
  EXPECT_TRUE(model.data().Columns.empty());
  EXPECT_EQ(model.data().LogFileNumber, 0);
  EXPECT_FALSE(model.data().DefaultToPlusMinusInfinity);
  EXPECT_FALSE(model.data().LongNameWarningShown);
}

TEST(PublicVariables, KeepWhatAHostStores) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  model.strMPSFile("a.mps");
  model.ReadMPSFileErr(-7);
  model.showFrm(std::any(42));
  EXPECT_EQ(model.strMPSFile(), "a.mps");
  EXPECT_EQ(model.ReadMPSFileErr(), -7);
  EXPECT_EQ(std::any_cast<int>(model.showFrm()), 42);
}

TEST(MakeNewModel, LeavesOneHiddenRecordOfEachKind) {
  QueryModel q;
  q.model.data().ModelName = "OLD";
  q.model.data().ModelDescription = "old";
  q.model.data().FileLocation = "old.mps";
  q.model.strMPSFile("old.mps");
  q.model.data().LogFileNumber = 1;
  q.model.MakeNewModel();
  const ModelData& data = q.model.data();
  EXPECT_EQ(q.model.NumberOfRows(), 0);
  EXPECT_EQ(q.model.NumberOfColumns(), 0);
  EXPECT_EQ(q.model.NumberOfElements(), 0);
  EXPECT_EQ(q.model.ModelName(), "");
  EXPECT_EQ(q.model.ModelDescription(), "");
  EXPECT_EQ(q.model.FileLocation(), "");
  EXPECT_EQ(q.model.strMPSFile(), "");
  EXPECT_EQ(data.LogFileNumber, 0);
  ASSERT_EQ(data.Rows.size(), 1);
  EXPECT_EQ(data.Rows[1].Name, "ROW1");
  EXPECT_EQ(data.Rows[1].Type, RowType::kLess);
  EXPECT_EQ(data.Rows[1].LowerBound, 0);
  EXPECT_EQ(data.Rows[1].UpperBound, 1e10);
  EXPECT_EQ(data.Rows[1].ElementCount(), 0);
  ASSERT_EQ(data.Columns.size(), 1);
  EXPECT_EQ(data.Columns[1].Name, "COL1");
  EXPECT_EQ(data.Columns[1].Type, ColumnType::kContinuous);
  EXPECT_EQ(data.Columns[1].LowerBound, 0);
  EXPECT_EQ(data.Columns[1].UpperBound, 1e10);
  EXPECT_EQ(data.Columns[1].ElementCount(), 0);
}

TEST(MakeNewModel, LeavesTheRowIndexesAsTheyWere) {
  QueryModel q;
  q.model.MakeNewModel();
  EXPECT_EQ(q.model.NumberOfBindingRows(), 4);
  EXPECT_EQ(q.model.BindingRowIndex(3), 3);
}

TEST(MakeNewModel, LeavesPlaceholderNamesFree) {
  QueryModel q;
  q.model.MakeNewModel();
  EXPECT_EQ(FindRow(q.model.data(), "ROW1"), 0);
  EXPECT_EQ(FindColumn(q.model.data(), "COL1"), 0);
}

TEST(ClearModel, EmptiesTheModelAndKeepsTheRowIndexes) {
  QueryModel q;
  q.model.data().ModelName = "OLD";
  q.model.data().FileLocation = "old.mps";
  q.model.ClearModel();
  EXPECT_EQ(q.model.NumberOfRows(), 0);
  EXPECT_EQ(q.model.NumberOfColumns(), 0);
  EXPECT_EQ(q.model.NumberOfElements(), 0);
  EXPECT_TRUE(q.model.data().Rows.empty());
  EXPECT_TRUE(q.model.data().Columns.empty());
  EXPECT_EQ(q.model.ModelName(), "");
  EXPECT_EQ(q.model.FileLocation(), "");
  EXPECT_EQ(q.model.NumberOfBindingRows(), 4);
  RebuildRowIndexes(q.model.data());
  EXPECT_EQ(q.model.NumberOfBindingRows(), 0);
}

TEST(RebuildRowIndexes, PutsEachRowIntoOneListInOrder) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  AddRows(model, "NGLNER");
  RebuildRowIndexes(model.data());
  EXPECT_EQ(model.NumberOfBindingRows(), 4);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 2);
  EXPECT_EQ(List(model.data().BindingRows), (std::vector<std::int32_t>{2, 3, 5, 6}));
  EXPECT_EQ(List(model.data().NonBindingRows), (std::vector<std::int32_t>{1, 4}));
}

TEST(RebuildRowIndexes, ReleasesBothListsOfAModelWithoutRows) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  model.data().NumberOfBindingRows = 3;
  model.data().BindingRows.Resize(3);
  RebuildRowIndexes(model.data());
  EXPECT_EQ(model.NumberOfBindingRows(), 0);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 0);
  EXPECT_TRUE(model.data().BindingRows.empty());
  EXPECT_TRUE(model.data().NonBindingRows.empty());
}

TEST(RebuildRowIndexes, HasNoBindingRowsWhenAllAreFree) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  AddRows(model, "NNN");
  RebuildRowIndexes(model.data());
  EXPECT_EQ(model.NumberOfBindingRows(), 0);
  EXPECT_TRUE(model.data().BindingRows.empty());
  EXPECT_EQ(List(model.data().NonBindingRows), (std::vector<std::int32_t>{1, 2, 3}));
}

TEST(RebuildRowIndexes, CountsALowerCaseTypeAsBinding) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  AddRows(model, "n");
  RebuildRowIndexes(model.data());
  EXPECT_EQ(model.NumberOfBindingRows(), 1);
}

TEST(CheckModelData, FindsADifferenceBetweenTheLists) {
  QueryModel q;
  EXPECT_EQ(CheckModelData(q.model.data()), "");
  q.model.data().Rows[1].Elements[1].Value = 99;
  EXPECT_NE(CheckModelData(q.model.data()), "");
}

TEST(CheckModelData, FindsWrongCountsAndNumbers) {
  QueryModel counts;
  ++counts.model.data().NumberOfElements;
  EXPECT_NE(CheckModelData(counts.model.data()), "");
  QueryModel numbers;
  numbers.model.data().Rows[2].Elements[1].Index = 6;
  numbers.model.data().Columns[3].Elements.Release();
  EXPECT_NE(CheckModelData(numbers.model.data()), "");
}

}  // namespace
}  // namespace quarvel
