#include "inspect/compare.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using model::BoundLimit;
using Lines = std::vector<std::string>;

// A model that tests change.
struct TestModel {
  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
  const model::ModelStore& store() { return model.store(); }
};

ModelBuilder BuildSmall(TestModel& test) {
  ModelBuilder builder(test.model);
  builder.Name("SMALL").Row("COST", 'N').Row("R1", 'L', 4).Row("R2", 'G', 1);
  builder.Column("X").Integer("Y", 0, 9).Column("Z");
  builder.Element("X", "COST", 1).Element("X", "R1", 2).Element("X", "R2", 3);
  builder.Element("Y", "R1", 5).Element("Z", "COST", 7);
  return builder;
}

template <class Records>
std::string NameIn(const Records& a, const Records& b, RecordPair pair) {
  if (pair.a != 0) return a[pair.a].Name;
  return pair.b != 0 ? std::string(b[pair.b].Name) : "";
}

// "element-value R1 X 2 3".
std::string Line(const model::ModelStore& a, const model::ModelStore& b, const Difference& d) {
  std::string line(NameOf(d.kind));
  const std::string row = NameIn(a.data().Rows, b.data().Rows, d.row);
  const std::string column = NameIn(a.data().Columns, b.data().Columns, d.column);
  if (!row.empty()) line += " " + row;
  if (!column.empty()) line += " " + column;
  if (d.before == 0 && d.after == 0) return line;
  return line + " " + text::RoundTripText(d.before) + " " + text::RoundTripText(d.after);
}

Lines LinesOf(TestModel& a, TestModel& b, const Tolerance& tolerance = {}) {
  Lines lines;
  Compare(a.store(), b.store(), tolerance, [&](const Difference& difference) {
    lines.push_back(Line(a.store(), b.store(), difference));
  });
  return lines;
}

// The differences of the small model and one that was changed.
Lines LinesOfChange(const std::function<void(LPModel&)>& change) {
  TestModel a;
  TestModel b;
  BuildSmall(a);
  BuildSmall(b);
  change(b.model);
  return LinesOf(a, b);
}

// Both models with a column X from `lower` to `upper` each.
Lines LinesOfBounds(double lower_a, double upper_a, double lower_b, double upper_b,
                    const Tolerance& tolerance = {}) {
  TestModel a;
  TestModel b;
  ModelBuilder(a.model).Column("X", lower_a, upper_a);
  ModelBuilder(b.model).Column("X", lower_b, upper_b);
  return LinesOf(a, b, tolerance);
}

// Both models with coefficients of column X in rows R1 to R9.
struct Entry {
  const char* row;
  double value;
};
Lines LinesOfLists(const std::vector<Entry>& a, const std::vector<Entry>& b,
                   const Tolerance& tolerance = {}) {
  TestModel models[2];
  for (int i = 0; i < 2; ++i) {
    ModelBuilder builder(models[i].model);
    for (int row = 1; row <= 9; ++row) builder.Row("R" + std::to_string(row), 'L');
    builder.Column("X");
    for (const Entry& entry : i == 0 ? a : b) builder.Element("X", entry.row, entry.value);
  }
  return LinesOf(models[0], models[1], tolerance);
}

TEST(Compare, FindsNoDifferenceBetweenAModelAndItself) {
  EXPECT_EQ(LinesOfChange([](LPModel&) {}), Lines{});
  TestModel a;
  BuildSmall(a);
  EXPECT_EQ(LinesOf(a, a), Lines{});
  TestModel empty;
  TestModel other_empty;
  EXPECT_EQ(LinesOf(empty, other_empty), Lines{});
}

struct Case {
  const char* what;
  void (*change)(LPModel& model);
  Lines lines;
};

const Case kCases[] = {
    {"another name", [](LPModel& m) { m.SetModelName("OTHER"); }, {"model-name"}},
    {"a description", [](LPModel& m) { m.SetModelDescription("some"); }, {"description"}},
    {"a row less, with its coefficients", [](LPModel& m) { m.DeleteRow(1); }, {"row-went R1"}},
    {"a row more", [](LPModel& m) { m.AddRow("R3"); }, {"row-came R3"}},
    {"a row's type", [](LPModel& m) { m.SetRowType(1, "E"); }, {"row-type R1"}},
    {"a row's lower limit", [](LPModel& m) { m.SetRowLowerBound(2, 2); }, {"row-lower R2 1 2"}},
    {"a row's upper limit", [](LPModel& m) { m.SetRowUpperBound(1, 5); }, {"row-upper R1 4 5"}},
    {"a column less", [](LPModel& m) { m.DeleteColumn(2); }, {"column-went Z"}},
    {"a column more", [](LPModel& m) { m.AddColumn("W"); }, {"column-came W"}},
    {"a column's type", [](LPModel& m) { m.SetColType(1, "R"); }, {"column-type Y"}},
    {"a lower bound", [](LPModel& m) { m.SetColLowerBound(1, -1); }, {"column-lower Y 0 -1"}},
    {"no upper bound",
     [](LPModel& m) { m.SetColUpperBound(1, 1e10); },
     {"column-upper Y 9 10000000000"}},
    {"a coefficient's value",
     [](LPModel& m) { m.SetRowElementValue(1, 0, 2.5); },
     {"element-value R1 X 2 2.5"}},
    {"a coefficient less", [](LPModel& m) { m.DeleteElement(1, 0); }, {"element-went R1 X 2 0"}},
    {"a coefficient more", [](LPModel& m) { m.AddElement(2, 2, 8); }, {"element-came R2 Z 0 8"}},
    {"another name of a row",
     [](LPModel& m) { m.SetRowName(1, "NEW"); },
     {"row-went R1", "row-came NEW"}},
};

