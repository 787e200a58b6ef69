#include "hosts/record_selection.h"

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr std::string_view kMixedModel =
    "NAME MIXED\nROWS\n N COST\n L LIM1\n G MYG\n E MYE\n L NONE\n G RNG\nCOLUMNS\n"
    " X_1 COST 4 LIM1 1\n X_1 MYG 1\n M1 'MARKER' 'INTORG'\n X_2 COST -2 LIM1 1\n X_2 MYE 1 RNG 1\n"
    " Y[1,2] COST 9 LIM1 1\n M2 'MARKER' 'INTEND'\n \xC3\x84 MYG 1\nRHS\n RHS LIM1 4 MYG 1\n"
    " RHS MYE 2 RNG 1\nRANGES\n RNG RNG 5\nBOUNDS\n FR B X_1\n UP B X_2 1\n FX B Y[1,2] 3\nENDATA\n";

class SelectionTest : public ::testing::Test {
 protected:
  // The names that are listed, each with a blank behind it, and what is said at the end.
  std::string Listed(std::vector<std::string> words) const {
    words.insert(words.begin() + 1, model_);
    words.insert(words.end(), {"--columns", "name"});
    const Outcome run = RunQuarvel(words);
    if (run.status != 0) return run.err;
    std::string out = run.out.substr(std::string_view("Name\n").size());
    for (char& c : out) c = c == '\n' ? ' ' : c;
    return out;
  }

  const HostFolder folder_;
  const std::string model_ = folder_.Write("m.mps", kMixedModel);
};

TEST_F(SelectionTest, ChoosesByName) {
  EXPECT_EQ(Listed({"columns", "--match", "x_*"}), "X_1 X_2 (2 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--match", "?"}), "\xC3\x84 (1 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--match", "\xC3\xA4"}), "\xC3\x84 (1 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--match", "y[1,2]"}), "Y[1,2] (1 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--match", "*1", "--match", "Y*"}), "X_1 Y[1,2] (2 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--match", "Z*"}), "(0 of 4 columns) ");
  EXPECT_EQ(Listed({"rows", "--match", "*"}), "COST LIM1 MYG MYE NONE RNG ");
}

TEST_F(SelectionTest, ChoosesByType) {
  EXPECT_EQ(Listed({"rows", "--type", "L"}), "LIM1 NONE (2 of 6 rows) ");
  EXPECT_EQ(Listed({"rows", "--type", "e,G"}), "MYG MYE (2 of 6 rows) ");
  EXPECT_EQ(Listed({"rows", "--type", "N"}), "COST (1 of 6 rows) ");
  EXPECT_EQ(Listed({"rows", "--type", "R"}), "RNG (1 of 6 rows) ");
  EXPECT_EQ(Listed({"columns", "--type", "continuous"}), "X_1 \xC3\x84 (2 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--type", "integer"}), "X_2 Y[1,2] (2 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--integer"}), "X_2 Y[1,2] (2 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--type", "Binary"}), "X_2 (1 of 4 columns) ");
}

TEST_F(SelectionTest, ChoosesByBoundsAndElements) {
  EXPECT_EQ(Listed({"columns", "--free"}), "X_1 (1 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--fixed"}), "Y[1,2] (1 of 4 columns) ");
  EXPECT_EQ(Listed({"rows", "--free"}), "COST (1 of 6 rows) ");
  EXPECT_EQ(Listed({"rows", "--fixed"}), "MYE (1 of 6 rows) ");
  EXPECT_EQ(Listed({"rows", "--empty"}), "NONE (1 of 6 rows) ");
}

TEST_F(SelectionTest, ChoosesByBoundsThatAreThere) {
  const std::string large = folder_.Write(
      "large.mps",
      "ROWS\n L R\nCOLUMNS\n A R 1\n B R 1\n C R 1\nBOUNDS\n FX S A 1e30\n LO S B -2e10\n UP S B 3e10\n"
      " LO S C 1e10\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"columns", large, "--fixed", "--json"}).out, "[\n]\n");
  const std::string free = RunQuarvel({"columns", large, "--free", "--csv"}).out;
  EXPECT_NE(free.find(",B,R,-inf,inf,"), std::string::npos) << free;
  EXPECT_EQ(free.find(",C,"), std::string::npos) << free;
  const std::string all = RunQuarvel({"columns", large, "--csv"}).out;
  EXPECT_NE(all.find(",A,R,1E+30,inf,"), std::string::npos) << all;
  EXPECT_NE(all.find(",C,R,10000000000,inf,"), std::string::npos) << all;
}

TEST_F(SelectionTest, TakesChoicesTogether) {
  EXPECT_EQ(Listed({"rows", "--type", "L", "--match", "N*"}), "NONE (1 of 6 rows) ");
  EXPECT_EQ(Listed({"columns", "--integer", "--free"}), "(0 of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--match", "x*", "--limit", "1"}),
            "X_1 (the first 1 of the 2 that match, of 4 columns) ");
  EXPECT_EQ(Listed({"columns", "--limit", "1"}), "X_1 (the first 1 of 4 columns) ");
}

