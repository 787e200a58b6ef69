// What a user sees of the lists on terminals of 80 and 200 columns, and what a pipe gets.
#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using hosts::Screen;

constexpr Screen kNarrow = {.is_terminal = true, .width = 80, .takes_colors = false};
constexpr Screen kWide = {.is_terminal = true, .width = 200, .takes_colors = false};
constexpr Screen kColored = {.is_terminal = true, .width = 80, .takes_colors = true};

constexpr std::string_view kLongName =
    "A_NAME_THAT_SOMEBODY_MADE_OF_ALL_THAT_IS_KNOWN_OF_A_COLUMN_0123456789_0123456789";

std::string LongNames() {
  return "ROWS\n N COST\nCOLUMNS\n " + std::string(kLongName) +
         " COST 1234567.125\n"
         " 鋼板_1 COST -2\n X COST 3\nBOUNDS\n UP B X 12.5\nENDATA\n";
}

std::string ManyColumns(int count) {
  std::string text = "ROWS\n N COST\nCOLUMNS\n";
  for (int j = 0; j < count; ++j) text += " X" + std::to_string(j) + " COST 1\n";
  return text + "ENDATA\n";
}

int Lines(std::string_view text) {
  return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

TEST(Transcripts, OfATableOn80Columns) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", LongNames());
  EXPECT_EQ(RunQuarvelOn(kNarrow, {"columns", model}).out,
            "Index  Name                                         Type  Lower  Upper  Elements\n"
            "    0  A_NAME_THAT_SOMEBODY_MADE_OF_ALL_THAT_IS...  R         0    inf         1\n"
            "    1  鋼板_1                                       R         0    inf         1\n"
            "    2  X                                            R         0   12.5         1\n");
}

TEST(Transcripts, OfATableOn200Columns) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", LongNames());
  EXPECT_EQ(
      RunQuarvelOn(kWide, {"columns", model}).out,
      "Index  Name                                                                              Type  Lower  Upper  Elements\n"
      "    0  A_NAME_THAT_SOMEBODY_MADE_OF_ALL_THAT_IS_KNOWN_OF_A_COLUMN_0123456789_0123456789  R         0    inf         1\n"
      "    1  鋼板_1                                                                            R         0    inf         1\n"
      "    2  X                                                                                 R         0   12.5         1\n");
}

TEST(Transcripts, OfATableInAPipe) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", LongNames());
  EXPECT_EQ(
      RunQuarvel({"columns", model}).out,
      "Index  Name                                                                              Type            Lower            Upper  Elements\n"
      "    0  A_NAME_THAT_SOMEBODY_MADE_OF_ALL_THAT_IS_KNOWN_OF_A_COLUMN_0123456789_0123456789  R                   0              inf         1\n"
      "    1  鋼板_1                                                                            R                   0              inf         1\n"
      "    2  X                                                                                 R                   0             12.5         1\n");
}

TEST(Transcripts, InColors) {
  const HostFolder folder;
  const std::string model = folder.Example("transport.mps");
  const std::vector<std::string> words = {"rows", model, "--match", "D*", "--sort", "-lower"};
  const std::string colored =
      "\x1b[1mIndex  Name     Type  Lower  Upper  Elements\x1b[0m\n"
      "    3  DEMAND1  G       325    inf         2\n"
      "    4  DEMAND2  G       300    inf         2\n"
      "    5  DEMAND3  G       275    inf         2\n"
      "\x1b[2m(3 of 6 rows)\x1b[0m\n";
  EXPECT_EQ(RunQuarvelOn(kColored, words).out, colored);
  std::vector<std::string> never = words;
  never.emplace_back("--color=never");
  EXPECT_EQ(RunQuarvelOn(kColored, never).out, RunQuarvelOn(kNarrow, words).out);
  std::vector<std::string> always = words;
  always.insert(always.end(), {"--color", "always"});
  EXPECT_EQ(RunQuarvelOn(kNarrow, always).out, colored);
}

