// Deletions whose gaps are not closed yet, as a host sees them.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "model/model_check.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel {
namespace {

class DeferredDeletions : public ::testing::Test {
 protected:
  // Rows of one coefficient each, R1 to R<count>, all in column WIDE; column SPARE takes every
  // `shared`-th row too.
  void BuildWide(std::int32_t count, std::int32_t shared) {
    model.AddColumn("WIDE");
    model.AddColumn("SPARE");
    for (std::int32_t i = 0; i < count; ++i) {
      model.AddRow("R" + std::to_string(i + 1));
      model.AddElement(i, 0, i + 1);
      if ((i + 1) % shared == 0) model.AddElement(i, 1, -i);
    }
  }

  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

TEST_F(DeferredDeletions, DeletionsInARowAreDeferredUntilSomebodyLooks) {
  BuildWide(1000, 2);
  for (int i = 0; i < 400; ++i) model.DeleteRow(i);
  EXPECT_TRUE(model.store().has_deferred_work());
  EXPECT_EQ(model.NumberOfRows(), 600);
  EXPECT_EQ(model.RowName(0), "R2");
  EXPECT_EQ(model.RowName(399), "R800");
  EXPECT_EQ(model.NumberOfElements(), 1100);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(DeferredDeletions, DeletionsFromTheEndBackwardsAreDeferredToo) {
  BuildWide(40000, 3);
  for (int i = 39999; i >= 10; --i) model.DeleteRow(i);
  EXPECT_EQ(model.NumberOfRows(), 10);
  EXPECT_EQ(model.RowName(9), "R10");
  EXPECT_EQ(model.NumberOfElements(), 13);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(DeferredDeletions, LookingAtOtherRowsLeavesTheirDeletionPutOff) {
  BuildWide(40, 4);
  model.DeleteRow(2);
  model.DeleteRow(10);
  model.DeleteRow(0);
  ASSERT_TRUE(model.store().has_deferred_work());
  ASSERT_EQ(model.NumberOfRows(), 37);
  const auto look = [this] {
    std::vector<std::pair<std::string, std::vector<double>>> rows;
    for (std::int32_t i = 0; i < model.NumberOfRows(); ++i) {
      rows.push_back({model.RowName(i) + model.RowType(i), {}});
      std::vector<double>& numbers = rows.back().second;
      numbers = {model.RowLowerBound(i), model.RowUpperBound(i)};
      for (std::int32_t k = 0; k < model.RowNumberElements(i); ++k) {
        numbers.push_back(model.RowElementCol(i, k));
        numbers.push_back(model.RowElementValue(i, k));
      }
    }
    return rows;
  };
  const auto rows = look();
  EXPECT_THROW(model.RowName(37), AutomationError);
  EXPECT_TRUE(model.store().has_deferred_work());
  EXPECT_EQ(rows[0].first, "R2" + model.RowType(0));
  EXPECT_EQ(rows[36].second.size(), 6u);  // the bounds and two coefficients
  EXPECT_EQ(model.ColNumberElements(0), 37);
  EXPECT_EQ(model.ColElementrow(0, 36), 36);
  EXPECT_EQ(model.NumberOfBindingRows() + model.NumberOfNonBindingRows(), 37);
  EXPECT_TRUE(model.store().has_deferred_work());
  model.store().data();
  EXPECT_FALSE(model.store().has_deferred_work());
  EXPECT_EQ(look(), rows);
}

TEST_F(DeferredDeletions, LookingAtOtherColumnsLeavesTheirDeletionPutOff) {
  BuildWide(8, 1);
  model.AddColumn("THIRD");
  model.AddElement(5, 2, 7);
  model.DeleteColumn(1);
  ASSERT_TRUE(model.store().has_deferred_work());
  EXPECT_EQ(model.ColName(1), "THIRD");
  EXPECT_EQ(model.ColNumberElements(1), 1);
  EXPECT_EQ(model.ColElementrow(1, 0), 5);
  EXPECT_EQ(model.ColElementvalue(1, 0), 7);
  EXPECT_EQ(model.RowElementCol(5, 1), 1);
  EXPECT_TRUE(model.store().has_deferred_work());
  model.store().data();
  EXPECT_EQ(model.RowElementCol(5, 1), 1);
  EXPECT_EQ(model.ColElementrow(1, 0), 5);
}

TEST_F(DeferredDeletions, RowIndexesAreKnownWhileDeletionsArePutOff) {
  BuildWide(9, 1);
  for (const int i : {1, 4, 8}) model.SetRowType(i, "N");
  model.DeleteRow(3);
  model.DeleteRow(0);
  model.AddRow("NEW");
  model.SetRowType(7, "N");
  EXPECT_EQ(model.NumberOfBindingRows(), 4);
  EXPECT_EQ(model.BindingRowIndex(0), 1);
  EXPECT_EQ(model.BindingRowIndex(3), 5);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 4);
  EXPECT_EQ(model.NonBindingRowIndex(2), 6);
  EXPECT_EQ(model.NonBindingRowIndex(3), 7);
  model.SetRowType(6, "L");
  model.DeleteRow(1);
  EXPECT_EQ(model.BindingRowIndex(3), 5);
  EXPECT_THROW(model.BindingRowIndex(4), AutomationError);
  EXPECT_EQ(model.NonBindingRowIndex(2), 6);
  EXPECT_TRUE(model.store().has_gaps());
  EXPECT_EQ(model.store().data().BindingRows[4], 6);
}

TEST_F(DeferredDeletions, AColumnThatEmptiesManyRowsTakesThemInOneGo) {
  BuildWide(100000, 4);
  model.DeleteColumn(0);
  EXPECT_EQ(model.NumberOfRows(), 25000);
  EXPECT_EQ(model.RowName(0), "R4");
  EXPECT_EQ(model.RowName(24999), "R100000");
  EXPECT_EQ(model.RowElementCol(24999, 0), 0);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

}  // namespace
}  // namespace quarvel
