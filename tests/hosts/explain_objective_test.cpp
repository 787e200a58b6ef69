// quarvel explain of the row that is the objective: its sense, constant and name.

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Explain, TellsTheLinesOfSenseAndConstant) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "OBJSENSE MAX\nROWS\n N COST\n L LIM\nCOLUMNS\n X COST 1 LIM 1\nRHS\n R LIM 9\n R COST -5\n"
      "ENDATA\n");
  EXPECT_EQ(RunQuarvel({"explain", model, "COST"}).out,
            "row COST (number 0)\n"
            "  type      N: line 3\n"
            "  lower     -inf: default\n"
            "  upper     inf: default\n"
            "  objective maximized: line 1\n"
            "            5 added to it: line 9\n"
            "  elements  1\n"
            "            X 1: line 6\n"
            "  problem   A309, line 9: a right-hand side of the objective: COST; 5 is added to the "
            "objective\n"
            "1 |OBJSENSE MAX\n"
            "3 | N COST\n"
            "6 | X COST 1 LIM 1\n"
            "9 | R COST -5\n");
  const std::string json = RunQuarvel({"explain", model, "COST", "--json"}).out;
  EXPECT_NE(json.find("\"objective\":\"maximize\",\"objectiveLine\":1,"
                      "\"objectiveHistory\":{\"count\":1,\"settings\":[{\"line\":1,"
                      "\"value\":\"maximize\"}]},\"objectiveConstant\":5,"
                      "\"objectiveConstantLine\":9,\"objectiveConstantHistory\":{\"count\":1,"
                      "\"settings\":[{\"line\":9,\"value\":5}]},"),
            std::string::npos)
      << json;
}

TEST(Explain, TellsWhatSensesAndConstantsWereOverridden) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "OBJSENSE MAX\nROWS\n N COST\n L LIM\nCOLUMNS\n X COST 1 LIM 1\nOBJSENSEMIN\nRHS\n"
      " R COST 3\n R COST 5 LIM 9\n R COST 0\nENDATA\n");
  const std::string text = RunQuarvel({"explain", model, "COST"}).out;
  EXPECT_NE(text.find("  objective minimized: line 7; line 1 had said maximize\n"
                      "            0 added to it: line 11; line 10 had said -5, line 9 had said "
                      "-3\n"
                      "  elements  1\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(text.find("unused"), std::string::npos) << text;
  EXPECT_NE(text.find("\n 1 |OBJSENSE MAX\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n10 | R COST 5 LIM 9\n"), std::string::npos) << text;
  const std::string one = RunQuarvel({"explain", model, "COST", "--limit", "1"}).out;
  EXPECT_NE(one.find("minimized: line 7 (and 1 before)\n            0 added to it: line 11 (and 2 "
                     "before)\n"),
            std::string::npos)
      << one;
  const std::string json = RunQuarvel({"explain", model, "COST", "--json"}).out;
  EXPECT_NE(json.find("\"objectiveHistory\":{\"count\":2,\"settings\":[{\"line\":1,\"value\":"
                      "\"maximize\"},{\"line\":7,\"value\":\"minimize\"}]}"),
            std::string::npos)
      << json;
}

TEST(Explain, TellsTheLineThatNamesTheObjective) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "OBJNAME\n  p\nROWS\n N COST\n N P\n L TOP\nCOLUMNS\n X P 1 TOP 1\nENDATA\n");
  const std::string text = RunQuarvel({"explain", model, "P"}).out;
  EXPECT_NE(
      text.find("  problem   A308, line 2: the name of the objective: P; the row of this name "
                "is the objective\n"),
      std::string::npos)
      << text;
  EXPECT_NE(text.find("\n2 |  p\n"), std::string::npos) << text;
  const std::string json = RunQuarvel({"explain", model, "P", "--json"}).out;
  EXPECT_NE(json.find("\"problems\":{\"count\":1,\"first\":[{\"code\":\"A308\",\"line\":2,"),
            std::string::npos)
      << json;
  EXPECT_EQ(RunQuarvel({"explain", model, "COST"}).out.find("A308"), std::string::npos);
}

TEST(Explain, TellsNamesOfTheObjectiveThatWereOverridden) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps",
                   "OBJNAME COST\nOBJNAME P\nOBJNAME TOP\nROWS\n N COST\n N P\n"
                   " L TOP\nCOLUMNS\n X P 1 TOP 1\nENDATA\n");
  const auto has = [&model](const char* name, const char* text) {
    const std::string all = RunQuarvel({"explain", model, name}).out;
    EXPECT_NE(all.find(text), std::string::npos) << all;
  };
  has("COST",
      "A308, line 1: the name of the objective: COST; passed over: a later line names the "
      "objective\n");
  has("P",
      "A308, line 2: the name of the objective: P; passed over: a later line names the "
      "objective\n");
  has("TOP", "E123, line 3: ");
}

}  // namespace
}  // namespace quarvel
