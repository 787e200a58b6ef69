#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

// R2: 2 X <= 8, X at most 10; I whole.
constexpr std::string_view kPointModel =
    "ROWS\n N R1\n L R2\n E R3\nCOLUMNS\n X R1 1 R2 2\n Y R1 -3.5 R3 4\n M 'MARKER' 'INTORG'\n"
    " I R2 -1\n M 'MARKER' 'INTEND'\nRHS\n RHS R2 8 R3 2\nBOUNDS\n UP BOUND X 10\nENDATA\n";

TEST(Why, ListsWhatAPointDoesNotKeepWorstFirst) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const std::string point = folder.Write("p", "# tried\nX 12\nI=1.25\nZ 3\nx 11\n");
  const Outcome run = RunQuarvel({"why", model, point});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(
      run.out,
      folder.Expand("row R2 is 20.75, 12.75 more than its upper limit 8\n"
                    "    + 2*X(11) - 1*I(1.25)  =  20.75  >  8\n"
                    "row R3 is 0, 2 less than its lower limit 2\n"
                    "    0  =  0  <  2  (and 1 column at 0)\n"
                    "column X is 11, 1 more than its upper bound 10\n"
                    "column I is 1.25, 0.25 from a whole number\n"
                    "1 column not in the point, taken as 0: Y\n"
                    "1 name of the point not in the model: Z\n"
                    "1 value given again, the last one counts: X\n"
                    "@a.mps: 4 violations: 2 of rows, 1 of bounds, 1 of integers; the point is "
                    "names and values; tolerance 1E-06, relative 1E-09\n"));
}

TEST(Why, FindsNothingAtAPointThatKeepsAll) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const Outcome run = RunQuarvel({"why", model, folder.Write("p", "X 4\nY .5\nI 0\n")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, folder.Expand("@a.mps: 0 violations; the point is names and values; tolerance "
                                   "1E-06, relative 1E-09\n"));
}

TEST(Why, HoldsAPointToLowerBoundsHoweverLarge) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N R1\nCOLUMNS\n X R1 1\n Y R1 1\nBOUNDS\n LO B X 1e10\n UP B Y 1e10\nENDATA\n");
  const Outcome run = RunQuarvel({"why", model, folder.Write("p", "X 1\nY 3e10\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(
      run.out.starts_with("column X is 1, 9999999999 less than its lower bound 10000000000\n"))
      << run.out;
  EXPECT_NE(run.out.find(": 1 violation: "), std::string::npos) << run.out;
}

TEST(Why, SaysThatAPointNamesNoColumn) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 1\nENDATA\n");
  const Outcome run = RunQuarvel({"why", model, folder.Write("p", "Z 1\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(
      run.out.starts_with("no column of the model is in the point: is it one of another?\n"))
      << run.out;
  EXPECT_EQ(RunQuarvel({"why", model, folder.Path("p"), "--json"}).status, 1);
}

TEST(Why, ReadsThePointFromStandardInput) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const Outcome run = RunQuarvel({"why", model, "-"}, "X 4\nY .5\nI 0\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(RunQuarvel({"why", model, "-"}, "X 4\nY\n").err,
            "quarvel: standard input:2: \"Y\" is not NAME VALUE or NAME=VALUE\n");
  const Outcome twice = RunQuarvel({"why", "-", "-"}, kPointModel);
  EXPECT_EQ(twice.status, 2);
  EXPECT_TRUE(twice.err.starts_with("quarvel: model and point cannot both be standard input\n"))
      << twice.err;
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R2", "--point", "-"}, "X 4\n").out, "8\n");
}

TEST(Why, TakesATolerance) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const std::string point = folder.Write("p", "X 4.5\nY .5\nI 0\n");
  EXPECT_EQ(RunQuarvel({"why", model, point}).status, 1);
  EXPECT_EQ(RunQuarvel({"why", model, point, "--tolerance", "1"}).status, 0);
  EXPECT_EQ(RunQuarvel({"why", model, point, "--tolerance", "0,.125"}).status, 0);
  EXPECT_EQ(RunQuarvel({"why", model, point, "--tolerance", "0.5,0.1"}).status, 1);
  for (const char* const bad : {"x", "-1", "1,", "1,-1", ",1", ""}) {
    const Outcome run = RunQuarvel({"why", model, point, "--tolerance", bad});
    EXPECT_EQ(run.status, 2) << bad;
    EXPECT_TRUE(run.err.starts_with("quarvel: --tolerance takes ABS[,REL], not \"")) << run.err;
  }
}

