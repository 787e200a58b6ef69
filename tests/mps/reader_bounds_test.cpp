// Right-hand sides, ranges and bounds.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/mps/read_helpers.h"

namespace quarvel::mps {
namespace {

using Texts = std::vector<std::string>;

// A row of each type and two columns; each test says how the file goes on.
const std::string kRowOfEachType =
    "ROWS\n"
    " N  COST\n"
    " L  LIM\n"
    " G  LOW\n"
    " E  EQ\n"
    "COLUMNS\n"
    "    X COST 1 LIM 1\n"
    "    X LOW 1 EQ 1\n"
    "    Y LIM 2 EQ -1.5\n";

TEST(MpsReader, AppliesRightHandSidesByRowType) {
  ReadSession session;
  session.Read(kRowOfEachType + "RHS\n    S1 COST 9 LIM 4\n    S2 LOW 2 EQ 3\nENDATA\n");
  const LPModel& model = session.model;
  EXPECT_EQ(model.RowLowerBound(0), -1e10);
  EXPECT_EQ(model.RowUpperBound(0), 1e10);
  EXPECT_EQ(model.RowLowerBound(1), -1e10);
  EXPECT_EQ(model.RowUpperBound(1), 4);
  EXPECT_EQ(model.RowLowerBound(2), 2);
  EXPECT_EQ(model.RowUpperBound(2), 1e10);
  EXPECT_EQ(model.RowLowerBound(3), 3);
  EXPECT_EQ(model.RowUpperBound(3), 3);
}

struct RangeCase {
  const char* row;
  double rhs, range, lower, upper;
  const char* type;
};

TEST(MpsReader, AppliesRangesByRowTypeAndSign) {
  const RangeCase cases[] = {
      {"LOW", 5, 3, 5, 8, "R"},  {"LOW", 5, -3, 5, 8, "R"},        {"LIM", 5, 3, 2, 5, "R"},
      {"LIM", 5, -3, 2, 5, "R"}, {"EQ", 5, 3, 5, 8, "R"},          {"EQ", 5, 0, 5, 5, "E"},
      {"LOW", 5, 0, 5, 5, "E"},  {"COST", 5, 3, -1e10, 1e10, "N"}, {"EQ", 5, -3, 8, 5, "R"},
  };
  for (const RangeCase& c : cases) {
    ReadSession session;
    session.Read(kRowOfEachType + "RHS\n S " + std::string(c.row) + " " + std::to_string(c.rhs) +
                 "\nRANGES\n S " + c.row + " " + std::to_string(c.range) + "\nENDATA\n");
    const std::int32_t i = session.model.store().FindRow(c.row) - 1;
    EXPECT_EQ(session.model.RowLowerBound(i), c.lower) << c.row << c.range;
    EXPECT_EQ(session.model.RowUpperBound(i), c.upper) << c.row << c.range;
    EXPECT_EQ(session.model.RowType(i), c.type) << c.row << c.range;
  }
}

TEST(MpsReader, ReportsANegativeRangeOfAnEqualityAsReversed) {
  ReadSession session;
  session.Read(kRowOfEachType + "RHS\n S EQ 5\nRANGES\n S EQ -3\nENDATA\n");
  EXPECT_EQ(session.Problems(), Texts{Question("Quarvel.dll error: bounds reversed on row EQ")});
}

TEST(MpsReader, AppliesARangeToTheBoundsAsTheyAreAtItsLine) {
  ReadSession session;
  session.Read(kRowOfEachType + "RANGES\n S LOW 3\nRHS\n S LOW 5\nENDATA\n");
  EXPECT_EQ(session.model.RowLowerBound(2), 5);
  EXPECT_EQ(session.model.RowUpperBound(2), 3);
}

TEST(MpsReader, AppliesEveryBoundCode) {
  struct Case {
    const char* line;
    double lower, upper;
  };
  const Case cases[] = {
      {"LO B X 2", 2, 1e10},     {"UP B X 7.5", 0, 7.5},        {"FX B X 3", 3, 3},
      {"FR B X", -1e10, 1e10},   {"MI B X", -1e10, 1e10},       {"PL B X", 0, 1e10},
      {"FR B X 9", -1e10, 1e10}, {"mi b x 1 2 3", -1e10, 1e10}, {"UP B X 1d1", 0, 10},
  };
  for (const Case& c : cases) {
    ReadSession session;
    session.Read(kRowOfEachType + "BOUNDS\n " + std::string(c.line) + "\nENDATA\n");
    EXPECT_EQ(session.Problems(), Texts{}) << c.line;
    EXPECT_EQ(session.model.ColLowerBound(0), c.lower) << c.line;
    EXPECT_EQ(session.model.ColUpperBound(0), c.upper) << c.line;
  }
}

TEST(MpsReader, LeavesANegativeUpperBoundReversed) {
  ReadSession session;
  session.Read(kRowOfEachType + "BOUNDS\n UP B X -4\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            Texts{Question("Quarvel.dll error: bounds reversed on variable X")});
  EXPECT_EQ(session.model.ColLowerBound(0), 0);
  EXPECT_EQ(session.model.ColUpperBound(0), -4);
}

}  // namespace
}  // namespace quarvel::mps
