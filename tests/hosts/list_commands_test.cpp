#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Rows, AreListedInColumns) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"rows", folder.Example("ranges.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "Index  Name    Type            Lower            Upper  Elements\n"
            "    0  COST    N                -inf              inf         5\n"
            "    1  GRANGE  R                   4               10         2\n"
            "    2  LRANGE  R                  12               20         3\n"
            "    3  ERANGE  R                   7                9         2\n"
            "    4  PLAIN   E                   5                5         2\n"
            "    5  FLOOR   G                   6              inf         1\n");
  EXPECT_EQ(run.err, "");
}

TEST(Rows, ArePrintedAsEquations) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"rows", folder.Example("transport.mps"), "--equations"}).out,
            "Index  Name     Equation\n"
            "    0  FREIGHT   + 4*X11 + 6.5*X12 + 9*X13 + 5*X21 + 3*X22 + 7.5*X23  "
            "(non-binding/objective)\n"
            "    1  SUPPLY1   + 1*X11 + 1*X12 + 1*X13  <=  350\n"
            "    2  SUPPLY2   + 1*X21 + 1*X22 + 1*X23  <=  600\n"
            "    3  DEMAND1   + 1*X11 + 1*X21  >=  325\n"
            "    4  DEMAND2   + 1*X12 + 1*X22  >=  300\n"
            "    5  DEMAND3   + 1*X13 + 1*X23  >=  275\n");
}

TEST(Rows, StopAtTheLimitAndSaySo) {
  const HostFolder folder;
  const std::string model = folder.Example("transport.mps");
  EXPECT_EQ(RunQuarvel({"rows", model, "--limit", "1", "--equations"}).out,
            "Index  Name     Equation\n"
            "    0  FREIGHT   + 4*X11 + 6.5*X12 + 9*X13 + 5*X21 + 3*X22 + 7.5*X23  "
            "(non-binding/objective)\n"
            "(the first 1 of 6 rows)\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--limit", "6"}).out, RunQuarvel({"rows", model}).out);
  EXPECT_EQ(RunQuarvel({"rows", model, "--limit", "0", "--json"}).out, "[\n]\n");
}

TEST(Rows, ArePrintedAsJson) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_EQ(RunQuarvel({"rows", model, "--json", "--equations"}).out,
            "[\n"
            "{\"index\":0,\"name\":\"R1\",\"type\":\"N\",\"lowerBound\":\"-inf\","
            "\"upperBound\":\"inf\",\"elements\":2,"
            "\"equation\":\" + 1*X - 3.5*Y  (non-binding/objective)\"},\n"
            "{\"index\":1,\"name\":\"R2\",\"type\":\"L\",\"lowerBound\":\"-inf\","
            "\"upperBound\":8,\"elements\":1,\"equation\":\" + 2*X  <=  8\"}\n"
            "]\n");
}

TEST(Columns, AreListedInColumns) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"columns", folder.Example("ranges.mps")}).out,
            "Index  Name    Type            Lower            Upper  Elements\n"
            "    0  LOW     R                 1.5              inf         3\n"
            "    1  HIGH    R                   0               30         3\n"
            "    2  FIXED   R                 2.5              2.5         2\n"
            "    3  FREE    R                -inf              inf         3\n"
            "    4  NOLOW   R                -inf              inf         2\n"
            "    5  NOHIGH  R                   0              inf         2\n");
}

TEST(Columns, ArePrintedAsJson) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"columns", folder.Example("knapsack.mps"), "--json", "--limit", "2"}).out,
            "[\n"
            "{\"index\":0,\"name\":\"TENT\",\"type\":\"I\",\"lowerBound\":0,\"upperBound\":1,"
            "\"elements\":2},\n"
            "{\"index\":1,\"name\":\"STOVE\",\"type\":\"I\",\"lowerBound\":0,\"upperBound\":1,"
            "\"elements\":2}\n"
            "]\n");
}

TEST(Columns, HaveEachMemberOnceAndInOneOrder) {
  const HostFolder folder;
  const std::string model = folder.Example("knapsack.mps");
  EXPECT_EQ(RunQuarvel({"columns", model, "--json", "--columns", "type,name", "--limit", "1"}).out,
            "[\n{\"name\":\"TENT\",\"type\":\"I\"}\n]\n");
  EXPECT_EQ(RunQuarvel({"columns", model, "--csv", "--columns", "type,name", "--limit", "1"}).out,
            "type,name\r\nI,TENT\r\n");
  const Outcome twice = RunQuarvel({"columns", model, "--columns", "name,type,name"});
  EXPECT_EQ(twice.status, 2);
  EXPECT_TRUE(twice.err.starts_with("quarvel: --columns names name twice\n")) << twice.err;
}

