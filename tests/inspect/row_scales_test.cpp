#include "inspect/row_scales.h"

#include <string>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel::inspect {
namespace {

class RowScales : public ::testing::Test {
 protected:
  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
  ModelBuilder builder_{model_};
};

TEST_F(RowScales, ListsTheWorstFirst) {
  builder_.Row("EVEN", 'L').Row("SOME", 'L').Row("FAR", 'L').Row("EMPTY", 'L').Row("SAME", 'L');
  builder_.Column("X").Element("X", "EVEN", 3).Element("X", "SOME", 1).Element("X", "FAR", -1e200);
  builder_.Column("Y")
      .Element("Y", "EVEN", -3)
      .Element("Y", "SOME", 100)
      .Element("Y", "FAR", 1e-200);
  builder_.Element("X", "SAME", 100).Element("Y", "SAME", -1);
  const std::vector<RowScale> worst = WorstScaledRows(model_.store(), 9);
  ASSERT_EQ(worst.size(), 3u);
  EXPECT_EQ(worst[0].row, 3);
  EXPECT_EQ(worst[0].smallest, 1e-200);
  EXPECT_EQ(worst[0].largest, 1e200);
  EXPECT_NEAR(worst[0].decades, 400, 1e-9);
  EXPECT_EQ(worst[1].row, 2);
  EXPECT_EQ(worst[2].row, 5);
}

TEST_F(RowScales, KeepsNoMoreThanAsked) {
  builder_.Column("X").Column("Y");
  for (int r = 0; r < 50; ++r) {
    const std::string name = "R" + std::to_string(r);
    builder_.Row(name, 'L').Element("X", name, 1).Element("Y", name, 2 + r * 7 % 50);
  }
  const std::vector<RowScale> worst = WorstScaledRows(model_.store(), 3);
  ASSERT_EQ(worst.size(), 3u);
  EXPECT_EQ(worst[0].largest, 51);
  EXPECT_EQ(worst[1].largest, 50);
  EXPECT_EQ(worst[2].largest, 49);
  EXPECT_TRUE(WorstScaledRows(model_.store(), 0).empty());
}

}  // namespace
}  // namespace quarvel::inspect
