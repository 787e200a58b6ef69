#include "mps/wide_dialect.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

constexpr char kWideRows[] = "ROWS\n N  COST\n L  LIM\n G  DEM\n E  BAL\nCOLUMNS\n";
constexpr char kWideColumns[] =
    "    X  COST  1  LIM  2\n    X  DEM  3  BAL  4\n    Y  COST  5  LIM  6\n";

std::string WideFile(std::string_view rest, std::string_view columns = kWideColumns) {
  return std::string(kWideRows).append(columns).append(rest).append("ENDATA\n");
}

struct WideCase {
  const char* rest;  // behind three lines of COLUMNS, from line 10 on
  const char* problems;
};

class WideLines : public ::testing::TestWithParam<WideCase> {};

TEST_P(WideLines, AreToldWithTheirPlace) {
  EXPECT_EQ(WideReading(WideFile(GetParam().rest)).Problems(), GetParam().problems);
}

INSTANTIATE_TEST_SUITE_P(
    WideDialect, WideLines,
    ::testing::Values(
        WideCase{"RHS\n    R  LIM  4\nBOUNDS\n UP B  X  9\n", ""},
        WideCase{"* between\nRHS\n", "A302 10"}, WideCase{"    * with blanks before\n", "A302 10"},
        WideCase{"\n    \nRHS\n", ""}, WideCase{"\tY\tDEM\t7\n", "A303 10"},
        WideCase{"    Y  DEM  7 $ more  words\n", "A304 10:15+1 '$'"},
        WideCase{"    Y  DEM  7 $more\n", "A304 10:15+5 '$more'"},
        WideCase{"    Y  DEM  7  $\n", "A304 10:16+1 '$'"},
        WideCase{"RHS\n    LIM  4  DEM  2\n    LIM  5\n", "A305 11; A305 12; W415 12:5+3 'LIM'"},
        WideCase{"BOUNDS\n UP X 4\n FR Y\n", "A305 11; A305 12"},
        WideCase{"BOUNDS\n BV B X\n LI B Y 2\n", "A306 11:2+2 'BV'; A306 12:2+2 'LI'"},
        WideCase{"BOUNDS\n UP B X Inf\n LO B Y -1\n LO B X -infinity\n",
                 "A313 11:9+3 'Inf'; A313 13:9+9 '-infinity'"},
        WideCase{"BOUNDS\n SC B X 8\n", "W406 11:2+2 'SC'"},
        WideCase{"BOUNDS\n UP B X -2\n", "W404 11:9+2 '-2'; E204 0"},
        WideCase{"BOUNDS\n BV B Z\n", "E114 11:7+1 'Z'"}, WideCase{"BOUNDS\n LI B X\n", "E113 11"},
        WideCase{"BOUNDS\n UI B X 1,5\n", "E109 11:9+3 '1,5'"},
        WideCase{"BOUNDS\n UP B X -inf\n", "E109 11:9+4 '-inf'"},
        WideCase{"OBJSENSE\n    Max\nRHS\n", "A307 11:5+3 'Max'"},
        WideCase{"objsense Minimize\nRHS\n", "A317 10:1+8 'objsense'; A307 10:10+8 'Minimize'"},
        WideCase{"OBJSENSEMAX\n", "A307 10:1+11 'OBJSENSEMAX'"},
        WideCase{"OBJSENSE\n    up\n", "W412 11:5+2 'up'"},
        WideCase{"OBJNAME\n    COST\n", "A308 11:5+4 'COST'"},
        WideCase{"OBJNAME LIM\n", "E123 10:9+3 'LIM'"},
        WideCase{"RHS\n    R  COST  -7.5\n", "A309 11:8+4 'COST'"},
        WideCase{"RHS\nRANGES\n    R  BAL  -3\n", "A310 12:8+3 'BAL'"},
        WideCase{"RANGES\n    R  COST  3\n", "W408 11:8+4 'COST'"},
        WideCase{"RANGES\n    R  LIM  3\nRHS\n    R  LIM  9\n", "A314 11; W418 12:1+3 'RHS'"},
        WideCase{"RHS here\n    R  LIM  9\n", "A311 10:5+4 'here'"},
        WideCase{"RHS\n    ONE  LIM  4\n    TWO  LIM  5\n    TWO  DEM  5\n", "W402 12:5+3 'TWO'"},
        WideCase{"BOUNDS\n UP ONE X 4\n UP TWO X 5\n", "W402 12:5+3 'TWO'"},
        WideCase{"SOS\n S1 s\n    X 1\n    Y 2\nRHS\n", "E120 10:1+3 'SOS'"},
        WideCase{"QUADOBJ\n    X X 1\n", "E120 10:1+7 'QUADOBJ'"},
        WideCase{"    M  'MARKER'  'SOSORG'\n", "E120 10:18+8 ''SOSORG''"},
        WideCase{"    M  'MARKER'  'OTHER'\n", "W410 10:18+7 ''OTHER''"},
        WideCase{"BASIS\n    X 1\nRHS\n    R LIM 1\n", "E121 10:1+5 'BASIS'"},
        WideCase{"Y DEM 7\nX1 DEM 7\n", ""}, WideCase{"RHS\nRHS LIM 7\n", ""},
        WideCase{"    Y  DEM  7  BALL  3\n", "E110 10:16+4 'BALL'"},
        WideCase{"    Y  DEM\n", "E105 10"},
        WideCase{"    M  'MARKER'  'INTORG'  $ from here\n",
                 "A304 10:28+1 '$'; W421 10:18+8 ''INTORG''"},
        WideCase{"    M  'MARKER'  'OTHER'  x\n", "W410 10:18+7 ''OTHER''"},
        WideCase{"\tY\tDEM\tx\n", "A303 10; E109 10:8+1 'x'"},
        WideCase{"OBJSENSE\nMax\n", "A307 11:1+3 'Max'"},
        WideCase{"OBJNAME\nCOST\n", "A308 11:1+4 'COST'"},
        WideCase{"OBJSENSE MAX now\n", "A311 10:14+3 'now'; A307 10:10+3 'MAX'"},
        WideCase{"OBJSENSEMIN now\n", "A311 10:13+3 'now'; A307 10:1+11 'OBJSENSEMIN'"},
        WideCase{"OBJNAME\n    COST or\n", "A311 11:10+2 'or'; A308 11:5+4 'COST'"},
        WideCase{"BOUNDS\n UP B X 1e10\n UP B Y 9e9\n LO B Y -1.E+10\n LO B Y 1e10\n UP B Y 2e10\n",
                 "W413 11:9+4 '1e10'; W413 13:9+7 '-1.E+10'; W415 14:7+1 'Y'; W415 15:7+1 'Y'"},
        WideCase{
            "BOUNDS\n FX B X 10000000000\n UI B Y 1e10\n PL B Y 1e10\n",
            "W413 11:9+11 '10000000000'; W413 12:9+4 '1e10'; A306 12:2+2 'UI'; W415 13:7+1 'Y'"},
        WideCase{"    Y  DEM  7\n    y  LIM  7\n    y  BAL  7\n    Y  LIM  8\n",
                 "W414 11:5+1 'y'; W414 13:5+1 'Y'"},
        WideCase{"BOUNDS\n UP B X 5 6\n LO X\n", "E105 11; E105 12"},
        WideCase{"OBJSENSE\nRHS\n", "W412 10:1+8 'OBJSENSE'"},
        WideCase{"OBJNAME\n", "W422 10:1+7 'OBJNAME'"},
        WideCase{"OBJSENSE\n  * max\n  max\n", "A302 11; A307 12:3+3 'max'"},
        WideCase{"OBJSENSE MIN\nOBJSENSE\n MAX MIN\n",
                 "W417 11:1+8 'OBJSENSE'; A311 12:6+3 'MIN'; A307 12:2+3 'MAX'"},
        WideCase{"OBJNAME LIM\nOBJNAME COST\n",
                 "W417 11:1+7 'OBJNAME'; A308 10:9+3 'LIM'; A308 11:9+4 'COST'"},
        WideCase{"Rhs\n", "A317 10:1+3 'Rhs'"}, WideCase{"BOUNDS\n FR B X 1 2\n", "E105 11"},
        WideCase{"BOUNDS\n SC B X 1 2\n", "E105 11"},
        WideCase{"RHS\n    R  LIM  1\n    R  $D  2\n", "E110 12:8+2 '$D'"}));

