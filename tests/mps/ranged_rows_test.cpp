#include "mps/ranged_rows.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

// What the sections RHS and RANGES make of the row of that type, from line 7 on: "17..20, A314 9 ...".
std::string LimitsBy(const std::string& type, const std::string& sections) {
  WideReading reading("ROWS\n N  COST\n " + type +
                      "  LIM\n L  REST\nCOLUMNS\n    X  COST  1  LIM  1  \n" + sections +
                      "ENDATA\n");
  const model::RowRecord& row = reading.Row("LIM");
  std::string told = text::GeneralText(row.LowerBound) + ".." + text::GeneralText(row.UpperBound);
  for (const FileProblem& problem : reading.read.problems.kept()) {
    const std::string id(TraitsOf(problem.code).id);
    if (id != "W501") told += ", " + id + " " + std::to_string(problem.line);
  }
  return told;
}

constexpr char kRangedRhs[] = "RHS\n    R  LIM  20\n";
constexpr char kRanged[] = "RANGES\n    G  LIM  3\n";

TEST(RangedRows, HaveTheirRangeByTheirType) {
  const std::string sections = std::string(kRangedRhs) + kRanged;
  EXPECT_EQ(LimitsBy("L", sections), "17..20");
  EXPECT_EQ(LimitsBy("G", sections), "20..23");
  EXPECT_EQ(LimitsBy("E", sections), "20..23");
  EXPECT_EQ(LimitsBy("E", std::string(kRangedRhs) + "RANGES\n    G  LIM  -3\n"), "17..20, A310 10");
}

TEST(RangedRows, KeepTheirRangeUnderALaterRightHandSide) {
  const std::string again = "RHS\n    R  REST  5\n" + std::string(kRanged) + kRangedRhs;
  EXPECT_EQ(LimitsBy("L", again), "17..20, W417 11, A314 12");
  EXPECT_EQ(LimitsBy("G", again), "20..23, W417 11, A314 12");
  EXPECT_EQ(LimitsBy("E", again), "20..23, W417 11, A314 12");
}

TEST(RangedRows, GoByRightHandSidesBehindThem) {
  const std::string first = std::string(kRanged) + kRangedRhs;
  EXPECT_EQ(LimitsBy("L", first), "17..20, A314 8, W418 9");
  EXPECT_EQ(LimitsBy("G", first), "20..23, A314 8, W418 9");
  EXPECT_EQ(LimitsBy("L", kRanged), "-3..0, A314 8");
}

TEST(RangedRows, HaveNoLimitWhereNoDoubleHoldsIt) {
  const std::string rhs = "RHS\n    R  LIM  1e308\n";
  const std::string range = "RANGES\n    G  LIM  1e308\n";
  EXPECT_EQ(LimitsBy("E", rhs + range), "1E+308..10000000000, A318 10, W504 0");
  EXPECT_EQ(LimitsBy("G", rhs + range), "1E+308..10000000000, A318 10");
  EXPECT_EQ(LimitsBy("G", range + rhs), "1E+308..10000000000, A314 8, W418 9, A318 10");
  const std::string low = "RHS\n    R  LIM  -1e308\n";
  EXPECT_EQ(LimitsBy("L", low + range), "-10000000000..-1E+308, A318 10");
  EXPECT_EQ(LimitsBy("E", low + "RANGES\n    G  LIM  -1e308\n"),
            "-10000000000..-1E+308, A310 10, A318 10, W504 0");
  EXPECT_EQ(LimitsBy("E", low + range), "-1E+308..0, W504 0");
}

TEST(RangedRows, TakeTheLastRange) {
  const std::string rhs = kRangedRhs;
  EXPECT_EQ(LimitsBy("L", rhs + "RANGES\n    G  LIM  3\n    G  LIM  5\n"), "15..20, W415 11");
  EXPECT_EQ(LimitsBy("E", rhs + "RANGES\n    G  LIM  3\n    G  LIM  -5\n"),
            "15..20, A310 11, W415 11");
  EXPECT_EQ(LimitsBy("E", rhs + "RANGES\n    G  LIM  -3\n    G  LIM  5\n"),
            "20..25, A310 10, W415 11");
  EXPECT_EQ(LimitsBy("E", rhs + "RANGES\n    G  LIM  3\n    G  LIM  0\n"), "20..20, W415 11");
}

}  // namespace
}  // namespace quarvel::mps