TEST(Compare, TellsEveryKindOfDifferenceWithBothValues) {
  for (const Case& c : kCases) EXPECT_EQ(LinesOfChange(c.change), c.lines) << c.what;
}

TEST(Compare, TellsWhatCameAndWentTheOtherWayRound) {
  TestModel a;
  TestModel b;
  BuildSmall(a).Row("R3", 'E', 2).Element("X", "R3", 4).Element("Z", "R2", -1);
  BuildSmall(b).Column("W").Element("W", "R2", 3);
  EXPECT_EQ(LinesOf(a, b), (Lines{"row-went R3", "element-went R2 Z -1 0", "column-came W"}));
  EXPECT_EQ(LinesOf(b, a), (Lines{"row-came R3", "element-came R2 Z 0 -1", "column-went W"}));
}

TEST(Compare, TakesTheOrderOfRecordsAndCoefficientsForANote) {
  TestModel a;
  TestModel b;
  BuildSmall(a);
  ModelBuilder builder(b.model);
  builder.Name("SMALL").Row("R2", 'G', 1).Row("COST", 'N').Row("R1", 'L', 4);
  builder.Column("X").Column("Z").Integer("Y", 0, 9);
  builder.Element("X", "COST", 1).Element("X", "R2", 3).Element("X", "R1", 2);
  builder.Element("Y", "R1", 5).Element("Z", "COST", 7);
  EXPECT_EQ(LinesOf(a, b), (Lines{"row-order R2", "element-order R2 X", "column-order Z"}));
  EXPECT_TRUE(Compare(a.store(), b.store()).none());
}

TEST(Compare, ComparesListsOfAnyOrder) {
  EXPECT_EQ(LinesOfLists({{"R1", 1}, {"R2", 2}, {"R3", 3}}, {{"R3", 3}, {"R1", 1}, {"R4", 4}}),
            (Lines{"element-went R2 X 2 0", "element-order R3 X", "element-came R4 X 0 4"}));
  EXPECT_EQ(LinesOfLists({}, {{"R1", 1}}), (Lines{"element-came R1 X 0 1"}));
  EXPECT_EQ(LinesOfLists({{"R1", 1}, {"R2", 2}}, {{"R2", 5}}),
            (Lines{"element-went R1 X 1 0", "element-value R2 X 2 5"}));
}

TEST(Compare, ComparesPairsThatStandSeveralTimesOneByOne) {
  EXPECT_EQ(LinesOfLists({{"R1", 2}, {"R1", 3}}, {{"R1", 2}, {"R1", 3}}), Lines{});
  EXPECT_EQ(LinesOfLists({{"R1", 2}, {"R1", 3}}, {{"R1", 5}}),
            (Lines{"element-value R1 X 2 5", "element-went R1 X 3 0"}));
  EXPECT_EQ(LinesOfLists({{"R1", 2}}, {{"R2", 1}, {"R1", 2}, {"R1", 3}}),
            (Lines{"element-came R2 X 0 1", "element-came R1 X 0 3"}));
  EXPECT_EQ(LinesOfLists({{"R2", 1}, {"R1", 2}, {"R1", 3}}, {{"R1", 2}, {"R1", 4}, {"R2", 1}}),
            (Lines{"element-order R1 X", "element-value R1 X 3 4"}));
}

TEST(Compare, TellsCoefficientsOfZero) {
  EXPECT_EQ(LinesOfLists({{"R1", 0}}, {}), Lines{"element-went R1 X"});
  EXPECT_EQ(LinesOfLists({{"R1", 0.0}}, {{"R1", -0.0}}), Lines{});
}

TEST(Compare, PairsRecordsOfOneNameInTheirOrder) {
  TestModel a;
  TestModel b;
  ModelBuilder(a.model).Row("R", 'N').Column("X", 0, 1).Column("X", 0, 2);
  ModelBuilder(b.model).Row("R", 'N').Column("X", 0, 1).Column("X", 0, 3).Column("X", 0, 4);
  EXPECT_EQ(LinesOf(a, b), (Lines{"column-upper X 2 3", "column-came X"}));
}