TEST(Columns, WidenForLongNames) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n \xC3\xA4LONGERNAME R1 1\n Y R1 1\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"columns", model}).out,
            "Index  Name         Type            Lower            Upper  Elements\n"
            "    0  \xC3\x84LONGERNAME  R                   0              inf         1\n"
            "    1  Y            R                   0              inf         1\n");
}

TEST(Columns, CannotSteerTheTerminal) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n \x1b[7m R1 1\n Y R1 1\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"columns", model}).out,
            "Index  Name     Type            Lower            Upper  Elements\n"
            "    0  \\x1B[7M  R                   0              inf         1\n"
            "    1  Y        R                   0              inf         1\n");
}

// Names, texts and words of the user, through every door.
TEST(Commands, CannotSteerTheTerminal) {
  const HostFolder folder;
  const std::string bad =
      "\x1b]0;T\a\xC2\x9B"
      "31M\xE2\x80\xAE";
  const std::string model =
      folder.Write("a.mps", "* " + bad + "\nNAME " + bad + "\nROWS\n L " + bad + "\nCOLUMNS\n " +
                                bad + " " + bad + " 1\nENDATA\n");
  const std::vector<std::vector<std::string>> cases = {
      {"info", model},
      {"rows", model},
      {"rows", model, "--equations"},
      {"columns", model},
      {"row", model, bad},
      {"column", model, bad},
      {"row", model, bad + bad},
      {"evaluate", model, bad, bad},
      {"evaluate", model, bad, bad + "=" + bad},
      {"check", folder.Write("b.mps", "ROWS\n L " + bad + "\n L " + bad + "\nCOLUMNS\n X " + bad +
                                          " 0\nENDATA\n")},
      {"info", folder.Path("b.mps"), "--on-error", "continue"},
      {"info", folder.Path(bad)},
      {"simplify", model, folder.Path("c.mps"), "--log", folder.Path(bad)},
      {"edit", model, folder.Path("c.mps"), "-c", "add-row " + bad + " L"},
      {"edit", model, folder.Path(bad + "c"), "-c", "set-name " + bad},
      {"convert", model, folder.Path(bad + "/c")},
      {bad},
      {"--" + bad},
      {"info", model, "--on-error", bad},
  };
  for (std::vector<std::string> words : cases) {
    for (const bool json : {false, true}) {
      if (json) words.emplace_back("--json");
      const Outcome run = RunQuarvel(words);
      for (const std::string& shown : {run.out, run.err}) {
        EXPECT_EQ(shown.find('\x1b'), std::string::npos) << words[0];
        EXPECT_EQ(shown.find('\a'), std::string::npos) << words[0];
        EXPECT_EQ(shown.find("\xC2\x9B"), std::string::npos) << words[0];
        EXPECT_EQ(shown.find("\xE2\x80\xAE"), std::string::npos) << words[0];
      }
      const bool shows = (run.out + run.err).find("]0;T") != std::string::npos;
      EXPECT_TRUE(json || shows) << words[0];
    }
  }
}

TEST(Row, IsPrintedWithItsElements) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"row", folder.Example("ranges.mps"), "ERANGE"}).out,
            "Row       ERANGE (number 3)\n"
            "Type      R\n"
            "Lower     7\n"
            "Upper     9\n"
            "Equation  7  >=   + 1*FREE + 1*NOLOW  <=  9\n"
            "Elements  2\n"
            "          FREE   1\n"
            "          NOLOW  1\n");
}

TEST(Row, StopsAtTheLimitAndSaysSo) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"row", folder.Example("ranges.mps"), "ERANGE", "--limit", "1"});
  EXPECT_TRUE(run.out.ends_with("Elements  2\n          FREE  1\n          (the first 1)\n"))
      << run.out;
}

TEST(Row, IsPrintedAsJson) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"row", folder.Write("a.mps", kSmallModel), "R1", "--json"}).out,
            "{\"index\":0,\"name\":\"R1\",\"type\":\"N\",\"lowerBound\":\"-inf\","
            "\"upperBound\":\"inf\",\"equation\":\" + 1*X - 3.5*Y  (non-binding/objective)\","
            "\"elements\":[{\"column\":\"X\",\"index\":0,\"value\":1},"
            "{\"column\":\"Y\",\"index\":1,\"value\":-3.5}],\"unlisted\":0,\"hasEndata\":true}\n");
}

TEST(Row, CutsItsEquationInJsonTooAndCountsWhatIsUnlisted) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_EQ(RunQuarvel({"row", model, "R1", "--json", "--limit", "1"}).out,
            "{\"index\":0,\"name\":\"R1\",\"type\":\"N\",\"lowerBound\":\"-inf\","
            "\"upperBound\":\"inf\",\"equation\":\" + 1*X ... 1 more  (non-binding/objective)\","
            "\"elements\":[{\"column\":\"X\",\"index\":0,\"value\":1}],\"unlisted\":1,"
            "\"hasEndata\":true}\n");
  EXPECT_TRUE(RunQuarvel({"column", model, "X", "--json", "--limit", "0"})
                  .out.ends_with("\"elements\":[],\"unlisted\":2,\"hasEndata\":true}\n"));
}

