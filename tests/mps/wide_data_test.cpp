#include "mps/wide_data.h"

#include <string>

#include <gtest/gtest.h>

#include "model/bounds.h"
#include "tests/mps/wide_reading.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

constexpr char kWideDataStart[] =
    "ROWS\n N  COST\n N  OTHER\n L  LIM\n G  DEM\n E  BAL\nCOLUMNS\n    X  COST  1  LIM  2\n"
    "    X  DEM  3  BAL  4\n    Y  COST  5  OTHER  6\n";

std::string WideDataFile(std::string_view rest) {
  return std::string(kWideDataStart).append(rest) + "ENDATA\n";
}

TEST(WideData, TakesTheFirstNRowForTheObjectiveAndTellsTheOthers) {
  const WideReading reading(WideDataFile(""));
  EXPECT_EQ(reading.Problems(), "W405 3:5+5 'OTHER'");
  EXPECT_EQ(reading.read.facts.objective, "COST");
  EXPECT_EQ(reading.store.NumberOfRows(), 5);
}

TEST(WideData, TakesTheObjectiveThatIsAskedForOrNamed) {
  const WideReading named("OBJNAME\n  other\n" + WideDataFile("RHS\n    R  COST  1  OTHER  2\n"));
  EXPECT_EQ(named.Problems(),
            "A308 2:3+5 'other'; W405 4:5+4 'COST'; W407 14:8+4 'COST'; A309 14:17+5 'OTHER'");
  EXPECT_EQ(named.read.facts.objective, "OTHER");
  EXPECT_EQ(named.read.facts.objective_constant, -2);
  const WideReading asked("OBJNAME\n  other\n" + WideDataFile(""), {.objective = "cost"});
  EXPECT_EQ(asked.read.facts.objective, "COST");
  const WideReading none(WideDataFile(""), {.objective = "LIM"});
  EXPECT_EQ(none.read.problems.CountOf(FileProblemCode::kNoSuchObjective), 1);
  EXPECT_EQ(none.read.facts.objective, "COST");
}

TEST(WideData, AddsMinusTheRightHandSideToTheObjective) {
  WideReading reading(WideDataFile("RHS\n    R  COST  -7.5  LIM  4\n"));
  EXPECT_EQ(reading.read.facts.objective_constant, 7.5);
  EXPECT_EQ(reading.read.problems.kept()[1].made, "7.5 is added to the objective");
  EXPECT_EQ(reading.Row("LIM").UpperBound, 4);
  EXPECT_EQ(reading.Row("COST").LowerBound, -model::BoundLimit);
}

TEST(WideData, TellsEachBadPairBesideARightHandSideOfTheObjective) {
  const WideReading reading(WideDataFile("RHS\n    R  COST  5  NONE  4\n    R  LIM  x  COST  6\n"));
  EXPECT_EQ(reading.Problems(),
            "E110 12:17+4 'NONE'; E109 13:13+1 'x'; W415 13:16+4 'COST'; W405 3:5+5 'OTHER'; "
            "A309 13:16+4 'COST'");
  EXPECT_EQ(reading.read.facts.objective_constant, -6);
}

TEST(WideData, TakesTheRangeOfAnERowByItsSign) {
  WideReading below(WideDataFile("RHS\n    R  BAL  10\nRANGES\n    R  BAL  -3\n"));
  EXPECT_EQ(below.Row("BAL").LowerBound, 7);
  EXPECT_EQ(below.Row("BAL").UpperBound, 10);
  WideReading above(WideDataFile("RHS\n    R  BAL  10\nRANGES\n    R  BAL  3\n"));
  EXPECT_EQ(above.Row("BAL").LowerBound, 10);
  EXPECT_EQ(above.Row("BAL").UpperBound, 13);
}

TEST(WideData, AppliesRangesBehindTheRightHandSidesWhereverTheyStand) {
  WideReading reading(WideDataFile("RANGES\n    R  LIM  -3  DEM  2\nRHS\n    R  LIM  9  DEM  1\n"));
  EXPECT_EQ(reading.Row("LIM").LowerBound, 6);
  EXPECT_EQ(reading.Row("LIM").UpperBound, 9);
  EXPECT_EQ(reading.Row("DEM").LowerBound, 1);
  EXPECT_EQ(reading.Row("DEM").UpperBound, 3);
}

TEST(WideData, LetsTheFirstSetCountAlone) {
  WideReading reading(
      WideDataFile("RHS\n    ONE  LIM  4\n    TWO  LIM  5\n    LIM  6\n    ONE  DEM  2\nBOUNDS\n"
                   " UP B1 X 4\n UP B2 X 5\n"));
  EXPECT_EQ(reading.Row("LIM").UpperBound, 6);
  EXPECT_EQ(reading.Row("DEM").LowerBound, 2);
  EXPECT_EQ(reading.Column("X").UpperBound, 4);
  EXPECT_EQ(reading.read.facts.rhs_set, "ONE");
  EXPECT_EQ(reading.read.facts.bounds_set, "B1");
  EXPECT_EQ(reading.read.problems.CountOf(FileProblemCode::kSecondSet), 2);
}