TEST(Why, ListsTwentyAndCountsTheRest) {
  const HostFolder folder;
  std::string text = "ROWS\n N C\nCOLUMNS\n";
  std::string point;
  for (int i = 1; i <= 30; ++i) {
    const std::string name = "X" + std::to_string(i);
    text += ' ' + name + " C 1\n";
    point += name + " -" + std::to_string(i) + '\n';
  }
  const std::string model = folder.Write("a.mps", text + "ENDATA\n");
  folder.Write("p", point);
  const std::string out = RunQuarvel({"why", model, folder.Path("p")}).out;
  EXPECT_TRUE(out.starts_with("column X30 is -30, 30 less than its lower bound 0\n")) << out;
  EXPECT_NE(
      out.find("column X11 is -11, 11 less than its lower bound 0\n... 10 more (--limit all lists "
               "them)\n"),
      std::string::npos)
      << out;
  const std::string all = RunQuarvel({"why", model, folder.Path("p"), "--limit", "all"}).out;
  EXPECT_NE(all.find("column X1 is -1, 1 less"), std::string::npos) << all;
  EXPECT_EQ(all.find("more ("), std::string::npos) << all;
  const std::string none = RunQuarvel({"why", model, folder.Path("p"), "--limit", "0"}).out;
  EXPECT_TRUE(none.starts_with("... 30 more (--limit all lists them)\n")) << none;
}

TEST(Why, PrintsTheTwelveLargestTermsOfALongRow) {
  const HostFolder folder;
  std::string text = "ROWS\n L LONG\nCOLUMNS\n";
  std::string point;
  for (int i = 1; i <= 15; ++i) {
    const std::string name = "X" + std::to_string(i);
    text += ' ' + name + " LONG 1\n";
    point += name + ' ' + std::to_string(i) + '\n';
  }
  const std::string model = folder.Write("a.mps", text + "ENDATA\n");
  folder.Write("p", point);
  const std::string out = RunQuarvel({"why", model, folder.Path("p")}).out;
  EXPECT_NE(out.find("\n    + 1*X4(4) + 1*X5(5) "), std::string::npos) << out;
  EXPECT_NE(out.find("+ 1*X15(15) + 6 of 3 more terms  =  120  >  0\n"), std::string::npos) << out;
  const std::string all = RunQuarvel({"why", model, folder.Path("p"), "--limit", "all"}).out;
  EXPECT_NE(all.find("\n    + 1*X1(1) + "), std::string::npos) << all;
  EXPECT_EQ(all.find("more term"), std::string::npos) << all;
}

TEST(Why, TakesWhatSolversWrite) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const struct {
    const char* file;
    const char* kind;
  } cases[] = {
      {"Problem:    A\nRows:       2\nColumns:    3\n\n   No. Column name  St   Activity\n------\n"
       "     1 X            B              4             0            10\n"
       "     2 Y            B            0.5             0\n"
       "     3 I            NL             0             0\n",
       "a report of glpsol"},
      {"c A\ns mip 2 3 o 1\ni 1 8\ni 2 2\nj 1 4\nj 2 0.5\nj 3 0\ne o f\n",
       "a solution written by glpsol"},
      {"\nValue of objective function: 2.25\n\nActual values of the variables:\nX    4\nY   0.5\nI   0\n",
       "the output of lp_solve"},
      {"Optimal - objective value 2.25\n      0 R2  8  0\n      1 R3  2  0\n      0 X  4  0\n"
       "      1 Y  0.5  0\n      2 I  0  0\n",
       "a solution written by cbc"},
      {"Model status\nOptimal\n\n# Primal solution values\nFeasible\nObjective 2.25\n# Columns 3\nX 4\n"
       "Y 0.5\nI 0\n# Rows 2\nR2 8\nR3 2\n",
       "a solution written by HiGHS"},
      {"Columns\n    Index Status        Lower        Upper       Primal         Dual  Name\n"
       "        0     BS            0           10            4            0  X\n"
       "        1     BS            0          inf          0.5            0  Y\n"
       "        2     LB            0          inf            0            0  I\n",
       "a report of HiGHS"},
  };
  for (const auto& c : cases) {
    const Outcome run = RunQuarvel({"why", model, folder.Write("p", c.file)});
    EXPECT_EQ(run.status, 0) << c.kind;
    EXPECT_EQ(run.out, folder.Expand("@a.mps: 0 violations; the point is " + std::string(c.kind) +
                                     "; tolerance 1E-06, relative 1E-09\n"));
  }
}