TEST(Rows, SayWhyAnOpenBracketMatchesNothing) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const Outcome none = RunQuarvel({"rows", model, "--match", "[R1"});
  EXPECT_EQ(none.status, 0);
  EXPECT_EQ(none.err, "quarvel: --match [R1: a [ that no ] closes stands for itself\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--match", "[R1", "--match", "R*"}).err, "");
  EXPECT_EQ(RunQuarvel({"rows", model, "--match", "[Q]1"}).err, "");
}

TEST(Column, IsPrintedWithItsElements) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"column", folder.Example("knapsack.mps"), "TENT"}).out,
            "Column    TENT (number 0)\n"
            "Type      I\n"
            "Lower     0\n"
            "Upper     1\n"
            "Elements  2\n"
            "          WORTH   -60\n"
            "          WEIGHT  10\n");
}

TEST(Column, IsPrintedAsJson) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"column", folder.Write("a.mps", kSmallModel), "X", "--json"}).out,
            "{\"index\":0,\"name\":\"X\",\"type\":\"R\",\"lowerBound\":0,\"upperBound\":10,"
            "\"elements\":[{\"row\":\"R1\",\"index\":0,\"value\":1},"
            "{\"row\":\"R2\",\"index\":1,\"value\":2}],\"unlisted\":0,\"hasEndata\":true}\n");
}

TEST(Names, AreFoundExactlyThenInUpperCaseThenAsNumbers) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L FIRST\n L 0\nCOLUMNS\n X FIRST 1 0 1\nENDATA\n");
  const struct {
    const char* given;
    const char* found;
  } cases[] = {{"FIRST", "Row       FIRST (number 0)\n"},
               {"First", "Row       FIRST (number 0)\n"},
               {"0", "Row       0 (number 1)\n"},
               {"1", "Row       0 (number 1)\n"}};
  for (const auto& c : cases) {
    EXPECT_TRUE(RunQuarvel({"row", model, c.given}).out.starts_with(c.found)) << c.given;
  }
}

TEST(Names, ThatLookLikeNumbersAreToldFromThem) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n L A\n L 0\n L #0\n L 7\n L #9\nCOLUMNS\n X A 1 0 1\n 0 #0 1 7 1\n 1 #9 1\nENDATA\n");
  const struct {
    const char* given;
    const char* found;
    const char* note;
  } cases[] = {
      {"0", "0 (number 1)", "quarvel: 0 is taken as a name, that of row #1; #0 is A\n"},
      {"#0", "A (number 0)", "quarvel: #0 is taken as a number; the row of that name is #2\n"},
      {"#1", "0 (number 1)", ""},
      {"2", "#0 (number 2)", ""},
      {"7", "7 (number 3)", ""},  // there is no row of that number
      {"#9", "#9 (number 4)", ""},
  };
  for (const auto& c : cases) {
    const Outcome run = RunQuarvel({"row", model, c.given});
    EXPECT_TRUE(run.out.starts_with(std::string("Row       ") + c.found + "\n")) << c.given;
    EXPECT_EQ(run.err, c.note) << c.given;
  }
  const Outcome run = RunQuarvel({"evaluate", model, "A", "#0=5", "0=9"});
  EXPECT_EQ(run.out, "5\n");
  EXPECT_EQ(run.err, "quarvel: 0 is taken as a name, that of column #1; #0 is X\n");
}

TEST(Names, ThatDoNotExistAreReported) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const struct {
    const char* command;
    const char* given;
    const char* complaint;
  } cases[] = {
      {"row", "R9", "there is no row R9; did you mean R1 or R2?"},
      {"row", "r", "there is no row r; did you mean R1 or R2?"},
      {"row", "x", "there is no row x; there is a column of that name"},
      {"row", "#R1", "there is no row #R1; did you mean R1?"},
      {"row", "#2", "there is no row #2; rows are numbered from 0 to 1"},
      {"column", "1.5", "there is no column 1.5"},
      {"row", "2", "there is no row 2; rows are numbered from 0 to 1"},
      {"row", "-1", "there is no row -1; rows are numbered from 0 to 1"},
      {"column", "2147483647", "there is no column 2147483647; columns are numbered from 0 to 1"},
      {"column", "2147483648", "there is no column 2147483648"},
  };
  for (const auto& c : cases) {
    const Outcome run = RunQuarvel({c.command, model, c.given});
    EXPECT_EQ(run.status, 1) << c.given;
    EXPECT_EQ(run.out, "") << c.given;
    EXPECT_EQ(run.err, "quarvel: " + model + ": " + c.complaint + "\n");
  }
}

}  // namespace
}  // namespace quarvel