TEST(WideDialect, PassesOverTextBeforeRowsAndBehindEndata) {
  const WideReading reading("a title\nNAME  small (of two)\n*text\n" + WideFile("") +
                            "\n  \nROWS\n N  NEXT\n");
  EXPECT_EQ(reading.Problems(), "W409 1; A311 2:13+3 '(of'; W403 16");
  EXPECT_EQ(reading.store.settings().ModelName, "SMALL");
  EXPECT_EQ(reading.store.settings().ModelDescription, "text");
  EXPECT_EQ(reading.read.facts.lines, 13);
}

TEST(WideDialect, TakesCommentsWithBlanksBeforeThemForCommentsBeforeRows) {
  const WideReading reading("* one\n   * two\nNAME  m\n" + WideFile(""));
  EXPECT_EQ(reading.Problems(), "A302 2");
  EXPECT_EQ(reading.store.settings().ModelDescription, "one");
}

TEST(WideDialect, TellsTheSenseThatCounts) {
  const WideReading reading(WideFile("OBJSENSE MAX\nOBJSENSEMIN\n"));
  EXPECT_EQ(reading.Problems(), "W417 11:1+11 'OBJSENSEMIN'; A307 11:1+11 'OBJSENSEMIN'");
  EXPECT_EQ(reading.read.facts.sense, ObjectiveSense::kMinimize);
  EXPECT_EQ(reading.read.problems.kept().back().made, "the objective is minimized");
}

