#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

std::vector<Difference> All(const Model& a, const Model& b, const Tolerance& tolerance = {}) {
  std::vector<Difference> all;
  Compare(a, b, tolerance, [&](const Difference& difference) { all.push_back(difference); });
  return all;
}

TEST(ApiComparing, FindsNoneInACopyAndInEmptyModels) {
  const Model model = SmallApiModel();
  EXPECT_EQ(Compare(model, model.Copy()), 0);
  EXPECT_EQ(Compare(Model(), Model()), 0);
  EXPECT_EQ(Compare(model, model), 0);
}

TEST(ApiComparing, TellsEachWithNumbersFromZero) {
  const Model a = SmallApiModel();
  Model b = a.Copy();
  b.SetCoefficient(1, 1, 1.5);
  auto all = All(a, b);
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].kind, "element-value");
  EXPECT_FALSE(all[0].is_note);
  EXPECT_EQ(all[0].row_in_a, 1);
  EXPECT_EQ(all[0].column_in_b, 1);
  EXPECT_EQ(all[0].before, 1);
  EXPECT_EQ(all[0].after, 1.5);
  b = a.Copy();
  b.AddRow("NEW", {.upper = 3});
  all = All(a, b);
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].kind, "row-came");
  EXPECT_EQ(all[0].row_in_a, -1);
  EXPECT_EQ(all[0].row_in_b, 3);
  EXPECT_EQ(all[0].column_in_a, -1);
}

TEST(ApiComparing, KnowsFactsAndTheFirstFreeRowAsObjective) {
  const Model a = SmallApiModel();
  Model b = a.Copy();
  b.set_facts({.sense = ObjectiveSense::kMinimize, .objective = "COST"});
  EXPECT_EQ(Compare(a, b), 0);
  b.set_facts({.sense = ObjectiveSense::kMaximize, .objective_constant = 1});
  EXPECT_EQ(Compare(a, b), 2);
}

TEST(ApiComparing, TellsOrdersAsNotes) {
  Model a;
  Model b;
  for (const char* name : {"A", "B"}) a.AddRow(name, {.upper = 1});
  for (const char* name : {"B", "A"}) b.AddRow(name, {.upper = 1});
  EXPECT_EQ(Compare(a, b), 0);
  const auto all = All(a, b);
  ASSERT_FALSE(all.empty());
  EXPECT_TRUE(all[0].is_note);
  EXPECT_EQ(all[0].kind, "row-order");
}

TEST(ApiComparing, CountsCloseNumbersAsOne) {
  const Model a = SmallApiModel();
  Model b = a.Copy();
  b.SetRowBounds(1, {.upper = 4.001});
  EXPECT_EQ(Compare(a, b), 1);
  EXPECT_EQ(Compare(a, b, {.absolute = 0.01}), 0);
  EXPECT_EQ(Compare(a, b, {.relative = 0.001}), 0);
  EXPECT_EQ(ErrorOf([&] { Compare(a, b, {.absolute = -1}); }), ErrorCode::kValue);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(ErrorOf([&] { Compare(a, b, {.relative = nan}); }), ErrorCode::kValue);
}

TEST(ApiComparing, PassesOnWhatIsThrown) {
  const Model a = SmallApiModel();
  const auto fail = [](const Difference&) { throw std::logic_error("mine"); };
  EXPECT_THROW(Compare(a, Model(), {}, fail), std::logic_error);
}

}  // namespace
}  // namespace quarvel
