#include "inspect/name_families.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::inspect {
namespace {

TEST(NameFamilies, ReplaceNumbersAndIndexesWithinBrackets) {
  const struct {
    const char* name;
    const char* pattern;
  } cases[] = {
      {"", ""},
      {"COST", "COST"},
      {"FLOW[3,17]", "FLOW[#,#]"},
      {"FLOW[3,LYON]", "FLOW[#,*]"},
      {"FLOW[B2]", "FLOW[*]"},
      {"FLOW(A;7)X9", "FLOW(*;#)X#"},
      {"FLOW[,]", "FLOW[,]"},
      {"FLOW[]", "FLOW[]"},
      {"FLOW[3,17", "FLOW[#,#"},
      {"FLOW[3)", "FLOW[#)"},
      {"A[1][2]", "A[#][#]"},
      {"X_03_A", "X_#_A"},
      {"CD..0103", "CD..#"},
      {"12", "#"},
      {"P0.5", "P#.#"},
      {"\xC3\x84"
       "3",
       "\xC3\x84#"},
  };
  for (const auto& c : cases) EXPECT_EQ(NameFamilies::PatternOf(c.name), c.pattern) << c.name;
}

// Each name's pattern when all have been joined.
std::vector<std::string> JoinedPatterns(const std::vector<std::string>& names) {
  NameFamilies families;
  std::vector<std::int32_t> numbers;
  for (const std::string& name : names) numbers.push_back(families.Add(name));
  const NameFamilies::Joined joined = families.Join();
  std::vector<std::string> patterns;
  for (const std::int32_t number : numbers) {
    const std::int32_t family = joined.family_of.at(static_cast<std::size_t>(number));
    patterns.push_back(joined.patterns.at(static_cast<std::size_t>(family)));
  }
  return patterns;
}

const std::vector<std::string> kTowns = {"BRNO", "CORK", "GENT", "KIEL", "LYON", "OSLO", "RIGA"};

TEST(NameFamilies, NumberPatternsAsTheyCome) {
  NameFamilies families;
  EXPECT_EQ(families.Add("X1"), 0);
  EXPECT_EQ(families.Add("Y"), 1);
  EXPECT_EQ(families.Add("X22"), 0);
  EXPECT_EQ(families.Add("X22"), 0);
  EXPECT_EQ(families.Add("Y1"), 2);
  EXPECT_EQ(families.count(), 3);
}

// Whatever name comes before.
TEST(NameFamilies, NumberOnePatternAlikeBehindAnyOther) {
  const std::string names[] = {"",     "X",    "X1", "X12", "X1Y",  "X#",      "X##",  "1",    "1X",
                               "X1Y2", "X1Y#", "#",  "X(1", "X(1)", "X(LYON)", "X[1]", "X[1]2"};
  for (const std::string& first : names) {
    for (const std::string& second : names) {
      NameFamilies families;
      const bool same = families.Add(first) == families.Add(second);
      EXPECT_EQ(same, NameFamilies::PatternOf(first) == NameFamilies::PatternOf(second))
          << first << ' ' << second;
    }
  }
}

TEST(NameFamilies, KeepAFewTextsApart) {
  std::vector<std::string> names;
  for (int i = 0; i < NameFamilies::kFewTexts; ++i) {
    names.push_back("X_1_" + kTowns[static_cast<std::size_t>(i)]);
  }
  std::vector<std::string> patterns;
  for (int i = 0; i < NameFamilies::kFewTexts; ++i) {
    patterns.push_back("X_#_" + kTowns[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(JoinedPatterns(names), patterns);
}

TEST(NameFamilies, JoinManyTextsOfOnePart) {
  std::vector<std::string> names;
  for (const std::string& town : kTowns) names.push_back("X_" + town + "_1");
  names.emplace_back("Y_LYON_1");
  std::vector<std::string> patterns(kTowns.size(), "X_*_#");
  patterns.emplace_back("Y_LYON_#");
  EXPECT_EQ(JoinedPatterns(names), patterns);
}

TEST(NameFamilies, JoinSeveralPartsOneAfterTheOther) {
  std::vector<std::string> names;
  for (const std::string& from : kTowns) {
    for (const std::string& to : kTowns) names.push_back("FLOW-" + from + "..." + to);
  }
  EXPECT_EQ(JoinedPatterns(names), std::vector<std::string>(49, "FLOW-*...*"));
}

TEST(NameFamilies, NeverReplaceTheFirstPart) {
  std::vector<std::string> names;
  for (const std::string& town : kTowns) names.push_back(town + "_1");
  std::vector<std::string> patterns;
  for (const std::string& town : kTowns) patterns.push_back(town + "_#");
  EXPECT_EQ(JoinedPatterns(names), patterns);
  EXPECT_EQ(JoinedPatterns(kTowns), kTowns);
  EXPECT_EQ(JoinedPatterns({"_", "..", ""}), (std::vector<std::string>{"_", "..", ""}));
}

TEST(NameFamilies, LeavePartsWithBracketsAlone) {
  std::vector<std::string> names;
  for (const std::string& town : kTowns) names.push_back("X_" + town + "[1]");
  EXPECT_EQ(JoinedPatterns(names).front(), "X_BRNO[#]");
}

}  // namespace
}  // namespace quarvel::inspect
