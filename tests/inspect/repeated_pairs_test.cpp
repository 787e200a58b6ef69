#include "inspect/repeated_pairs.h"

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel::inspect {
namespace {

TEST(RepeatedPairs, AreCountedByRowAndColumn) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  ModelBuilder builder(model);
  builder.Row("R1", 'N').Row("R2", 'L').Column("X").Column("Y");
  builder.Element("X", "R1", 1).Element("X", "R2", 2).Element("X", "R1", 3).Element("X", "R1", 0);
  builder.Element("Y", "R1", 4).Element("Y", "R2", 5);
  EXPECT_EQ(RepeatedPairsOf(model.store()), (RepeatedPairs{{{1, 1}, 3}}));
  builder.Element("Y", "R2", 5);
  EXPECT_EQ(RepeatedPairsOf(model.store()), (RepeatedPairs{{{1, 1}, 3}, {{2, 2}, 2}}));
}

TEST(RepeatedPairs, AreNoneInAnEmptyModel) {
  platform::ScriptedDesktop desktop;
  LPModel model(desktop);
  EXPECT_TRUE(RepeatedPairsOf(model.store()).empty());
}

}  // namespace
}  // namespace quarvel::inspect