TEST(Transcripts, OfEquations) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const std::vector<std::string> words = {"rows", model, "--equations"};
  EXPECT_EQ(RunQuarvelOn(kNarrow, words).out,
            "Index  Name      Equation\n"
            "    0  COST       + 18*BREAD + 11*MILK ... 3 more  (non-binding/objective)\n"
            "    1  CALORIES   + 250*BREAD + 64*MILK + 380*CHEESE ... 2 more  >=  15400\n"
            "    2  PROTEIN    + 9*BREAD + 3.3*MILK + 25*CHEESE ... 2 more  >=  420\n"
            "    3  CALCIUM    + 30*BREAD + 120*MILK + 750*CHEESE ... 2 more  >=  7000\n"
            "    4  WEIGHT     + 1*BREAD + 1*MILK + 1*CHEESE + 1*BEANS + 1*CABBAGE  <=  140\n");
  EXPECT_EQ(RunQuarvelOn(kWide, words).out, RunQuarvel(words).out);
  const std::vector<std::string> full = {"rows", model, "--equations", "--full"};
  EXPECT_EQ(RunQuarvelOn(kNarrow, full).out, RunQuarvel(words).out);
}

TEST(Transcripts, OfOneRecord) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", ManyColumns(1500));
  const std::vector<std::string> words = {"row", model, "COST"};
  std::string expected =
      "\x1b[1mRow\x1b[0m       COST (number 0)\n\x1b[1mType\x1b[0m      N\n"
      "\x1b[1mLower\x1b[0m     -inf\n\x1b[1mUpper\x1b[0m     inf\n\x1b[1mEquation\x1b[0m  ";
  for (int j = 0; j < 45; ++j) expected += " + 1*X" + std::to_string(j);
  expected += " ... 1,455 more  (non-binding/objective)\n\x1b[1mElements\x1b[0m  1500\n";
  for (int j = 0; j < 20; ++j) {
    expected += "          X" + std::to_string(j) + (j < 10 ? "   1\n" : "  1\n");
  }
  expected += "\x1b[2m          ... 1,480 more (--full lists all)\x1b[0m\n";
  EXPECT_EQ(RunQuarvelOn(kColored, words).out, expected);
  EXPECT_EQ(Lines(RunQuarvelOn(kWide, words).out), 27);
  EXPECT_EQ(Lines(RunQuarvel(words).out), 1506);
  EXPECT_EQ(RunQuarvelOn(kNarrow, {"row", model, "COST", "--full"}).out, RunQuarvel(words).out);
}

TEST(Transcripts, EndWithHowManyThereAre) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", ManyColumns(1500));
  const struct {
    std::vector<std::string> options;
    int lines;  // on a terminal
    const char* end;
  } cases[] = {
      {{}, 102, "\n(the first 100 of 1,500 columns; --full lists all)\n"},
      {{"--full"}, 1501, "         1\n"},
      {{"--limit", "1200"}, 1202, "\n(the first 1,200 of 1,500 columns)\n"},
      {{"--limit", "all"}, 1501, "         1\n"},
      {{"--match", "X1?"}, 12, "\n(10 of 1,500 columns)\n"},
      {{"--match", "X1*"},
       102,
       "\n(the first 100 of the 611 that match, of 1,500 columns; --full lists all)\n"},
  };
  for (const auto& c : cases) {
    std::vector<std::string> words = {"columns", model};
    words.insert(words.end(), c.options.begin(), c.options.end());
    const Outcome run = RunQuarvelOn(kNarrow, words);
    EXPECT_EQ(Lines(run.out), c.lines) << c.end;
    EXPECT_TRUE(run.out.ends_with(c.end)) << run.out.substr(run.out.size() - 80);
  }
  EXPECT_TRUE(
      RunQuarvel({"columns", model, "--match", "X1?"}).out.ends_with("\n(10 of 1500 columns)\n"));
  EXPECT_EQ(Lines(RunQuarvel({"columns", model}).out), 1501);
  // What programs read is whole on a terminal too.
  EXPECT_EQ(RunQuarvelOn(kNarrow, {"columns", model, "--json"}).out,
            RunQuarvel({"columns", model, "--json"}).out);
  EXPECT_EQ(RunQuarvelOn(kNarrow, {"columns", model, "--csv"}).out,
            RunQuarvel({"columns", model, "--csv"}).out);
}

}  // namespace
}  // namespace quarvel
