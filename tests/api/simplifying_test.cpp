#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

TEST(ApiSimplifying, TurnsRowsIntoBoundsAndTellsWhichInItsLog) {
  Model model = SmallApiModel();
  model.AddColumn("EMPTY");
  const SimplifyResult result = Simplify(model);
  EXPECT_TRUE(result.is_changed());
  EXPECT_FALSE(result.is_stopped);
  EXPECT_EQ(result.removed_rows, 1);
  EXPECT_EQ(result.removed_columns, 1);
  EXPECT_EQ(result.conflicts, 0);
  EXPECT_EQ(model.FindRow("RANGE"), std::nullopt);
  EXPECT_EQ(model.BoundsOfColumn(0), (Bounds{1, 8}));
  EXPECT_NE(result.log.find("RANGE"), std::string::npos) << result.log;
  EXPECT_NE(result.log.find("EMPTY"), std::string::npos) << result.log;
  EXPECT_TRUE(result.log.ends_with("\r\n"));
}

// The component's rules are kept; who simplifies is told where they make another model.
TEST(ApiSimplifying, TellsWhichRowsBecameOtherBoundsThanTheyWere) {
  struct Case {
    std::string
        row;  // its type, its coefficient at X, its right-hand side and range; X is in [0, 4]
    std::string sides;
    std::string altered;
    Bounds bounds;
  };
  const std::string sign = "row R became bounds as if its coefficient were positive, for column X";
  const std::string other = "row R became the bound that it does not tighten, the ";
  const Case cases[] = {
      {"L 2", "RHS\n S R 6\n", "", {0, 3}},
      {"L -2", "RHS\n S R -6\n", sign, {0, 3}},
      {"G 2", "RHS\n S R 2\n", "", {1, 4}},
      {"G -2", "RHS\n S R -6\n", sign, {3, 4}},
      {"G -2", "RHS\n S R 6\n", "", {0, 4}},  // is kept
      {"E 2", "RHS\n S R 2\n", "", {1, 1}},
      {"E -2", "RHS\n S R -2\n", "", {1, 1}},
      {"L 2", "RHS\n S R 6\nRANGES\n S R 4\n", "", {1, 3}},
      {"L -1", "RHS\n S R 4\nRANGES\n S R 8\n", sign, {4, -4}},
      {"L 1", "RHS\n S R 6\nRANGES\n S R 4\n", other + "upper one, of column X", {0, 6}},
      {"L 1", "RHS\n S R 2\nRANGES\n S R 4\n", other + "lower one, of column X", {-2, 4}},
  };
  for (const Case& c : cases) {
    Model model;
    ReadText("ROWS\n N C\n G K\n " + c.row.substr(0, 1) + " R\nCOLUMNS\n X C 1 K 1\n X R " +
                 c.row.substr(2) + '\n' + c.sides + "BOUNDS\n UP B X 4\nENDATA\n",
             model);
    const std::vector<std::string> altered = Simplify(model).altered;
    EXPECT_EQ(altered.empty() ? "" : altered[0], c.altered) << c.row << c.sides;
    EXPECT_LE(altered.size(), 1U);
    EXPECT_EQ(model.BoundsOfColumn(0), c.bounds) << c.row << c.sides;
  }
}

TEST(ApiSimplifying, LeavesWhatIsSimpleAlone) {
  Model model;
  EXPECT_FALSE(Simplify(model).is_changed());
  model = SmallApiModel();
  Simplify(model);
  const SimplifyResult again = Simplify(model);
  EXPECT_FALSE(again.is_changed());
  EXPECT_EQ(again.log, "");
}

TEST(ApiSimplifying, DecidesConflictsByItsOptions) {
  Model model;
  ReadText(kConflictModel, model);
  SimplifyResult result = Simplify(model);
  EXPECT_EQ(result.conflicts, 1);
  EXPECT_EQ(model.row_count(), 2);
  result = Simplify(model, {.on_conflict = OnConflict::kRemoveRow});
  EXPECT_EQ(result.removed_rows, 1);
  EXPECT_EQ(model.BoundsOfColumn(0), (Bounds{0, 3}));
  ReadText(kConflictModel, model);
  result = Simplify(model, {.on_conflict = OnConflict::kResetBounds});
  EXPECT_EQ(result.removed_rows, 1);
  EXPECT_EQ(model.BoundsOfColumn(0), (Bounds{4, 4}));
}

// A model whose rows take many steps.
Model LongModel() {
  Model model;
  model.AddColumn("X");
  for (int i = 0; i < 500; ++i) {
    const std::int32_t row = model.AddRow("R" + std::to_string(i), {.upper = 1000.0 - i});
    model.AddElement(row, 0, 1);
  }
  return model;
}

TEST(ApiSimplifying, CanBeStopped) {
  Model model = LongModel();
  double last = 0;
  const auto stop = [&](double part) {
    last = part;
    return false;
  };
  const SimplifyResult result = Simplify(model, {.on_progress = stop});
  EXPECT_TRUE(result.is_stopped);
  EXPECT_GT(result.removed_rows, 0);
  EXPECT_LT(result.removed_rows, 500);
  EXPECT_GT(last, 0);
  EXPECT_LT(last, 1);
}

TEST(ApiSimplifying, PassesOnWhatIsThrownAndWhatStopsIt) {
  Model model = LongModel();
  const auto fail = [](double) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(Simplify(model, {.on_progress = fail}), std::logic_error);
  const auto edit = [&](double) {
    model.AddRow("NEW");
    return true;
  };
  EXPECT_EQ(ErrorOf([&] { Simplify(model, {.on_progress = edit}); }), ErrorCode::kBusy);
  Model zero;
  zero.AddRow("R", {.upper = 1});
  zero.AddColumn("X");
  zero.AddElement(0, 0, 0);
  EXPECT_EQ(ErrorOf([&] { Simplify(zero); }), ErrorCode::kFailed);
  EXPECT_EQ(zero.row_count(), 1);
  zero.SetCoefficient(0, 0, 2);
  EXPECT_EQ(Simplify(zero).removed_rows, 1);
}

}  // namespace
}  // namespace quarvel
