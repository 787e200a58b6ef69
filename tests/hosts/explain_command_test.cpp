#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr std::string_view kExplainedModel =
    "ROWS\n N COST\n L LIM\n E X\nCOLUMNS\n X COST 1 LIM 2\n X NONE 1 X 3\n M 'MARKER' 'INTORG'\n"
    " i LIM 5\nRHS\n RHS LIM 4\nRANGES\n RNG LIM 2.5\nBOUNDS\n UP BND X 4\n up bnd X 9\n LO BND X 0\n"
    "ENDATA\n";

TEST(Explain, TellsWhichLinesMadeAColumn) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"explain", folder.Write("a.mps", kExplainedModel), "i"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "column I (number 1)\n"
            "  type      I: line 9, under the marker of line 8\n"
            "  lower     0: default\n"
            "  upper     inf: default\n"
            "  elements  1\n"
            "            LIM 5: line 9\n"
            "8 | M 'MARKER' 'INTORG'\n"
            "9 | i LIM 5\n");
}

TEST(Explain, TellsWhichLinesMadeARow) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"explain", folder.Write("a.mps", kExplainedModel), "LIM"}).out,
            "row LIM (number 1)\n"
            "  type      R: made of its bounds; line 3 had said L\n"
            "  lower     1.5: line 13\n"
            "  upper     4: line 11\n"
            "  elements  2\n"
            "            X 2: line 6\n"
            "            I 5: line 9\n"
            " 3 | L LIM\n"
            " 6 | X COST 1 LIM 2\n"
            " 9 | i LIM 5\n"
            "11 | RHS LIM 4\n"
            "13 | RNG LIM 2.5\n");
}

TEST(Explain, TellsWhatWasOverriddenAndOfBothRecordsOfAName) {
  const HostFolder folder;
  EXPECT_EQ(
      RunQuarvel({"explain", folder.Write("a.mps", kExplainedModel), "x"}).out,
      "row X (number 2)\n"
      "  type      E: line 4\n"
      "  lower     0: default\n"
      "  upper     0: default\n"
      "  elements  1\n"
      "            X 3: line 7\n"
      "column X (number 0)\n"
      "  type      R: line 6\n"
      "  lower     0: line 17\n"
      "  upper     9: line 16; line 15 had said 4\n"
      "  elements  3\n"
      "            COST 1: line 6\n"
      "            LIM 2: line 6\n"
      "            X 3: line 7\n"
      "  problem   E110, line 7: no row of this name: NONE\n"
      "  problem   W415, line 16: a value that a line above has given: X; the last one counts\n"
      " 4 | E X\n"
      " 6 | X COST 1 LIM 2\n"
      " 7 | X NONE 1 X 3\n"
      "15 | UP BND X 4\n"
      "16 | up bnd X 9\n"
      "17 | LO BND X 0\n");
}

TEST(Explain, TellsOfTheObjective) {
  const HostFolder folder;
  EXPECT_NE(RunQuarvel({"explain", folder.Write("a.mps", kExplainedModel), "COST"})
                .out.find("  objective the sense is not said\n"),
            std::string::npos);
}

TEST(Explain, TellsDefaultsThatALineGave) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n L MOST\nCOLUMNS\n X MOST 1\n Y MOST 2\nRHS\n rhs MOST 0\n rhs MOST 4\nBOUNDS\n"
      " LO b X 0\n LO b X 1\n FR b Y\n UP b Y 3\nENDATA\n");
  const std::string row = RunQuarvel({"explain", model, "MOST"}).out;
  EXPECT_NE(row.find("  upper     4: line 8; line 7 had said 0\n"), std::string::npos) << row;
  const std::string x = RunQuarvel({"explain", model, "X"}).out;
  EXPECT_NE(x.find("  lower     1: line 11; line 10 had said 0\n"), std::string::npos) << x;
  EXPECT_EQ(x.find("unused"), std::string::npos) << x;
  const std::string y = RunQuarvel({"explain", model, "Y"}).out;
  EXPECT_NE(y.find("  upper     3: line 13; line 12 had said inf\n"), std::string::npos) << y;
}

