#include "text/glob.h"

#include <string>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

TEST(Glob, MatchesNames) {
  const struct {
    const char* pattern;
    const char* name;
    bool matches;
  } cases[] = {
      {"X1", "X1", true},
      {"x1", "X1", true},
      {"X1", "x1", true},
      {"X1", "X11", false},
      {"", "", true},
      {"", "X", false},
      {"*", "", true},
      {"*", "ANY", true},
      {"X*", "X", true},
      {"X*", "AX", false},
      {"*X", "AXBX", true},
      {"*X*", "ABC", false},
      {"A*B*C", "AXBYBZC", true},
      {"A*B*C", "AXCYB", false},
      {"X?", "X1", true},
      {"X?", "X", false},
      {"X?", "XÄ", true},
      {"xä?", "XÄ1", true},
      {"X[123]", "X2", true},
      {"X[123]", "X4", false},
      {"X[1-3]", "X2", true},
      {"X[1-3]", "X4", false},
      {"X[a-c]", "XB", true},
      {"X[!1-3]", "X4", true},
      {"X[!1-3]", "X2", false},
      {"X[^1-3]", "X", false},
      {"X[]]", "X]", true},
      {"X[-1]", "X-", true},
      {"X[1-]", "X-", true},
      {"X[12", "X[12", true},
      {"X[12*", "X[123", true},
      {"X\\*", "X*", true},
      {"X\\*", "X1", false},
      {"X\\", "X\\", true},
      {"FLOW[3,17]", "FLOW[3,17]", true},
      {"flow[3,17]", "FLOW[3,17]", true},
      {"FLOW[3,17]", "FLOW3", true},
      {"FLOW\\[3,*", "FLOW[3,17]", true},
      {"FLOW\\[3,*", "FLOW[4,17]", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Glob(c.pattern).Matches(c.name), c.matches) << c.pattern << " " << c.name;
  }
}

TEST(Glob, KnowsABracketThatIsNotClosed) {
  EXPECT_TRUE(Glob("X[12").has_open_bracket());
  EXPECT_TRUE(Glob("[A]*[").has_open_bracket());
  EXPECT_FALSE(Glob("X[12]").has_open_bracket());
  EXPECT_FALSE(Glob("X\\[12").has_open_bracket());
}

TEST(Glob, TakesNoLongTimeForManyStars) {
  std::string pattern;
  for (int i = 0; i < 1000; ++i) pattern += "A*";
  EXPECT_FALSE(Glob(pattern + "B").Matches(std::string(20'000, 'A')));
}

}  // namespace
}  // namespace quarvel::text
