// How much is listed on a terminal and in a pipe. tests/transcripts has how it looks.
#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using hosts::Screen;

constexpr Screen kNarrow = {.is_terminal = true, .width = 80, .takes_colors = false};
constexpr Screen kWide = {.is_terminal = true, .width = 200, .takes_colors = false};
constexpr Screen kColored = {.is_terminal = true, .width = 80, .takes_colors = true};

std::string ManyColumns(int count) {
  std::string text = "ROWS\n N COST\nCOLUMNS\n";
  for (int j = 0; j < count; ++j) text += " X" + std::to_string(j) + " COST 1\n";
  return text + "ENDATA\n";
}

int Lines(std::string_view text) {
  return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

TEST(ListLength, OfOneRecordIsCutOnATerminal) {
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

TEST(ListLength, EndsWithHowManyThereAre) {
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