TEST(Explain, TellsBothLinesOfARangeBeforeItsRightHandSide) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "ROWS\n L LIM\nCOLUMNS\n X LIM 1\nRANGES\n R LIM 3\nRHS\n R LIM 20\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"explain", model, "LIM"}).out,
            "row LIM (number 0)\n"
            "  type      R: made of its bounds; line 2 had said L\n"
            "  lower     17: line 8, with the range of line 6\n"
            "  upper     20: line 8\n"
            "  elements  1\n"
            "            X 1: line 4\n"
            "  problem   A314, line 6: ranges before the right-hand sides; they wait for the "
            "right-hand sides\n"
            "2 | L LIM\n"
            "4 | X LIM 1\n"
            "6 | R LIM 3\n"
            "8 | R LIM 20\n");
}

// The range stays in force when another right-hand side follows it.
TEST(Explain, TellsOfNoRangeInForceAsOverridden) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n L LIM\n E EQ\nCOLUMNS\n X LIM 1 EQ 1\nRHS\n R LIM 7\n R EQ 1\nRANGES\n R LIM 3\n"
      " R EQ 5\nRHS\n R LIM 9\n R EQ 2\nENDATA\n");
  const std::string limit = RunQuarvel({"explain", model, "LIM"}).out;
  EXPECT_NE(limit.find("  lower     6: line 13, with the range of line 10\n"), std::string::npos)
      << limit;
  const std::string equal = RunQuarvel({"explain", model, "EQ"}).out;
  EXPECT_NE(equal.find("lower     2: line 14; line 8 had said 1\n  upper     7: line 14, "
                       "with the range of line 11; line 8 had said 1\n"),
            std::string::npos);
  const std::string json = RunQuarvel({"explain", model, "LIM", "--json"}).out;
  EXPECT_NE(json.find("{\"line\":13,\"value\":6,\"rangeLine\":10}"), std::string::npos) << json;
}

TEST(Explain, TellsOfAProblemOfARowOnce) {
  const HostFolder folder;
  const Outcome run = RunQuarvel(
      {"explain",
       folder.Write("a.mps", "ROWS\n G NEED\nCOLUMNS\n X NEED 1\nRHS\n R NEED -1e10\nENDATA\n"),
       "NEED"});
  const std::size_t first = run.out.find("W504");
  EXPECT_NE(first, std::string::npos) << run.out;
  EXPECT_EQ(run.out.find("W504", first + 1), std::string::npos) << run.out;
}

TEST(Explain, TellsNumbersThatAreNoBoundFromThoseThatAre) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps",
                   "ROWS\n L LIM\nCOLUMNS\n X LIM 1\n Y LIM 1\nBOUNDS\n FX B X "
                   "1e30\n LO B Y 1e10\nENDATA\n");
  const std::string x = RunQuarvel({"explain", model, "X"}).out;
  EXPECT_NE(x.find("  lower     1E+30: line 7\n  upper     inf (1E+30 counts as none): line 7\n"),
            std::string::npos)
      << x;
  const std::string y = RunQuarvel({"explain", model, "Y"}).out;
  EXPECT_NE(y.find("  lower     10000000000: line 8\n  upper     inf: default\n"),
            std::string::npos)
      << y;
}

TEST(Explain, TakesNumbersWhereThereIsNoSuchName) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kExplainedModel);
  const std::string both = RunQuarvel({"explain", model, "1"}).out;
  EXPECT_TRUE(both.starts_with("row LIM (number 1)\n")) << both;
  EXPECT_NE(both.find("column I (number 1)\n"), std::string::npos) << both;
  const std::string row = RunQuarvel({"explain", model, "2"}).out;
  EXPECT_TRUE(row.starts_with("row X (number 2)\n")) << row;
  EXPECT_EQ(row.find("column"), std::string::npos) << row;
  EXPECT_EQ(RunQuarvel({"explain", model, "3"}).status, 1);
}

TEST(Explain, TakesNumbersBehindANumberSignWhateverTheNamesAre) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n N #1\n L 0\n L LIM\nCOLUMNS\n X 0 1 LIM 2\nENDATA\n");
  const Outcome plain = RunQuarvel({"explain", model, "#0"});
  EXPECT_TRUE(plain.out.starts_with("row #1 (number 0)\n")) << plain.out;
  EXPECT_NE(plain.out.find("column X (number 0)\n"), std::string::npos) << plain.out;
  EXPECT_EQ(plain.err, "");
  const Outcome forced = RunQuarvel({"explain", model, "#1"});
  EXPECT_TRUE(forced.out.starts_with("row 0 (number 1)\n")) << forced.out;
  EXPECT_EQ(forced.err, "quarvel: #1 is taken as a number; the name #1 is that of row #0\n");
  const Outcome named = RunQuarvel({"explain", model, "0"});
  EXPECT_TRUE(named.out.starts_with("row 0 (number 1)\n")) << named.out;
  EXPECT_EQ(named.err, "quarvel: 0 is taken as a name; #0 is row #1 and column X\n");
}

