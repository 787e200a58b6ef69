#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Evaluate, PrintsTheActivityAtAPoint) {
  const HostFolder folder;
  const Outcome run = RunQuarvel(
      {"evaluate", folder.Example("diet.mps"), "COST", "BREAD=30", "MILK=40", "CHEESE=5"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "1455\n");
  EXPECT_EQ(run.err, "");
}

TEST(Evaluate, TakesMissingColumnsAsZero) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1"}).out, "0\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "Y=2"}).out, "-7\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R2", "Y=2"}).out, "0\n");
}

TEST(Evaluate, TakesNumbersForNames) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"evaluate", folder.Write("a.mps", kSmallModel), "1", "0=1.5d1"}).out,
            "30\n");
}

TEST(Evaluate, PrintsJson) {
  const HostFolder folder;
  EXPECT_EQ(
      RunQuarvel({"evaluate", folder.Write("a.mps", kSmallModel), "r2", "x=.25", "--json"}).out,
      "{\"index\":1,\"name\":\"R2\",\"lowerBound\":\"-inf\",\"upperBound\":8,"
      "\"activity\":0.5,\"hasEndata\":true}\n");
}

TEST(Evaluate, TakesAPointFromAFile) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const std::string point =
      folder.Write("point", "\xEF\xBB\xBF# a point\r\n\r\n  X 4\r\n\tY = -2 \r\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "--point", point}).out, "11\n");
}

TEST(Evaluate, LetsTheCommandLineGoOverThePointsFile) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const std::string point = folder.Write("point", "X=1\nX=4\nY=1\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "Y=0", "--point", point}).out, "4\n");
}

TEST(Evaluate, TakesAPointThatASolverWrote) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const std::string point =
      folder.Write("point", "Optimal - objective value 4\n 0 X 4 0\n 1 Y -2 0\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "--point", point}).out, "11\n");
  const std::string other =
      folder.Write("other", "Optimal - objective value 4\n 0 X 4 0\n 1 Z -2 0\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "--point", other}).err,
            folder.Expand("quarvel: @other:3: there is no column Z\n"));
}

TEST(Evaluate, FindsColumnsWithEqualsSignsInTheirNames) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n A=B R1 3\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "A=B=2"}).out, "6\n");
}

TEST(Evaluate, SaysWhichValuesAreGivenAgain) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const Outcome typed = RunQuarvel({"evaluate", model, "R1", "X=2", "X=3"});
  EXPECT_EQ(typed.out, "3\n");
  EXPECT_EQ(typed.err, "quarvel: 1 value given again, the last one counts: X\n");
  const std::string point = folder.Write("p", "X 2\nX 5\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "--point", point}).err,
            "quarvel: 1 value given again, the last one counts: X\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "X=2", "X=3", "X=4"}).err,
            "quarvel: 2 values given again, the last one counts: X\n");
  const std::string once = folder.Write("q", "X 2\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "X=3", "--point", once}).err, "");
}

TEST(Evaluate, PrintsInfinityAsEveryCommandDoes) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n X R1 -10\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"evaluate", model, "R1", "X=1e308"}).out, "-inf\n");
}

TEST(Evaluate, RefusesABadPoint) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const struct {
    const char* pair;
    int status;
    const char* complaint;
  } cases[] = {
      {"X", 2, "\"X\" is not NAME=VALUE"},
      {"X=two", 2, "the value of X, \"two\", is not a number"},
      {"X=inf", 2, "the value of X, \"inf\", is not a number"},
      {"X=", 2, "the value of X, \"\", is not a number"},
      {"=2", 2, "\"=2\" names no column"},
      {"Z=1", 1, "@a.mps: there is no column Z"},
  };
  for (const auto& c : cases) {
    const Outcome run = RunQuarvel({"evaluate", model, "R1", c.pair});
    EXPECT_EQ(run.status, c.status) << c.pair;
    EXPECT_EQ(run.out, "") << c.pair;
    EXPECT_TRUE(run.err.starts_with(folder.Expand(std::string("quarvel: ") + c.complaint + "\n")))
        << run.err;
  }
}

TEST(Evaluate, NamesTheLineOfABadPointsFile) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const struct {
    const char* text;
    const char* complaint;
  } cases[] = {
      {"X 1\nY\n", "@p:2: \"Y\" is not NAME VALUE or NAME=VALUE"},
      {"\n#\nX 1 2\n", "@p:3: \"1 2\" is not a number"},
      {"Q = 1", "@p:1: there is no column Q"},
      {"9 1", "@p:1: there is no column 9; columns are numbered from 0 to 1"},
  };
  for (const auto& c : cases) {
    const Outcome run = RunQuarvel({"evaluate", model, "R1", "--point", folder.Write("p", c.text)});
    EXPECT_EQ(run.status, 1) << c.text;
    EXPECT_EQ(run.err, folder.Expand(std::string("quarvel: ") + c.complaint + "\n"));
  }
}

TEST(Evaluate, ReportsAPointsFileThatCannotBeRead) {
  const HostFolder folder;
  const Outcome run = RunQuarvel(
      {"evaluate", folder.Write("a.mps", kSmallModel), "R1", "--point", folder.Path("missing")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, folder.Expand("quarvel: @missing: File not found\n"));
}

}  // namespace
}  // namespace quarvel
