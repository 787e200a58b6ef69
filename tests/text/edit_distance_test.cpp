#include "text/edit_distance.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

using Words = std::vector<std::string>;

// The whole table, as a textbook has it.
std::size_t PlainDistance(const std::string& a, const std::string& b) {
  std::vector<std::vector<std::size_t>> table(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        table[i][j] = i + j;
        continue;
      }
      table[i][j] = std::min({table[i - 1][j] + 1, table[i][j - 1] + 1,
                              table[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
      }
    }
  }
  return table[a.size()][b.size()];
}

TEST(EditDistance, CountsSteps) {
  EXPECT_EQ(EditDistance("", "", 3), 0u);
  EXPECT_EQ(EditDistance("check", "check", 3), 0u);
  EXPECT_EQ(EditDistance("chek", "check", 3), 1u);
  EXPECT_EQ(EditDistance("chekc", "check", 3), 1u);
  EXPECT_EQ(EditDistance("czeck", "check", 3), 1u);
  EXPECT_EQ(EditDistance("kitten", "sitting", 3), 3u);
  EXPECT_EQ(EditDistance("kitten", "sitting", 2), 3u);
  EXPECT_EQ(EditDistance("", "abc", 2), 3u);
}

TEST(EditDistance, IsThatOfTheWholeTable) {
  std::mt19937 random(5);
  for (int i = 0; i < 5000; ++i) {
    std::string words[2];
    for (std::string& word : words) {
      word.resize(random() % 9);
      for (char& c : word) c = static_cast<char>('a' + random() % 3);
    }
    for (std::size_t limit = 0; limit <= 7; ++limit) {
      EXPECT_EQ(EditDistance(words[0], words[1], limit),
                std::min(PlainDistance(words[0], words[1]), limit + 1))
          << words[0] << ' ' << words[1] << ' ' << limit;
    }
  }
}

Words Nearest(std::string_view wanted, const Words& offered) {
  NearestWords nearest(wanted);
  for (const std::string& word : offered) nearest.Offer(word);
  return nearest.words();
}

TEST(NearestWords, AreTheFirstOfTheNearest) {
  EXPECT_EQ(Nearest("colums", {"rows", "column", "columns"}), (Words{"column", "columns"}));
  EXPECT_EQ(Nearest("clumns", {"column", "columns"}), (Words{"columns"}));
  EXPECT_EQ(Nearest("R9", {"R1", "R2", "R3", "R4"}), (Words{"R1", "R2", "R3"}));
  EXPECT_EQ(Nearest("polish", {"rows", "columns"}), Words{});
  EXPECT_EQ(Nearest("X", {"Y", "Z"}), Words{});
}

TEST(NearestWords, MayBeginWithWhatWasTyped) {
  EXPECT_EQ(Nearest("cal", {"CALCIUM", "CALORIES", "BREAD"}), (Words{"CALCIUM", "CALORIES"}));
  EXPECT_EQ(Nearest("--lim", {"--limit", "--list"}), Words{"--limit"});
  EXPECT_EQ(Nearest("c", {"CALCIUM"}), Words{});
}

TEST(NearestWords, AreNearInEitherCase) {
  EXPECT_EQ(Nearest("ROWS", {"row", "rows"}), Words{"rows"});
  EXPECT_EQ(Nearest("SET-NAEM", {"set-name"}), Words{"set-name"});
}

TEST(NearestWords, AreAskedFor) {
  EXPECT_EQ(DidYouMean({}), "");
  EXPECT_EQ(DidYouMean({"A"}), "; did you mean A?");
  EXPECT_EQ(DidYouMean({"A", "B"}), "; did you mean A or B?");
  EXPECT_EQ(DidYouMean({"A", "B", "C"}), "; did you mean A, B or C?");
}

}  // namespace
}  // namespace quarvel::text