TEST(Explain, TellsWhichNumbersThereAre) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kExplainedModel);
  EXPECT_EQ(
      RunQuarvel({"explain", model, "#9"}).err,
      folder.Expand("quarvel: @a.mps: there is no row or column #9; rows are numbered from 0 to "
                    "2; columns are numbered from 0 to 1\n"));
}

TEST(Explain, TellsWhatNamesARecordThatIsNotThere) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"explain", folder.Write("a.mps", kExplainedModel), "none"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "row NONE (there is none)\n"
            "  unused    line 7 names it and changes none of this\n"
            "  problem   E110, line 7: no row of this name: NONE\n"
            "7 | X NONE 1 X 3\n");
  EXPECT_EQ(run.err, folder.Expand("quarvel: @a.mps: there is no row or column none\n"));
}

TEST(Explain, TellsALineInErrorUnderTheRecordThatThereIs) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps",
                   "ROWS\n N COST\n L MOST\nCOLUMNS\n X COST 1 MOST 1\n X COST 1 MOST 2 MOST 3\n"
                   "BOUNDS\n UP B MOST 2\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"explain", model, "X"}).out,
            "column X (number 0)\n"
            "  type      R: line 5\n"
            "  lower     0: default\n"
            "  upper     inf: default\n"
            "  elements  2\n"
            "            COST 1: line 5\n"
            "            MOST 1: line 5\n"
            "  unused    line 6 names it and changes none of this\n"
            "  problem   E105, line 6: a wrong number of words\n"
            "5 | X COST 1 MOST 1\n"
            "6 | X COST 1 MOST 2 MOST 3\n");
  EXPECT_EQ(RunQuarvel({"explain", model, "MOST"}).out,
            "row MOST (number 1)\n"
            "  type      L: line 3\n"
            "  lower     -inf: default\n"
            "  upper     0: default\n"
            "  elements  1\n"
            "            X 1: line 5\n"
            "  unused    line 6 names it and changes none of this\n"
            "  problem   E105, line 6: a wrong number of words\n"
            "column MOST (there is none)\n"
            "  unused    line 8 names it and changes none of this\n"
            "  problem   E114, line 8: no column of this name: MOST\n"
            "3 | L MOST\n"
            "5 | X COST 1 MOST 1\n"
            "6 | X COST 1 MOST 2 MOST 3\n"
            "8 | UP B MOST 2\n");
}

TEST(Explain, TellsATokenAsItStandsInTheFile) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N COST\n G need\nCOLUMNS\n x COST 1 need 0x10\n x need 1e500\n y need 1\nENDATA\n");
  const std::string text = RunQuarvel({"explain", model, "need"}).out;
  EXPECT_NE(text.find("E109, line 5: not a number: 0x10\n"), std::string::npos) << text;
  EXPECT_NE(text.find("E109, line 6: not a number: 1e500\n"), std::string::npos) << text;
}

TEST(Explain, TellsTheLineOfACoefficientOfZero) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N COST\n G NEED\nCOLUMNS\n X COST 1\n X NEED 0\n Y NEED 2 COST 0.0\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"explain", model, "X"}).out,
            "column X (number 0)\n"
            "  type      R: line 5\n"
            "  lower     0: default\n"
            "  upper     inf: default\n"
            "  elements  1\n"
            "            COST 1: line 5\n"
            "            NEED 0: line 6, of which no element is made\n"
            "  problem   W423, line 6: a coefficient of 0: NEED; no element of column X\n"
            "5 | X COST 1\n"
            "6 | X NEED 0\n");
  const std::string row = RunQuarvel({"explain", model, "COST", "--limit", "1"}).out;
  EXPECT_NE(row.find("            Y 0: line 7, of which no element is made\n"), std::string::npos)
      << row;
  EXPECT_EQ(row.find("unused"), std::string::npos) << row;
  const std::string json = RunQuarvel({"explain", model, "NEED", "--json"}).out;
  EXPECT_NE(
      json.find("\"zeros\":{\"count\":1,\"first\":[\n{\"line\":6,\"column\":\"X\",\"value\":0}]}"),
      std::string::npos)
      << json;
}

