// Creating, emptying and indexing a model.

#include <any>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/component/query_model.h"
#include "tests/support/model_builder.h"

namespace quarvel {
namespace {

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
  EXPECT_TRUE(model.store().data().Rows.empty());
  EXPECT_TRUE(model.store().data().Columns.empty());
  EXPECT_EQ(model.store().settings().LogFileNumber, 0);
  EXPECT_FALSE(model.store().settings().DefaultToPlusMinusInfinity);
  EXPECT_FALSE(model.store().settings().LongNameWarningShown);
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
  q.model.store().settings().ModelName = "OLD";
  q.model.store().settings().ModelDescription = "old";
  q.model.store().settings().FileLocation = "old.mps";
  q.model.strMPSFile("old.mps");
  q.model.store().settings().LogFileNumber = 1;
  q.model.MakeNewModel();
  const model::ModelData& data = q.model.store().data();
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
  EXPECT_EQ(data.Rows[1].Type, model::RowType::kLess);
  EXPECT_EQ(data.Rows[1].LowerBound, 0);
  EXPECT_EQ(data.Rows[1].UpperBound, 1e10);
  EXPECT_EQ(data.Rows[1].ElementCount(), 0);
  ASSERT_EQ(data.Columns.size(), 1);
  EXPECT_EQ(data.Columns[1].Name, "COL1");
  EXPECT_EQ(data.Columns[1].Type, model::ColumnType::kContinuous);
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
  EXPECT_EQ(q.model.store().FindRow("ROW1"), 0);
  EXPECT_EQ(q.model.store().FindColumn("COL1"), 0);
}

TEST(ClearingAStore, EmptiesTheModelAndKeepsTheRowIndexes) {
  QueryModel q;
  q.model.store().settings().ModelName = "OLD";
  q.model.store().settings().FileLocation = "old.mps";
  q.model.store().Clear();
  EXPECT_EQ(q.model.NumberOfRows(), 0);
  EXPECT_EQ(q.model.NumberOfColumns(), 0);
  EXPECT_EQ(q.model.NumberOfElements(), 0);
  EXPECT_TRUE(q.model.store().data().Rows.empty());
  EXPECT_TRUE(q.model.store().data().Columns.empty());
  EXPECT_EQ(q.model.ModelName(), "");
  EXPECT_EQ(q.model.FileLocation(), "");
  EXPECT_EQ(q.model.NumberOfBindingRows(), 4);
  q.model.store().DeriveRowTypes();
  EXPECT_EQ(q.model.NumberOfBindingRows(), 0);
}

TEST(CheckModelData, FindsADifferenceBetweenTheLists) {
  QueryModel q;
  EXPECT_EQ(model::CheckModelData(q.model.store()), "");
  ChangeFields(q.model, [&](model::ModelData& data) { data.Rows[1].Elements[1].Value = 99; });
  EXPECT_NE(model::CheckModelData(q.model.store()), "");
}

TEST(CheckModelData, FindsWrongCountsAndNumbers) {
  QueryModel counts;
  ChangeFields(counts.model, [&](model::ModelData& data) { ++data.NumberOfElements; });
  EXPECT_NE(model::CheckModelData(counts.model.store()), "");
  QueryModel numbers;
  ChangeFields(numbers.model, [&](model::ModelData& data) { data.Rows[2].Elements[1].Index = 6; });
  ChangeFields(numbers.model, [&](model::ModelData& data) { data.Columns[3].Elements.Release(); });
  EXPECT_NE(model::CheckModelData(numbers.model.store()), "");
}

}  // namespace
}  // namespace quarvel