TEST(WideDialect, CountsTheLinesOfASectionThatItPassesOver) {
  const WideReading reading(WideFile("INDICATORS\n IF a X 1\n* c\n IF b Y 1\nOTHER\n    1\nRHS\n"));
  ASSERT_EQ(reading.read.problems.kept().size(), 3U);
  EXPECT_EQ(reading.read.problems.kept()[1].item, "INDICATORS");
  EXPECT_EQ(reading.read.problems.kept()[1].made, "2 lines passed over");
  EXPECT_EQ(reading.read.problems.kept()[2].made, "1 line passed over");
}

TEST(WideDialect, TakesSpecialRowsForRows) {
  WideReading reading(
      "ROWS\n N  COST\nLAZYCONS\n L  LIM\nCOLUMNS\n    X  COST  1  LIM  2\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "A315 3:1+8 'LAZYCONS'");
  EXPECT_EQ(reading.Row("LIM").Type, model::RowType::kLess);
}

TEST(WideDialect, ReadsByFixedColumnsFromTheFirstLineThatMakesSenseThatWayOnly) {
  WideReading reading(
      "ROWS\n N  COST\n L  LIM 1\n G  DEM\nCOLUMNS\n"
      "    X 1       COST              1.   LIM 1             2.\n"
      "    X 1       DEM               3.\n"
      "    M1  'MARKER'  'INTORG'\n"
      "    Y         COST              1.\n"
      "    M2  'MARKER'  'INTEND'\n"
      "BOUNDS\n"
      "    * a comment\n"
      " UP BND       X 1               9.\n"
      " UP BND   X 1  9\n"
      "ENDATA\n");
  // The second pair of line 6 begins at column 38, between the fields.
  EXPECT_EQ(reading.Problems(), "A301 3; E105 6; A301 7; A302 12; E122 14:13+1 '1'; W501 0");
  EXPECT_EQ(reading.Column("X 1").UpperBound, 9);
  EXPECT_EQ(reading.Column("Y").Type, model::ColumnType::kInteger);
}

TEST(WideDialect, KeepsABlankInANameOfRowsOutOfTheColumns) {
  WideReading reading("ROWS\n N  COST\n L  A B\nCOLUMNS\n    X  COST  1\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "A301 3; W501 0");
  EXPECT_EQ(reading.Row("A B").Type, model::RowType::kLess);
}

TEST(WideDialect, ReadsNamesWithBlanksAndNamelessSetsByFixedColumns) {
  WideReading reading(
      "ROWS\n N  COST\n L  LIM 1\n G  2 4\nCOLUMNS\n"
      "    X 1       COST              1.     LIM 1             2.\n"
      "    X 1       2 4               3.\n"
      "RHS\n"
      "              LIM 1             4.     2 4               1.   note\n"
      "RANGES\n"
      "    R 1       LIM 1             3.\n"
      "BOUNDS\n"
      " UP           X 1               9.\n"
      "ENDATA\n");
  EXPECT_EQ(reading.Problems(), "A301 3; A301 6; A305 9; W411 9:63+4 'note'; A305 13");
  EXPECT_EQ(reading.Row("LIM 1").UpperBound, 4);
  EXPECT_EQ(reading.Row("LIM 1").LowerBound, 1);
  EXPECT_EQ(reading.Row("2 4").LowerBound, 1);
  EXPECT_EQ(reading.Column("X 1").UpperBound, 9);
  EXPECT_EQ(reading.read.facts.rhs_set, "");
  EXPECT_EQ(reading.read.facts.ranges_set, "R 1");
}

TEST(WideDialect, StaysWithWordsOnceALineMakesSenseByThemOnly) {
  const WideReading reading("ROWS\n N COST\n L  LIM 1\nCOLUMNS\n X COST 1\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "E102 3");
}

// By fixed columns "$D" would begin a comment.
TEST(WideDialect, LetsANameThatBeginsLikeACommentDecide) {
  const WideReading reading(
      "ROWS\n N  COST\n L  $D\nCOLUMNS\n    X         $D                1.\n"
      "    X 1       COST              1.\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "E105 6; W501 0");
}

TEST(WideDialect, RefusesTextInAFieldThatTheSectionHasNot) {
  const WideReading reading(
      "ROWS\n N  COST\nCOLUMNS\n    X 1       COST              1.\n"
      " Q  X 1       COST              1.\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "A301 4; E122 5:2+1 'Q'");
}

TEST(WideDialect, RefusesAWordThatTheEndOfTheLastFieldCuts) {
  const std::string begin =
      "ROWS\n N  COST\n L  LIM 1\nCOLUMNS\n    X         COST              1.     LIM 1             2.\n"
      "RHS\n    RHS       COST              1.     LIM 1     ";
  WideReading cut(begin + "          125\nENDATA\n");
  EXPECT_EQ(cut.Problems(), "A301 3; A301 5; E122 7:60+3 '125'");
  EXPECT_EQ(cut.Row("LIM 1").UpperBound, 0);
  WideReading whole(begin + "        125 6\nENDATA\n");
  EXPECT_EQ(whole.Problems(), "A301 3; A301 5; W411 7:62+1 '6'; A309 7:15+4 'COST'");
  EXPECT_EQ(whole.Row("LIM 1").UpperBound, 125);
}

TEST(WideDialect, FindsFreeAtTheEndOfAnyNameLine) {
  const WideReading reading("NAME  one of many words in it FREE  \nROWS\n N  A B\nENDATA\n");
  EXPECT_EQ(reading.Problems().substr(0, 6), "E102 3");
}

TEST(WideDialect, TakesColumnsAsItIsTold) {
  const std::string text = "ROWS\n N  COST\n L  LIM 1\nCOLUMNS\n    X COST 1\nENDATA\n";
  EXPECT_EQ(WideReading(text, {.columns = FileColumns::kFree}).Problems(), "E102 3");
  const WideReading fixed(text, {.columns = FileColumns::kFixed});
  EXPECT_EQ(fixed.Problems(), "E105 5; E202 0; E203 0; W501 0; W501 0");
  EXPECT_EQ(WideReading("NAME  m  FREE\n" + text).Problems(), "E102 4");
}

TEST(WideDialect, GoesOnWithAColumnAcrossLinesOfAllKinds) {
  WideReading reading(
      "ROWS\n N COST\n L LIM\n G DEM\nCOLUMNS\n X COST 1\n\tX\tLIM\t2\n* c\n X DEM 3 $ c\n"
      " X LIM 4\nENDATA\n");
  EXPECT_EQ(reading.store.NumberOfColumns(), 1);
  EXPECT_EQ(reading.store.NumberOfElements(), 4);
}

TEST(WideDialect, ReadsLongLinesAndOtherLetters) {
  const std::string name(40, 'n');
  WideReading reading("ROWS\n N  " + name + "\n L  \xC3\xA4\nCOLUMNS\n    " + name + "x  " + name +
                      "  12  \xC3\xA4  3 $ \xC3\xA4\nRHS\n    \xC3\xA4  4\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "A304 5:99+1 '$'; A305 7");
  EXPECT_EQ(reading.Row("\xC3\x84").UpperBound, 4);
}

TEST(WideDialect, EndsWhereItsProblemIsRefused) {
  const WideReading reading(WideFile("* one\n* two\n"),
                            {.on_problem = [](const FileProblem&) { return false; }});
  EXPECT_EQ(reading.read.outcome, ReadOutcome::kRefused);
  EXPECT_EQ(reading.Problems(), "A302 10");
}

TEST(WideDialect, LeavesTheComponentsDialectAsItIs) {
  const WideReading reading(WideFile("RHS\n    R  COST  5\n"),
                            {.dialect = FileDialect::kComponent});
  EXPECT_EQ(reading.Problems(), "");
  EXPECT_EQ(reading.read.facts.objective_constant, 0);
  EXPECT_EQ(reading.read.facts.objective, "COST");
}

}  // namespace
}  // namespace quarvel::mps
