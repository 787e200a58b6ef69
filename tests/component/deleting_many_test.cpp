// Deletions in such numbers that the store closes the gaps before it is asked.
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "model/model_check.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel {
namespace {

constexpr std::int32_t kMany = 17'000;  // more than are kept deferred in front of another

std::string NameOf(char kind, std::int32_t number) { return kind + std::to_string(number); }

class DeletingMany : public ::testing::Test {
 protected:
  void Build(std::int32_t rows, std::int32_t columns) {
    for (std::int32_t i = 0; i < rows; ++i) model.AddRow(NameOf('R', i));
    for (std::int32_t j = 0; j < columns; ++j) model.AddColumn(NameOf('C', j));
    for (std::int32_t i = 0; i < rows; ++i) model.AddElement(i, columns - 1, i + 1);
    for (std::int32_t j = 0; j + 1 < columns; ++j) model.AddElement(0, j, j + 1);
  }

  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

TEST_F(DeletingMany, ColumnsGoFromTheEndBackwardsUntilOneIsLeft) {
  Build(2, kMany);
  for (std::int32_t j = kMany - 2; j >= 1; --j) ASSERT_EQ(model.DeleteColumn(j), -1);
  EXPECT_EQ(model.NumberOfColumns(), 2);
  EXPECT_EQ(model.ColName(0), "C0");
  EXPECT_EQ(model.ColName(1), NameOf('C', kMany - 1));
  EXPECT_EQ(model.ElementValue(0, 0), 1);
  EXPECT_EQ(model.NumberOfElements(), 3);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(DeletingMany, RowsGoFromTheEndBackwardsUntilOneIsLeft) {
  Build(kMany, 2);
  for (std::int32_t i = kMany - 2; i >= 1; --i) ASSERT_EQ(model.DeleteRow(i), -1);
  EXPECT_EQ(model.NumberOfRows(), 2);
  EXPECT_EQ(model.RowName(0), "R0");
  EXPECT_EQ(model.RowName(1), NameOf('R', kMany - 1));
  EXPECT_EQ(model.ElementValue(1, 1), kMany);
  EXPECT_EQ(model.NumberOfElements(), 3);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

}  // namespace
}  // namespace quarvel
