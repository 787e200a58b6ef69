#include "hosts/script_obstacles.h"

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using Sentences = std::vector<std::string>;

ModelBuilder Build(LPModel& model) {
  ModelBuilder builder(model);
  builder.Row("COST", 'N').Row("R1", 'L', 4).Column("X").Column("Y");
  builder.Element("X", "COST", 1).Element("Y", "R1", 2);
  return builder;
}

mps::FileFacts Facts(const char* objective, double constant = 0) {
  mps::FileFacts facts;
  facts.objective = objective;
  facts.objective_constant = constant;
  return facts;
}

// What keeps edit from making the small model the same as one that was changed.
Sentences ObstaclesTo(const std::function<void(ModelBuilder&, LPModel&)>& change,
                      const mps::FileFacts& facts_of_b = Facts("COST")) {
  platform::ScriptedDesktop desktop;
  LPModel a(desktop);
  LPModel b(desktop);
  Build(a);
  ModelBuilder builder = Build(b);
  change(builder, b);
  const mps::FileFacts facts_of_a = Facts("COST");
  return hosts::ScriptObstacles({a.store(), &facts_of_a}, {b.store(), &facts_of_b}, {});
}

TEST(ScriptObstacles, AreNoneForWhatCommandsSay) {
  EXPECT_EQ(ObstaclesTo([](ModelBuilder&, LPModel&) {}), Sentences{});
  EXPECT_EQ(ObstaclesTo([](ModelBuilder& builder, LPModel& model) {
              builder.Row("R2", 'G').Integer("Z").Element("Z", "R2", 1);
              builder.Description("two\r\nlines");
              model.SetRowType(1, "E");
            }),
            Sentences{});
}

struct Case {
  void (*change)(ModelBuilder& builder, LPModel& model);
  const char* sentence;
};

const Case kCases[] = {
    {[](ModelBuilder& b, LPModel&) { b.Row("A B", 'L'); }, "row \"A B\" has a blank in its name"},
    {[](ModelBuilder& b, LPModel&) { b.Column("A B"); }, "column \"A B\" has a blank in its name"},
    {[](ModelBuilder& b, LPModel&) { b.Row("", 'L'); }, "row \"\" has no name"},
    {[](ModelBuilder& b, LPModel&) { b.Row("r9", 'L'); },
     "row r9 has a name in small letters, and edit makes capitals"},
    {[](ModelBuilder& b, LPModel&) { b.Row("R\xFF", 'L'); },
     "row R\xFF has a name that is not UTF-8"},
    {[](ModelBuilder& b, LPModel&) { b.RowWithin("R9", ModelBuilder::kNoType, 0, 0); },
     "row R9 has no type in B"},
    {[](ModelBuilder& b, LPModel&) { b.Column("Z", 0, 1, 'B'); },
     "column Z is of a type in B that edit cannot set"},
    {[](ModelBuilder& b, LPModel&) { b.Column("Z", std::nan(""), 1); },
     "column Z has a bound in B that is no number"},
    {[](ModelBuilder& b, LPModel&) {
       b.RowWithin("R9", 'L', std::numeric_limits<double>::infinity(), 1);
     },
     "row R9 has a limit in B that is no number"},
    {[](ModelBuilder& b, LPModel&) { b.Element("X", "R1", std::nan("")); },
     "an element of B is not finite"},
    {[](ModelBuilder& b, LPModel&) { b.Column("Z").Element("Z", "R1", std::nan("")); },
     "an element of B is not finite"},
    {[](ModelBuilder& b, LPModel&) { b.Element("Y", "R1", 3); },
     "element R1 Y stands several times in B, and edit makes one of each"},
    {[](ModelBuilder& b, LPModel&) { b.Column("Z").Element("Z", "R1", 3).Element("Z", "R1", 3); },
     "element R1 Z stands several times in B, and edit makes one of each"},
    {[](ModelBuilder& b, LPModel&) { b.Row("R9", 'L').Row("R9", 'L'); },
     "row R9 stands several times in B"},
    {[](ModelBuilder& b, LPModel&) { b.Row("#9", 'L'); },
     "row \"#9\" has a name that edit takes for a number"},
    {[](ModelBuilder& b, LPModel&) { b.Description("a\nb"); },
     "the description of B is no text that a command can give"},
    {[](ModelBuilder& b, LPModel&) { b.Name("\xFF"); },
     "the name of B is no text that a command can give"},
    {[](ModelBuilder&, LPModel& m) { ClearModel(m); },
     "B has no elements, and edit writes no such model"},
};

TEST(ScriptObstacles, NameWhatCommandsCannotSay) {
  for (const Case& c : kCases) {
    EXPECT_EQ(ObstaclesTo(c.change), Sentences{c.sentence}) << c.sentence;
  }
}

TEST(ScriptObstacles, AreNoneInWhatTheFileSaysOfTheObjective) {
  const auto nothing = [](ModelBuilder&, LPModel&) {};
  mps::FileFacts maximized = Facts("COST", 1);
  maximized.sense = mps::ObjectiveSense::kMaximize;
  EXPECT_EQ(ObstaclesTo(nothing, maximized), Sentences{});
  EXPECT_EQ(ObstaclesTo([](ModelBuilder& b, LPModel&) { b.Row("OTHER", 'N'); }, Facts("OTHER")),
            Sentences{});
  EXPECT_EQ(ObstaclesTo(nothing, Facts("")),
            Sentences{"row COST is free in B, which has no objective, and edit makes it that"});
  EXPECT_EQ(ObstaclesTo(nothing, Facts("#9")),
            Sentences{"row \"#9\" has a name that edit takes for a number"});
}

TEST(ScriptObstacles, AreFewInNumber) {
  EXPECT_EQ(ObstaclesTo([](ModelBuilder& b, LPModel&) {
              for (int i = 0; i < 50; ++i) b.Column("A " + std::to_string(i));
            }).size(),
            10u);
}

TEST(ScriptObstacles, EndTheCommandWithoutAScript) {
  const HostFolder folder;
  const std::string a = folder.Write("a.mps", kSmallModel);
  const std::string b =
      folder.Write("b.mps",
                   "NAME SMALL\nROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 2\n X R2 3\n Y R1 -3.5\n"
                   "RHS\n RHS R2 8\nENDATA\n");
  const Outcome run = RunQuarvel({"diff", a, b, "--script"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(
      run.err.find(
          std::string("quarvel: element R2 X stands several times in B, and edit makes one of "
                      "each\nquarvel: no edit commands make ") +
          a + " equal to " + b + "\n"),
      std::string::npos)
      << run.err;
}

}  // namespace
}  // namespace quarvel