TEST(Why, CountsWhatTheRoundingOfAReportExplains) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n G R1\nCOLUMNS\n X R1 750\nRHS\n RHS R1 1000\nENDATA\n");
  const std::string report = folder.Write(
      "p", "\nValue of objective function: 0\n\nActual values of the variables:\nX   1.33333\n");
  const Outcome run = RunQuarvel({"why", model, report});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            folder.Expand(
                "1 limit exceeded by no more than the rounding of the values to 6 digits "
                "explains\n@a.mps: 0 violations; the point is the output of lp_solve; tolerance "
                "1E-06, relative 1E-09\n"));
  EXPECT_EQ(RunQuarvel({"why", model, folder.Write("q", "X 1.33333\n")}).status, 1);
}

TEST(Why, RefusesNumbersOfAnotherModelsColumns) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const Outcome run =
      RunQuarvel({"why", model, folder.Write("p", "s mip 2 4 o 1\nj 1 4\ne o f\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            folder.Expand("quarvel: @p: it has the values of 4 columns by their numbers, and "
                          "the model has 3\n"));
}

TEST(Why, TakesNumbersInASolversFileForNamesOnly) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  EXPECT_NE(RunQuarvel({"why", model, folder.Write("p", "1 .5\n")})
                .out.find("2 columns not in the point, taken as 0: X, I\n"),
            std::string::npos);
  const std::string solver = folder.Write("q", "Optimal - objective value 0\n 0 1 .5 0\n");
  EXPECT_NE(
      RunQuarvel({"why", model, solver}).out.find("1 name of the point not in the model: 1\n"),
      std::string::npos);
}

TEST(Why, NamesTheLineOfABadPoint) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const Outcome run = RunQuarvel({"why", model, folder.Write("p", "X 1\nY one\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, folder.Expand("quarvel: @p:2: \"one\" is not a number\n"));
  EXPECT_EQ(RunQuarvel({"why", model, folder.Path("missing")}).err,
            folder.Expand("quarvel: @missing: File not found\n"));
}

TEST(Why, PrintsJson) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  const Outcome run =
      RunQuarvel({"why", model, folder.Write("p", "X 11\nY .5\nI 20.5\nQ 1\n"), "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "{\"file\":\"@a.mps\",\"point\":\"@p\",\"pointKind\":\"pairs\",\"digits\":0,"
          "\"tolerance\":1E-06,\"relativeTolerance\":1E-09,\"violations\":[\n"
          "{\"kind\":\"bound\",\"index\":0,\"name\":\"X\",\"value\":11,\"limit\":10,\"amount\":1},\n"
          "{\"kind\":\"integrality\",\"index\":2,\"name\":\"I\",\"value\":20.5,\"limit\":20,"
          "\"amount\":0.5}],\"count\":2,\"unlisted\":0,\"rows\":0,\"bounds\":1,\"integers\":1,"
          "\"withinRounding\":0,\"missing\":{\"count\":0,\"first\":[]},\"unknown\":{\"count\":1,"
          "\"first\":[\"Q\"]},\"repeated\":{\"count\":0,\"first\":[]},\"hasEndata\":true}\n"));
  const std::string row =
      RunQuarvel({"why", model, folder.Write("q", "X 5\nY .5\n"), "--json"}).out;
  EXPECT_NE(row.find("{\"kind\":\"row\",\"index\":1,\"name\":\"R2\",\"value\":10,\"limit\":8,"
                     "\"amount\":2,\"terms\":[{\"column\":\"X\",\"coefficient\":2,\"value\":5}],"
                     "\"moreTerms\":0,\"moreTermsSum\":0,\"columnsAtZero\":1}]"),
            std::string::npos)
      << row;
}

TEST(Why, PrintsTenNamesOfAKind) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kPointModel);
  std::string point = "X 0\nY .5\nI 0\n";
  for (int i = 1; i <= 11; ++i) point += "Z" + std::to_string(i) + " 1\n";
  EXPECT_TRUE(
      RunQuarvel({"why", model, folder.Write("p", point)})
          .out.starts_with("11 names of the point not in the model: Z1, Z2, Z3, Z4, Z5, Z6, Z7, "
                           "Z8, Z9, Z10, ...\n"));
}

TEST(Why, LeavesNothingOfNamesThatWouldSteerATerminal) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L R\x1B[2J\nCOLUMNS\n X\x1B[2J R\x1B[2J 1\nENDATA\n");
  const Outcome run = RunQuarvel({"why", model, folder.Write("p", "X\x1B[2J 1\nQ\x1B[2J 1\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out.find('\x1B'), std::string::npos);
}

}  // namespace
}  // namespace quarvel
