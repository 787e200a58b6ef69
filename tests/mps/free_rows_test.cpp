#include "mps/free_rows.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

std::string FreeRowsFile(const std::string& start, const std::string& end) {
  return start +
         "ROWS\n N  COST\n N  OTHER\n L  LIM\nCOLUMNS\n    X  COST  1  OTHER  1\n    X  LIM  1\n" +
         end + "ENDATA\n";
}

std::string ObjectiveOf(const WideReading& reading) {
  return reading.read.facts.objective + ": " + reading.Problems();
}

TEST(FreeRows, AreToldByTheObjectiveThatIsNamedBehindThem) {
  EXPECT_EQ(ObjectiveOf(WideReading(FreeRowsFile("", ""))), "COST: W405 3:5+5 'OTHER'");
  EXPECT_EQ(ObjectiveOf(WideReading(FreeRowsFile("", "OBJNAME other\n"))),
            "OTHER: A308 8:9+5 'other'; W405 2:5+4 'COST'");
  EXPECT_EQ(
      ObjectiveOf(
          WideReading(FreeRowsFile("", "RHS\n    R  COST  1\n    R  OTHER  2\nOBJNAME other\n"))),
      "OTHER: A308 11:9+5 'other'; W405 2:5+4 'COST'; W407 9:8+4 'COST'; A309 10:8+5 'OTHER'");
}

TEST(FreeRows, AreToldOnceWhereTheNamedRowIsNoneOfThem) {
  const WideReading named(FreeRowsFile("OBJNAME zzz\n", ""));
  EXPECT_EQ(ObjectiveOf(named), "COST: E123 1:9+3 'zzz'; W405 4:5+5 'OTHER'");
  EXPECT_EQ(named.read.problems.kept().front().made, "the first N row is the objective");
  EXPECT_EQ(ObjectiveOf(WideReading(FreeRowsFile("", ""), {.objective = "zzz"})),
            "COST: E123 0; W405 3:5+5 'OTHER'");
  const WideReading none("OBJNAME zzz\nROWS\n L  LIM\nCOLUMNS\n    X  LIM  1\nENDATA\n");
  EXPECT_EQ(ObjectiveOf(none), ": E123 1:9+3 'zzz'");
  EXPECT_EQ(none.read.problems.kept().front().made, "there is no objective");
}

TEST(FreeRows, AreAskedForBeforeTheFileNamesOne) {
  const WideReading reading(FreeRowsFile("OBJNAME zzz\n", ""), {.objective = "other"});
  EXPECT_EQ(ObjectiveOf(reading), "OTHER: A308 1:9+3 'zzz'; W405 3:5+4 'COST'");
  EXPECT_EQ(reading.read.problems.kept().front().made, "passed over: another is asked for");
}

TEST(FreeRows, GiveTheConstantOfTheLastRightHandSide) {
  const WideReading reading(FreeRowsFile("", "RHS\n    R  COST  5\n    R  COST  -7\n"));
  EXPECT_EQ(ObjectiveOf(reading),
            "COST: W415 10:8+4 'COST'; W405 3:5+5 'OTHER'; A309 10:8+4 'COST'");
  EXPECT_EQ(reading.read.facts.objective_constant, 7);
  EXPECT_EQ(reading.read.problems.kept().back().made, "7 is added to the objective");
}

// Beyond those whose lines are kept, the file is asked for them.
TEST(FreeRows, AreToldWithTheirPlaceHoweverMany) {
  std::string text = "ROWS\n N  COST\n";
  for (int i = 0; i < 1500; ++i) text += " N  r" + std::to_string(i) + "\n";
  const WideReading reading(text + "COLUMNS\n    X  COST  1\nENDATA\n", {.kept_of_each = 2000});
  EXPECT_EQ(reading.read.problems.CountOf(FileProblemCode::kFurtherFreeRow), 1500);
  const FileProblem& last = reading.read.problems.kept()[1499];
  EXPECT_EQ(last.line, 1502);
  EXPECT_EQ(last.column, 5);
  EXPECT_EQ(last.item, "R1499");
  EXPECT_EQ(last.read, "r1499");
  EXPECT_EQ(last.text, " N  r1499");
}

}  // namespace
}  // namespace quarvel::mps
