// The limits of rows and columns in the written text: RHS, RANGES and BOUNDS.

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "tests/mps/write_helpers.h"

namespace quarvel::mps {
namespace {

constexpr double kInfinite = model::BoundLimit;

const double kJustBelowLimit = std::nextafter(model::BoundLimit, 0.0);

TEST(MpsRightHandSide, IsTheLimitOfItsTypeUnlessItIsZero) {
  const struct {
    char type;
    double lower;
    double upper;
    Lines lines;
  } cases[] = {
      {'E', 5, 5, {"    RHS       R                   5."}},
      {'E', 0, 0, {}},
      {'E', -0.0, -0.0, {}},
      {'G', -1.5, kInfinite, {"    RHS       R                 -1.5"}},
      {'G', 0, kInfinite, {}},
      {'L', -kInfinite, 2, {"    RHS       R                   2."}},
      {'L', -kInfinite, 0, {}},
      {'L', 7, 0, {}},
      {'R', 3, 9, {"    RHS       R                   3."}},
      {'R', 0, 9, {}},
      {'N', 4, 4, {}},
      {ModelBuilder::kNoType, 4, 4, {}},
      {'G', 1e-11, kInfinite, {"    RHS       R                   0."}},
  };
  for (const auto& [type, lower, upper, lines] : cases) {
    HandMadeModel made;
    made.build.RowWithin("R", type, lower, upper);
    const WrittenModel written = made.Write();
    EXPECT_EQ(written.Section("RHS"), lines) << type << ' ' << lower << ' ' << upper;
    EXPECT_TRUE(written.standard) << type << ' ' << lower << ' ' << upper;
  }
}

TEST(MpsRightHandSide, LeavesTheFixedColumnsByNameAndByValue) {
  const struct {
    const char* name;
    double value;
    std::string line;
    bool standard;
  } cases[] = {
      {"EIGHTROW", 1e10, "    RHS       EIGHTROW  10000000000.", true},
      {"EIGHTROW", -1e10, "    RHS       EIGHTROW    -10000000000.", false},
      {"NINEROWSX", 5, "    RHS       NINEROWSX            5.", false},
      {"NINEROWSX", 12345678901.5, "    RHS       NINEROWSX    12345678901.5", false},
      {"R", 1e300, "    RHS       R           1" + std::string(300, '0') + ".", false},
  };
  for (const auto& [name, value, line, standard] : cases) {
    HandMadeModel made;
    made.build.Row(name, 'E', value);
    const WrittenModel written = made.Write();
    EXPECT_EQ(written.Section("RHS"), (Lines{line}));
    EXPECT_EQ(written.standard, standard) << line;
  }
}

TEST(MpsRightHandSide, MakesALongRowNameCountWithoutAnEntry) {
  for (const char type : {'N', 'G', 'L', 'E'}) {
    HandMadeModel made;
    made.build.Row("NINEROWSX", type);
    const WrittenModel written = made.Write();
    EXPECT_EQ(written.Section("RHS"), Lines()) << type;
    EXPECT_FALSE(written.standard) << type;
  }
}

TEST(MpsRanges, HaveNoHeaderWithoutRangedRows) {
  HandMadeModel made;
  made.build.Row("R", 'E', 1);
  EXPECT_EQ(made.Write().text.find("RANGES"), std::string::npos);
}

TEST(MpsRanges, HaveTheWidthOfEachRangedRow) {
  const struct {
    const char* name;
    double lower;
    double upper;
    std::string line;
    bool standard;
  } cases[] = {
      {"R", -2, 6, "    RANGE     R                   8.", true},
      {"R", 4, 4, "    RANGE     R                   0.", true},
      {"R", 6, -2, "    RANGE     R                  -8.", true},
      {"EIGHTROW", 0, 1e10, "    RANGE     EIGHTROW  10000000000.", true},
      {"R", 0, 12345678901.5, "    RANGE     R           12345678901.5", false},
      {"NINEROWSX", 0, 2.5, "    RANGE     NINEROWSX           2.5", false},
      {"NINEROWSX", 0, 12345678901.5, "    RANGE     NINEROWSX    12345678901.5", false},
  };
  for (const auto& [name, lower, upper, line, standard] : cases) {
    HandMadeModel made;
    made.build.Row("FIRST", 'L').Ranged(name, lower, upper);
    const WrittenModel written = made.Write();
    EXPECT_EQ(written.Section("RANGES"), (Lines{line}));
    EXPECT_EQ(written.standard, standard) << line;
  }
}

TEST(MpsRanges, StandUnderOneHeaderInRowOrder) {
  HandMadeModel made;
  made.build.Ranged("B", 1, 2).Row("L", 'L').Ranged("A", 1, 4);
  EXPECT_EQ(made.Write().Section("RANGES"), (Lines{"    RANGE     B                   1.",
                                                   "    RANGE     A                   3."}));
}

struct BoundCase {
  const char* name;
  double lower;
  double upper;
  Lines lines;
  bool standard;
};

void ExpectBounds(const BoundCase& bounds) {
  const std::string label =
      bounds.name + (' ' + std::to_string(bounds.lower)) + ' ' + std::to_string(bounds.upper);
  HandMadeModel made;
  made.build.Column(bounds.name, bounds.lower, bounds.upper);
  const WrittenModel written = made.Write();
  EXPECT_EQ(written.Section("BOUNDS"), bounds.lines) << label;
  EXPECT_EQ(written.standard, bounds.standard) << label;
}

TEST(MpsBounds, SayOnlyWhatDiffersFromZeroAndInfinity) {
  const BoundCase cases[] = {
      {"X", 0, kInfinite, {}, true},
      {"X", -0.0, kInfinite, {}, true},
      {"X", 0, 5, {" UP BOUND     X                   5."}, true},
      {"X", 0, -5, {" UP BOUND     X                  -5."}, true},
      {"X", 2, kInfinite, {" LO BOUND     X                   2."}, true},
      {"X",
       2,
       5,
       {" LO BOUND     X                   2.", " UP BOUND     X                   5."},
       true},
      {"X",
       5,
       2,
       {" LO BOUND     X                   5.", " UP BOUND     X                   2."},
       true},
      {"X", 3, 3, {" FX BOUND     X                   3."}, true},
      {"X", 0, 0, {" FX BOUND     X                   0."}, true},
      {"X", 0, -0.0, {" FX BOUND     X                   0."}, true},
      {"X", kInfinite, kInfinite, {" FX BOUND     X         10000000000."}, true},
  };
  for (const BoundCase& bounds : cases) ExpectBounds(bounds);
}

TEST(MpsBounds, AreNeverStandardWithAnAbsentLowerBound) {
  const BoundCase cases[] = {
      {"X", -kInfinite, kInfinite, {" FR BOUND     X"}, false},
      {"X", -kInfinite, 7, {" UP BOUND     X                   7."}, false},
      {"X", -kInfinite, 0, {" UP BOUND     X                   0."}, false},
      {"X", -kInfinite, -kInfinite, {" FX BOUND     X  -10000000000"}, false},
      {"NINECOLSX", -kInfinite, kInfinite, {" FR BOUND     NINECOLSX"}, false},
  };
  for (const BoundCase& bounds : cases) ExpectBounds(bounds);
}

TEST(MpsBounds, CompareWithTheLimitExactly) {
  const BoundCase cases[] = {
      {"X", 0, kJustBelowLimit, {" UP BOUND     X         10000000000."}, true},
      {"X", -kJustBelowLimit, kInfinite, {" LO BOUND     X  -10000000000"}, false},
      {"X", 0, 2e10, {" UP BOUND     X         20000000000."}, true},
      {"X", 1e-300, kInfinite, {" LO BOUND     X                   0."}, true},
  };
  for (const BoundCase& bounds : cases) ExpectBounds(bounds);
}

TEST(MpsBounds, LeaveTheFixedColumnsForLongNames) {
  const BoundCase cases[] = {
      {"EIGHTCOL",
       2,
       5,
       {" LO BOUND     EIGHTCOL            2.", " UP BOUND     EIGHTCOL            5."},
       true},
      {"EIGHTCOL", 3, 3, {" FX BOUND     EIGHTCOL            3."}, true},
      {"NINECOLSX", 0, kInfinite, {}, false},
      {"NINECOLSX", 2, 5, {" LO BOUND     NINECOLSX  2", " UP BOUND     NINECOLSX  5."}, false},
      {"NINECOLSX", 3.5, 3.5, {" FX BOUND     NINECOLSX  3.5"}, false},
  };
  for (const BoundCase& bounds : cases) ExpectBounds(bounds);
}

TEST(MpsBounds, WriteLongLowerAndFixedValuesAsGeneralText) {
  const BoundCase cases[] = {
      {"X", 0.1234567891, kInfinite, {" LO BOUND     X         0.1234567891"}, true},
      {"X", 0.12345678912, kInfinite, {" LO BOUND     X  0.12345678912"}, false},
      {"X", 12345678901, kInfinite, {" LO BOUND     X         12345678901."}, true},
      {"X", 123456789012, kInfinite, {" LO BOUND     X  123456789012"}, false},
      {"X", 1e15, kInfinite, {" LO BOUND     X  1E+15"}, false},
      {"X", -1e300, kInfinite, {" LO BOUND     X  -1E+300"}, false},
      {"X", 1e300, 1e300, {" FX BOUND     X  1E+300"}, false},
      {"X", 1234567.890625, 1234567.890625, {" FX BOUND     X  1234567.890625"}, false},
  };
  for (const BoundCase& bounds : cases) ExpectBounds(bounds);
}

TEST(MpsBounds, StayStandardWithALongUpperBound) {
  const BoundCase cases[] = {
      {"X", 0, 123456789012, {" UP BOUND     X  123456789012."}, true},
      {"X", 0, -1e10, {" UP BOUND     X  -10000000000."}, true},
      {"X", 0, 0.12345678912, {" UP BOUND     X  0.12345678912"}, true},
      {"X",
       1,
       1e300,
       {" LO BOUND     X                   1.", " UP BOUND     X  1" + std::string(300, '0') + "."},
       true},
  };
  for (const BoundCase& bounds : cases) ExpectBounds(bounds);
}

TEST(MpsBounds, StandInColumnOrderLowerBeforeUpper) {
  HandMadeModel made;
  made.build.Column("B", 1, 2).Column("FREE", -kInfinite, kInfinite).Integer("A", 3, 4);
  EXPECT_EQ(made.Write().Section("BOUNDS"),
            (Lines{" LO BOUND     B                   1.", " UP BOUND     B                   2.",
                   " FR BOUND     FREE", " LO BOUND     A                   3.",
                   " UP BOUND     A                   4."}));
}

}  // namespace
}  // namespace quarvel::mps