TEST(Explain, ListsTenElementsUnlessItIsToldOtherwise) {
  const HostFolder folder;
  std::string text = "ROWS\n L R\nCOLUMNS\n";
  for (int i = 1; i <= 12; ++i) text += " X" + std::to_string(i) + " R 1\n";
  const std::string model = folder.Write("a.mps", text + "ENDATA\n");
  const std::string ten = RunQuarvel({"explain", model, "R"}).out;
  EXPECT_NE(ten.find("X10 1: line 13\n            (the first 10; --limit all lists them)\n"),
            std::string::npos)
      << ten;
  const std::string all = RunQuarvel({"explain", model, "R", "--limit", "all"}).out;
  EXPECT_NE(all.find("X12 1: line 15\n 2 | L R\n"), std::string::npos) << all;
}

TEST(Explain, PrintsJson) {
  const HostFolder folder;
  const Outcome run =
      RunQuarvel({"explain", folder.Write("a.mps", kExplainedModel), "I", "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "{\"file\":\"@a.mps\",\"column\":{\"index\":1,\"name\":\"I\","
          "\"type\":{\"count\":1,\"settings\":[{\"line\":9,\"value\":\"I\"}]},\"marker\":8,"
          "\"lowerBound\":{\"count\":1,\"settings\":[{\"value\":0}]},"
          "\"upperBound\":{\"count\":1,\"settings\":[{\"value\":\"inf\"}]},"
          "\"elements\":{\"count\":1,\"first\":[\n{\"line\":9,\"row\":\"LIM\",\"value\":5}]},"
          "\"unused\":{\"count\":0,\"lines\":[]},\"problems\":{\"count\":0,\"first\":[]}},\"lines\":[\n"
          "{\"line\":8,\"text\":\" M 'MARKER' 'INTORG'\"},\n{\"line\":9,\"text\":\" i LIM 5\"}],"
          "\"hasEndata\":true}\n"));
  const std::string objective = RunQuarvel({"explain", folder.Path("a.mps"), "COST", "--json"}).out;
  EXPECT_NE(objective.find("\"objective\":null,\"objectiveConstant\":0,"), std::string::npos)
      << objective;
  const std::string both = RunQuarvel({"explain", folder.Path("a.mps"), "X", "--json"}).out;
  EXPECT_NE(
      both.find("\"problems\":{\"count\":2,\"first\":[{\"code\":\"E110\",\"line\":7,\"text\":\"no "
                "row of this name: NONE\"}"),
      std::string::npos)
      << both;
}

TEST(Explain, PrintsNoRecordThatIsNeitherMadeNorNamed) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kExplainedModel);
  const auto json = [&model](const char* name) {
    return RunQuarvel({"explain", model, name, "--json"}).out;
  };
  const std::string row = json("LIM");
  EXPECT_NE(row.find("\"row\":{"), std::string::npos) << row;
  EXPECT_EQ(row.find("\"column\":{"), std::string::npos) << row;
  const std::string numbered = json("#2");
  EXPECT_NE(numbered.find("\"row\":{"), std::string::npos) << numbered;
  EXPECT_EQ(numbered.find("\"column\":{"), std::string::npos) << numbered;
  const std::string named = json("none");
  EXPECT_NE(named.find(",\"row\":{\"name\":\"NONE\",\"unused\":{\"count\":1,\"lines\":[7]},"),
            std::string::npos)
      << named;
  EXPECT_EQ(json("nothing").substr(json("nothing").find(",")),
            ",\"lines\":[],\"hasEndata\":true}\n");
}

TEST(Explain, ReadsStandardInput) {
  const Outcome run = RunQuarvel({"explain", "-", "I"}, kExplainedModel);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(run.out.starts_with("column I (number 1)\n")) << run.out;
  EXPECT_EQ(
      RunQuarvel({"explain", "-", "1"}, kExplainedModel).err,
      "quarvel: standard input: 1 is a number, which takes reading twice: give the file, or the "
      "name of row LIM and column I\n");
}

TEST(Explain, EndsWithAFileThatCannotBeRead) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"explain", folder.Path("missing.mps"), "X"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, folder.Expand("quarvel: @missing.mps: File not found\n"));
}

TEST(Explain, LeavesNothingOfNamesThatWouldSteerATerminal) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L R\x1B[2J\nCOLUMNS\n X\x1B[2J R\x1B[2J 1\nENDATA\n");
  const Outcome run = RunQuarvel({"explain", model, "R\x1B[2J"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out.find('\x1B'), std::string::npos);
}

}  // namespace
}  // namespace quarvel