TEST_F(SelectionTest, TakesTypesAsTheListShowsThem) {
  EXPECT_EQ(Listed({"columns", "--type", "r"}), Listed({"columns", "--type", "continuous"}));
  EXPECT_EQ(Listed({"columns", "--type", "I"}), Listed({"columns", "--type", "integer"}));
}

TEST_F(SelectionTest, TakesListsThatAreGivenAgain) {
  EXPECT_EQ(Listed({"rows", "--type", "G", "--type", "E"}), Listed({"rows", "--type", "G,E"}));
  const std::string columns =
      RunQuarvel({"rows", folder_.Example("diet.mps"), "--columns", "name", "--columns", "upper"})
          .out;
  EXPECT_EQ(columns.substr(0, columns.find('\n')), "Name                Upper");
}

TEST_F(SelectionTest, SortsByAnyColumn) {
  EXPECT_EQ(Listed({"columns", "--sort", "objective"}), "X_2 \xC3\x84 X_1 Y[1,2] ");
  EXPECT_EQ(Listed({"columns", "--sort", "-objective"}), "Y[1,2] X_1 \xC3\x84 X_2 ");
  EXPECT_EQ(Listed({"columns", "--sort=lower"}), "X_1 X_2 \xC3\x84 Y[1,2] ");
  EXPECT_EQ(Listed({"columns", "--sort", "upper"}), "X_2 Y[1,2] X_1 \xC3\x84 ");
  EXPECT_EQ(Listed({"rows", "--sort", "name"}), "COST LIM1 MYE MYG NONE RNG ");
  EXPECT_EQ(Listed({"rows", "--sort", "-index"}), "RNG NONE MYE MYG LIM1 COST ");
  // What is equal stays in the order of the file, from either end.
  EXPECT_EQ(Listed({"rows", "--sort", "elements"}), "NONE MYE RNG MYG COST LIM1 ");
  EXPECT_EQ(Listed({"rows", "--sort", "-elements"}), "COST LIM1 MYG MYE RNG NONE ");
  EXPECT_EQ(Listed({"rows", "--sort", "-elements", "--limit", "2"}),
            "COST LIM1 (the first 2 of 6 rows) ");
}

TEST_F(SelectionTest, TakesTheObjectiveOfTheFile) {
  const std::string model =
      folder_.Write("o.mps", "ROWS\n L R\n N A\n N B\nCOLUMNS\n X R 1 A 5\n X B 7\nENDATA\n");
  const std::vector<std::string> words = {"columns", model, "--columns", "objective"};
  EXPECT_EQ(RunQuarvel(words).out, "      Objective\n              5\n");
  std::vector<std::string> component = words;
  component.insert(component.end(), {"--dialect", "component"});
  EXPECT_EQ(RunQuarvel(component).out, "      Objective\n              5\n");
  const std::string none = folder_.Write("n.mps", "ROWS\n L R\nCOLUMNS\n X R 1\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"columns", none, "--columns", "objective"}).out,
            "      Objective\n              0\n");
}

TEST_F(SelectionTest, SaysWhatItTakes) {
  const struct {
    std::vector<std::string> words;
    const char* complaint;
  } cases[] = {
      {{"rows", "--type", "Q"}, "--type takes E, G, L, N, R, not \"Q\""},
      {{"rows", "--type", "integer"}, "--type takes E, G, L, N, R, not \"integer\""},
      {{"columns", "--type", "L"}, "--type takes continuous, integer, binary, R, I, not \"L\""},
      {{"columns", "--type", "integer,"},
       "--type takes continuous, integer, binary, R, I, not \"\""},
      {{"rows", "--sort", "elemnts"},
       "--sort takes index, name, type, lower, upper, elements, equation, not \"elemnts\"; did you "
       "mean elements?"},
      {{"rows", "--sort", "objective"},
       "--sort takes index, name, type, lower, upper, elements, equation, not \"objective\""},
      {{"rows", "--sort", "-"},
       "--sort takes index, name, type, lower, upper, elements, equation, not \"\""},
      {{"rows", "--sort", "name,type"}, "--sort takes one key"},
      {{"rows", "--integer"}, "rows takes no --integer"},
      {{"rows", "--match", ""}, "--match takes PATTERN, not \"\""},
  };
  for (const auto& c : cases) {
    std::vector<std::string> words = c.words;
    words.insert(words.begin() + 1, folder_.Path("is-not-read"));
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 2) << c.complaint;
    EXPECT_TRUE(run.err.starts_with(std::string("quarvel: ") + c.complaint + "\n")) << run.err;
  }
}

}  // namespace
}  // namespace quarvel