TEST(WideData, ReadsBoundsOfIntegerColumns) {
  WideReading reading(WideDataFile("BOUNDS\n BV B X 7\n LI B Y 2\n UI B Y 5\n"));
  EXPECT_EQ(reading.Column("X").Type, model::ColumnType::kInteger);
  EXPECT_EQ(reading.Column("X").LowerBound, 0);
  EXPECT_EQ(reading.Column("X").UpperBound, 1);
  EXPECT_EQ(reading.Column("Y").Type, model::ColumnType::kInteger);
  EXPECT_EQ(reading.Column("Y").LowerBound, 2);
  EXPECT_EQ(reading.Column("Y").UpperBound, 5);
}

TEST(WideData, ReadsSemiContinuousColumnsAsFarAsTheyGo) {
  WideReading reading(WideDataFile("BOUNDS\n LO B X 2\n SC B X 8\n SI B Y inf\n"));
  EXPECT_EQ(reading.Column("X").Type, model::ColumnType::kContinuous);
  EXPECT_EQ(reading.Column("X").LowerBound, 2);
  EXPECT_EQ(reading.Column("X").UpperBound, 8);
  EXPECT_EQ(reading.Column("Y").Type, model::ColumnType::kInteger);
  EXPECT_EQ(reading.Column("Y").UpperBound, model::BoundLimit);
}

std::string SemiContinuous(const char* value) {
  const WideReading reading(WideDataFile(std::string("BOUNDS\n SC B X ") + value + "\n"));
  std::string told;
  for (const FileProblem& problem : reading.read.problems.kept()) {
    const std::string id(TraitsOf(problem.code).id);
    if (id != "W405") told += id + " " + problem.made.substr(0, problem.made.find(':')) + "; ";
  }
  return told + text::GeneralText(reading.store.data().Columns[1].UpperBound);
}

TEST(WideData, TellsWhatItReadsOfASemiContinuousColumn) {
  EXPECT_EQ(SemiContinuous("8"), "W406 an upper bound alone; 8");
  EXPECT_EQ(SemiContinuous("0"), "W406 no upper bound; 10000000000");
  EXPECT_EQ(SemiContinuous("inf"), "A313 no bound; W406 no upper bound; 10000000000");
  EXPECT_EQ(SemiContinuous(""), "W406 a column like any other; 10000000000");
  EXPECT_EQ(SemiContinuous("-3"),
            "W404 the lower bound stays 0; W406 an upper bound alone; E204 ; -3");
}

TEST(WideData, FreesTheLowerBoundUnderANegativeSemiContinuousOne) {
  WideReading reading(WideDataFile("BOUNDS\n SC B X -3\n"), {.negative_upper_frees_lower = true});
  EXPECT_EQ(reading.Column("X").LowerBound, -model::BoundLimit);
  EXPECT_EQ(reading.Column("X").UpperBound, -3);
}

TEST(WideData, ReadsFreeBoundsWithValuesAndWithoutSets) {
  WideReading reading(WideDataFile("BOUNDS\n MI B X 0\n UP B X 5\n FR Y 3\n"));
  EXPECT_EQ(reading.Column("X").LowerBound, -model::BoundLimit);
  EXPECT_EQ(reading.Column("X").UpperBound, 5);
  EXPECT_EQ(reading.Column("Y").LowerBound, -model::BoundLimit);
}

TEST(WideData, AnInfiniteValueTakesABoundBack) {
  const WideReading reading(
      WideDataFile("BOUNDS\n UP B X 5\n LO B X 2\n UP B X Inf\n LO B X -Inf\n UP B Y 7\n"));
  const auto& columns = reading.store.data().Columns;
  EXPECT_EQ(columns[1].UpperBound, model::BoundLimit);
  EXPECT_EQ(columns[1].LowerBound, -model::BoundLimit);
  EXPECT_EQ(columns[2].UpperBound, 7);
}

TEST(WideData, FreesTheLowerBoundUnderANegativeUpperWhenToldSo) {
  const std::string text = WideDataFile("BOUNDS\n UP B X -2\n LO B Y -9\n UP B Y -3\n");
  WideReading keeps(text);
  EXPECT_EQ(keeps.Column("X").LowerBound, 0);
  EXPECT_EQ(keeps.read.problems.CountOf(FileProblemCode::kNegativeUpper), 1);
  WideReading frees(text, {.negative_upper_frees_lower = true});
  EXPECT_EQ(frees.Column("X").LowerBound, -model::BoundLimit);
  EXPECT_EQ(frees.Column("X").UpperBound, -2);
  EXPECT_EQ(frees.Column("Y").LowerBound, -9);
  EXPECT_EQ(frees.Problems(), "A312 12:9+2 '-2'; W405 3:5+5 'OTHER'");
}

}  // namespace
}  // namespace quarvel::mps
