#include "mps/given_values.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

constexpr char kGivenRows[] = "ROWS\n N  COST\n L  LIM\n G  DEM\nCOLUMNS\n";
constexpr char kGivenColumns[] = "    X  COST  1  LIM  1\n    Y  DEM  1\n";

// Of sections from line 8 on. Behind each problem the lines that belong to it: "W415 10:8+3 'LIM' <9".
std::string GivenProblems(const std::string& sections, const ReadOptions& options = {}) {
  const WideReading reading(std::string(kGivenRows) + kGivenColumns + sections + "ENDATA\n",
                            options);
  std::string told;
  for (const FileProblem& problem : reading.read.problems.kept()) {
    if (!told.empty()) told += "; ";
    told += std::string(TraitsOf(problem.code).id) + " " + std::to_string(problem.line) + " " +
            problem.read;
    for (const std::int64_t line : problem.lines) told += " <" + std::to_string(line);
  }
  return told;
}

TEST(GivenValues, TellRightHandSidesGivenAgain) {
  EXPECT_EQ(GivenProblems("RHS\n    R  LIM  4  DEM  1\n    R  LIM  3\n    R  DEM  2  LIM  3\n"),
            "W415 10 LIM <9; W415 11 DEM <9; W415 11 LIM <10");
  EXPECT_EQ(GivenProblems("RHS\n    R  LIM  4  LIM  4\n"), "W415 9 LIM <9");
  EXPECT_EQ(GivenProblems("RHS\n    R  COST  5\n    R  COST  -7\n"),
            "W415 10 COST <9; A309 10 COST");
}

TEST(GivenValues, TellOnlyThoseOfTheSetThatCounts) {
  EXPECT_EQ(GivenProblems("RHS\n    R  LIM  4\n    S  LIM  3\n    S  LIM  2\n"), "W402 10 S");
}

TEST(GivenValues, TellRangesGivenAgain) {
  EXPECT_EQ(GivenProblems("RHS\nRANGES\n    G  LIM  4\n    G  DEM  3  LIM  2\n"),
            "W415 11 LIM <10");
}

TEST(GivenValues, TellBoundsGivenAgainEachByItself) {
  EXPECT_EQ(GivenProblems("BOUNDS\n LO B X 1\n UP B X 9\n MI B Y\n UP B Y 5\n"), "");
  EXPECT_EQ(GivenProblems("BOUNDS\n UP B X 9\n UP B X 4\n UP B X 9\n"),
            "W415 10 X <9; W415 11 X <10");
  EXPECT_EQ(GivenProblems("BOUNDS\n LO B X 1\n UP B X 9\n FX B X 4\n"), "W415 11 X <9 <10");
  EXPECT_EQ(GivenProblems("BOUNDS\n FR B X\n UP B X 4\n"), "W415 10 X <9");
  EXPECT_EQ(GivenProblems("BOUNDS\n UP B X 4\n PL B X\n"), "W415 10 X <9");
}

TEST(GivenValues, TellBoundsOfTheWideCodes) {
  EXPECT_EQ(GivenProblems("BOUNDS\n LI B X 1\n UI B X 9\n"), "A306 9 LI; A306 10 UI");
  EXPECT_EQ(GivenProblems("BOUNDS\n UP B X 4\n BV B X\n"), "A306 10 BV; W415 10 X <9");
  EXPECT_EQ(GivenProblems("BOUNDS\n UP B X inf\n SC B X 4\n"),
            "A313 9 inf; W406 10 SC; W415 10 X <9");
  EXPECT_EQ(GivenProblems("BOUNDS\n UP B X 4\n SC B X\n"), "W406 10 SC");
}

TEST(GivenValues, TellNumbersTooSmallForADouble) {
  EXPECT_EQ(GivenProblems("    Y  LIM  1e-400  COST  2\n"), "W416 8 1e-400");
  EXPECT_EQ(GivenProblems("    Y  LIM  1e-320\n"), "");
  EXPECT_EQ(GivenProblems("RHS\n    R  LIM  -1D-400  COST  1e-400\n"),
            "W416 9 -1D-400; W416 9 1e-400; A309 9 COST");
  EXPECT_EQ(GivenProblems("RHS\nRANGES\n    G  LIM  1e-400\n"), "W416 10 1e-400");
  EXPECT_EQ(GivenProblems("BOUNDS\n LO B X 1e-400\n UI B Y 1e-400\n FR B Y 1e-400\n"),
            "W416 9 1e-400; W416 10 1e-400; A306 10 UI; W415 11 Y <10");
}

TEST(GivenValues, TellCoefficientsOfZero) {
  EXPECT_EQ(GivenProblems("    Y  LIM  0e-400  COST  -0.00\n    Y  LIM  0\n"),
            "W423 8 0e-400; W423 8 -0.00; W423 9 0");
  EXPECT_EQ(GivenProblems("    Y  NONE  0\nRHS\n    R  LIM  0\nBOUNDS\n LO B X 0\n"),
            "E110 8 NONE");
  const WideReading reading("ROWS\n L LIM\nCOLUMNS\n X LIM 1\n Y LIM 0\nENDATA\n");
  ASSERT_EQ(reading.read.problems.kept().size(), 2U);
  EXPECT_EQ(SentenceOf(reading.read.problems.kept()[0]),
            "a coefficient of 0: LIM; no element of column Y");
  EXPECT_EQ(reading.read.problems.kept()[1].item, "Y");
}

TEST(GivenValues, AreHeardWithTheirLinesAndNumbers) {
  std::string heard;
  ReadOptions options;
  options.on_value = [&heard](const SourceLine& line, const GivenValue& given) {
    heard += std::to_string(line.number()) + ':' + std::to_string(static_cast<int>(given.kind)) +
             '#' + std::to_string(given.number) + '=' +
             std::to_string(static_cast<int>(given.value)) + (given.bounds.lower ? "l" : "") +
             (given.bounds.upper ? "u " : " ");
    if (given.sense == ObjectiveSense::kMaximize) heard += "max ";
  };
  GivenProblems(
      "OBJSENSE MAX\nRHS\n R LIM 0\n R COST 3\n S LIM 5\nRANGES\n G DEM 4 COST 1\n"
      "BOUNDS\n UP B Y 4\n BV B X\n LO B Z 1\n",
      options);
  EXPECT_EQ(heard, "8:0#0=0 max 10:1#2=0 11:1#1=3 14:2#3=4 16:3#2=0u 17:3#1=0lu ");
}

TEST(GivenValues, AreNotWatchedInTheComponentsDialect) {
  EXPECT_EQ(GivenProblems("RHS\n    R  LIM  4\n    R  LIM  1e-400\nBOUNDS\n UP B X 4\n UP B X 3\n",
                          {.dialect = FileDialect::kComponent}),
            "");
}

}  // namespace
}  // namespace quarvel::mps