TEST(Compare, TakesBoundsOfTheLimitAndBeyondForNone) {
  EXPECT_EQ(LinesOfBounds(-BoundLimit, BoundLimit, -2e10, 1e300), Lines{});
  EXPECT_EQ(LinesOfBounds(-BoundLimit, BoundLimit, -9999999999, BoundLimit, {0, 0.5}),
            Lines{"column-lower X -10000000000 -9999999999"});
  EXPECT_EQ(LinesOfBounds(0, 9999999999, 0, BoundLimit, {1e9, 0}),
            Lines{"column-upper X 9999999999 10000000000"});
  // On the wrong side it is a number like any other.
  EXPECT_EQ(LinesOfBounds(BoundLimit, BoundLimit, 2 * BoundLimit, BoundLimit),
            Lines{"column-lower X 10000000000 20000000000"});
}

TEST(Compare, TakesCloseNumbersForOneWhereItIsTold) {
  EXPECT_EQ(LinesOfBounds(0, 1, 0, std::nextafter(1, 2)),
            Lines{"column-upper X 1 1.0000000000000002"});
  EXPECT_EQ(LinesOfBounds(0, 1, 0, std::nextafter(1, 2), {0, 1e-15}), Lines{});
  EXPECT_EQ(LinesOfLists({{"R1", 100}, {"R2", 1}}, {{"R1", 101}, {"R2", 1.5}}, {0.5, 0}),
            Lines{"element-value R1 X 100 101"});
  EXPECT_EQ(LinesOfLists({{"R1", 100}, {"R2", 1}}, {{"R1", 101}, {"R2", 1.5}}, {0, 0.01}),
            Lines{"element-value R2 X 1 1.5"});
  EXPECT_EQ(LinesOfLists({{"R1", 100}, {"R2", 1}}, {{"R1", 101}, {"R2", 1.5}}, {0.5, 0.01}),
            Lines{});
}

TEST(Compare, KnowsWhatIsNotFiniteByItself) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Tolerance wide = {1e300, 1};
  EXPECT_TRUE(AreClose(nan, nan, {}));
  EXPECT_TRUE(AreClose(infinity, infinity, {}));
  EXPECT_FALSE(AreClose(infinity, -infinity, wide));
  EXPECT_FALSE(AreClose(infinity, 1, wide));
  EXPECT_FALSE(AreClose(1, nan, wide));
  EXPECT_FALSE(AreClose(1e308, -1e308, {1e300, 0.5}));
  EXPECT_EQ(LinesOfBounds(nan, 1, nan, 1), Lines{});
  EXPECT_EQ(LinesOfBounds(nan, 1, -BoundLimit, 1).size(), 1u);
}

TEST(Compare, TellsWhatFilesSayBesideTheirModels) {
  const auto lines = [](const mps::FileFacts& a, const mps::FileFacts& b, Tolerance tolerance) {
    Lines told;
    CompareFacts(a, b, tolerance, [&told](const Difference& d) {
      told.push_back(std::string(NameOf(d.kind)) + " " + text::RoundTripText(d.before) + " " +
                     text::RoundTripText(d.after));
    });
    return told;
  };
  mps::FileFacts a;
  mps::FileFacts b;
  b.sense = mps::ObjectiveSense::kMinimize;
  b.rhs_set = "RHS";
  b.has_endata = false;
  EXPECT_EQ(lines(a, b, {}), Lines{});
  b.sense = mps::ObjectiveSense::kMaximize;
  b.objective = "PROFIT";
  b.objective_constant = 2;
  EXPECT_EQ(lines(a, b, {}),
            (Lines{"objective-sense 0 0", "objective 0 0", "objective-constant 0 2"}));
  EXPECT_EQ(lines(b, a, {2, 0}), (Lines{"objective-sense 0 0", "objective 0 0"}));
}

TEST(Compare, CountsAndKeepsTheFirst) {
  TestModel a;
  TestModel b;
  BuildSmall(a);
  BuildSmall(b);
  for (std::int32_t j = 0; j < 3; ++j) b.model.SetColLowerBound(j, -5);
  const Differences differences = Compare(a.store(), b.store(), {}, 2);
  EXPECT_EQ(differences.count(), 3);
  EXPECT_EQ(differences.CountOf(DifferenceKind::kColumnLower), 3);
  ASSERT_EQ(differences.FirstOf(DifferenceKind::kColumnLower).size(), 2u);
  EXPECT_EQ(differences.FirstOf(DifferenceKind::kColumnLower)[0],
            (Difference{DifferenceKind::kColumnLower, {}, {1, 1}, 0, -5}));
}

}  // namespace
}  // namespace quarvel::inspect
