#include "mps/exact_limits.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/test_length.h"

namespace quarvel::mps {
namespace {

using model::RowRecord;
using model::RowType;
using Value = std::optional<double>;

constexpr double kNone = model::BoundLimit;

RowRecord Row(RowType type, double lower, double upper) {
  RowRecord row;
  row.Type = type;
  row.LowerBound = lower;
  row.UpperBound = upper;
  return row;
}

TEST(ExactLimits, SayOfEachRowWhatItIs) {
  const struct {
    RowRecord row;
    bool may_be_free;
    RowType type;
    Value right_hand_side;
    Value range;
  } cases[] = {
      {Row(RowType::kEqual, 5, 5), true, RowType::kEqual, 5, {}},
      {Row(RowType::kEqual, 0, 0), true, RowType::kEqual, {}, {}},
      {Row(RowType::kGreater, 0, kNone), true, RowType::kGreater, {}, {}},
      {Row(RowType::kGreater, -2, kNone), true, RowType::kGreater, -2, {}},
      {Row(RowType::kLess, -kNone, 0), true, RowType::kLess, {}, {}},
      {Row(RowType::kLess, -kNone, 7), true, RowType::kLess, 7, {}},
      {Row(RowType::kRanged, 2, 8), true, RowType::kGreater, 2, 6},
      {Row(RowType::kRanged, 0, 8), true, RowType::kGreater, {}, 8},
      // Only the lower limit can be the result of a subtraction.
      {Row(RowType::kRanged, -1e16, 1e-3), true, RowType::kLess, 1e-3, 1e16},
      // Limits decide where the type says something else.
      {Row(RowType::kGreater, 0, 5), true, RowType::kGreater, {}, 5},
      {Row(RowType::kFree, -kNone, kNone), true, RowType::kFree, {}, {}},
      {Row(RowType::kFree, -kNone, kNone), false, RowType::kGreater, -kNone, {}},
      {Row(RowType::kFree, -2e10, kNone), true, RowType::kGreater, -2e10, {}},
      {Row(RowType::kFree, -kNone, 2e10), true, RowType::kLess, 2e10, {}},
      {Row(RowType::kFree, 0, 5), true, RowType::kFree, {}, {}},
      {Row(RowType::kFree, 0, 5), false, RowType::kGreater, -kNone, {}},
      {Row(RowType::kGreater, kNone, kNone), true, RowType::kGreater, kNone, {}},
      {Row(RowType::kNone, 1, 2), true, RowType::kNone, {}, {}},
  };
  int number = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(number++);
    const RowLines lines = RowLinesOf(c.row, c.may_be_free);
    EXPECT_EQ(lines.type, c.type);
    EXPECT_EQ(lines.right_hand_side, c.right_hand_side);
    EXPECT_EQ(lines.range, c.range);
  }
}

TEST(ExactLimits, KeepTheSignOfZero) {
  const RowLines lines = RowLinesOf(Row(RowType::kEqual, -0.0, -0.0), true);
  ASSERT_TRUE(lines.right_hand_side.has_value());
  EXPECT_TRUE(std::signbit(*lines.right_hand_side));
}

// Neither 2 + 2 units nor 2 + 4 units added to the lower limit give the upper one, and no difference from
// it gives the lower one.
TEST(ExactLimits, TellOfLimitsThatNoRangeGives) {
  constexpr double kUnit = std::numeric_limits<double>::epsilon();
  const RowLines lines = RowLinesOf(Row(RowType::kRanged, -(1 + kUnit), 1 + 2 * kUnit), true);
  EXPECT_NE(lines.back.UpperBound, 1 + 2 * kUnit);
  EXPECT_NEAR(lines.back.UpperBound, 1, 4 * kUnit);
}

// Any size whose sum with the lower limit, or difference from the upper one, is the other limit.
bool SomeSizeGives(const RowRecord& row) {
  double size = row.UpperBound - row.LowerBound;
  for (int step = 0; step < 8; ++step) size = std::nextafter(size, 0.0);
  for (int step = 0; step < 16; ++step, size = std::nextafter(size, 1e300)) {
    if (row.LowerBound + size == row.UpperBound || row.UpperBound - size == row.LowerBound)
      return true;
  }
  return false;
}

TEST(ExactLimits, AreTheSameBitsWhereverAnyRangeGivesThem) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<> mantissa(-10, 10);
  int lost = 0;
  const int rows = TestLength(20'000);
  for (int i = 0; i < rows; ++i) {
    const double a = mantissa(random) * std::pow(10, static_cast<int>(random() % 12) - 6);
    const double b = mantissa(random) * std::pow(10, static_cast<int>(random() % 12) - 6);
    const RowRecord row = Row(RowType::kRanged, std::min(a, b), std::max(a, b));
    const RowLines lines = RowLinesOf(row, true);
    const bool is_same =
        lines.back.LowerBound == row.LowerBound && lines.back.UpperBound == row.UpperBound;
    ASSERT_EQ(is_same, SomeSizeGives(row)) << row.LowerBound << ' ' << row.UpperBound;
    lost += is_same ? 0 : 1;
  }
  EXPECT_GT(lost, 0);
  EXPECT_LT(lost, rows / 5);
}

// What a file says is among the choices.
TEST(ExactLimits, AreAlwaysTheSameBitsForLimitsThatWereRead) {
  std::mt19937_64 random(4);
  std::uniform_real_distribution<> mantissa(-10, 10);
  for (int i = 0; i < TestLength(20'000); ++i) {
    const double limit = mantissa(random) * std::pow(10, static_cast<int>(random() % 12) - 6);
    const double size =
        std::fabs(mantissa(random)) * std::pow(10, static_cast<int>(random() % 12) - 6);
    for (const RowRecord& row :
         {Row(RowType::kRanged, limit, limit + size), Row(RowType::kRanged, limit - size, limit)}) {
      const RowLines lines = RowLinesOf(row, true);
      ASSERT_EQ(lines.back.LowerBound, row.LowerBound) << row.UpperBound;
      ASSERT_EQ(lines.back.UpperBound, row.UpperBound) << row.LowerBound;
    }
  }
}

TEST(ExactLimits, FindTheObjective) {
  model::ModelData data;
  data.NumberOfRows = 3;
  data.Rows.Resize(3);
  data.Rows[1] = Row(RowType::kLess, -kNone, 0);
  data.Rows[2] = Row(RowType::kFree, -kNone, kNone);
  data.Rows[3] = Row(RowType::kFree, -kNone, kNone);
  data.Rows[1].Name = "L";
  data.Rows[2].Name = "FIRST";
  data.Rows[3].Name = "SECOND";
  FileFacts facts;
  EXPECT_EQ(ObjectiveOf(data, facts), 2);
  facts.objective = "SECOND";
  EXPECT_EQ(ObjectiveOf(data, facts), 3);
  // Not there, or not free any more.
  for (const char* const gone : {"GONE", "L"}) {
    facts.objective = gone;
    EXPECT_EQ(ObjectiveOf(data, facts), 2);
  }
  data.NumberOfRows = 1;
  EXPECT_EQ(ObjectiveOf(data, facts), 0);
}

// A number beyond the limit is kept by a row that is no objective.
TEST(ExactLimits, WriteTheNamedObjectiveAsFree) {
  model::ModelData data;
  data.NumberOfRows = 2;
  data.Rows.Resize(2);
  data.Rows[1] = Row(RowType::kFree, -1e11, kNone);
  data.Rows[2] = Row(RowType::kFree, -kNone, kNone);
  data.Rows[1].Name = "LIMITED";
  data.Rows[2].Name = "ABSENT";
  FileFacts facts;
  EXPECT_EQ(ObjectiveOf(data, facts), 2);
  EXPECT_EQ(RowLinesOf(data, facts, 2, 1).type, RowType::kGreater);
  facts.objective = "LIMITED";
  EXPECT_EQ(ObjectiveOf(data, facts), 1);
  EXPECT_EQ(RowLinesOf(data, facts, 1, 1).type, RowType::kFree);
  facts.objective = "GONE";
  data.NumberOfRows = 1;
  EXPECT_EQ(ObjectiveOf(data, facts), 1);
  EXPECT_EQ(RowLinesOf(data, facts, 1, 1).type, RowType::kGreater);
}

}  // namespace
}  // namespace quarvel::mps
