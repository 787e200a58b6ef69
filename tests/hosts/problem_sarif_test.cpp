#include <set>
#include <string>

#include <gtest/gtest.h>

#include "mps/file_problem.h"
#include "tests/support/json_value.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using Kind = JsonValue::Kind;

JsonValue CheckAsSarif(const std::string& path, const std::vector<std::string>& options = {}) {
  std::vector<std::string> words = {"check", path, "--sarif"};
  words.insert(words.end(), options.begin(), options.end());
  return JsonValue::Parse(RunQuarvel(words).out);
}

bool IsLevel(const JsonValue& level) {
  return std::set<std::string>{"note", "warning", "error"}.count(level.text()) == 1;
}

TEST(ProblemSarif, HasWhatItsStandardAsksForInALog) {
  const HostFolder folder;
  const JsonValue log = CheckAsSarif(folder.Example("mistakes.mps"));
  EXPECT_EQ(log["version"].text(), "2.1.0");
  EXPECT_TRUE(log["$schema"].text().ends_with("/sarif-schema-2.1.0.json"));
  ASSERT_EQ(log["runs"].size(), 1U);
  const JsonValue& run = log["runs"][0];
  EXPECT_EQ(run["tool"]["driver"]["name"].text(), "quarvel");
  EXPECT_EQ(run["tool"]["driver"]["version"].kind(), Kind::kText);
  EXPECT_EQ(run["columnKind"].text(), "unicodeCodePoints");
  EXPECT_EQ(run["results"].kind(), Kind::kArray);
  EXPECT_EQ(run["invocations"][0]["executionSuccessful"].text(), "true");
  EXPECT_EQ(run["invocations"][0]["exitCode"].number(), 1);
}

TEST(ProblemSarif, HasARuleForEachCode) {
  const HostFolder folder;
  const JsonValue log = CheckAsSarif(folder.Write("a.mps", kSmallModel));
  const JsonValue& rules = log["runs"][0]["tool"]["driver"]["rules"];
  ASSERT_EQ(rules.size(), mps::FileProblemTable().size());
  for (const mps::FileProblemTraits& traits : mps::FileProblemTable()) {
    const JsonValue& rule = rules[static_cast<std::size_t>(traits.code)];
    EXPECT_EQ(rule["id"].text(), traits.id);
    EXPECT_EQ(rule["name"].text(), traits.name);
    EXPECT_EQ(rule["shortDescription"]["text"].text(), traits.words);
    EXPECT_NE(rule["help"]["text"].text().find(traits.words), std::string::npos);
    EXPECT_TRUE(IsLevel(rule["defaultConfiguration"]["level"])) << traits.id;
  }
  EXPECT_EQ(rules[9]["help"]["text"].text(),
            "What is wrong: no row of this name. What is accepted: a name of the section ROWS. See "
            "docs/problems.md#e110-no-such-row.");
}

TEST(ProblemSarif, HasAResultForEachProblem) {
  const HostFolder folder;
  const JsonValue log = CheckAsSarif(folder.Example("mistakes.mps"));
  const JsonValue& run = log["runs"][0];
  const JsonValue& rules = run["tool"]["driver"]["rules"];
  ASSERT_EQ(run["results"].size(), 35U);
  for (const JsonValue& result : run["results"].items()) {
    const auto index = static_cast<std::size_t>(result["ruleIndex"].number());
    EXPECT_EQ(rules[index]["id"].text(), result["ruleId"].text());
    EXPECT_TRUE(IsLevel(result["level"]));
    EXPECT_FALSE(result["message"]["text"].text().empty());
    ASSERT_EQ(result["locations"].size(), 1U);
    const JsonValue& place = result["locations"][0]["physicalLocation"];
    EXPECT_TRUE(place["artifactLocation"]["uri"].text().ends_with("/mistakes.mps"));
    const JsonValue& region = place["region"];
    if (region.is_null()) continue;
    EXPECT_GE(region["startLine"].number(), 1);
    EXPECT_EQ(region.Has("startColumn"), region.Has("endColumn"));
    if (region.Has("startColumn")) {
      EXPECT_GE(region["startColumn"].number(), 1);
      EXPECT_GT(region["endColumn"].number(), region["startColumn"].number());
    }
    EXPECT_EQ(place["contextRegion"]["startLine"].text(), region["startLine"].text());
    EXPECT_EQ(place["contextRegion"]["snippet"]["text"].kind(), Kind::kText);
  }
}

TEST(ProblemSarif, RelatesOtherLines) {
  const HostFolder folder;
  const JsonValue log = CheckAsSarif(folder.Example("mistakes.mps"), {"--only", "E204"});
  const JsonValue& related = log["runs"][0]["results"][0]["relatedLocations"];
  ASSERT_EQ(related.size(), 1U);
  EXPECT_EQ(related[0]["physicalLocation"]["region"]["startLine"].text(), "41");
}

TEST(ProblemSarif, CountsColumnsInCharacters) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "\xC3\xA4 b.mps", "ROWS\n L R1\nCOLUMNS\n \xC3\x84\xE4\xB8\xAD R1 1 R\xC3\xBCx 2\nENDATA\n");
  const JsonValue log = CheckAsSarif(model, {"--only", "E"});
  const JsonValue& result = log["runs"][0]["results"][0];
  const JsonValue& place = result["locations"][0]["physicalLocation"];
  EXPECT_EQ(place["region"]["startColumn"].text(), "10");
  EXPECT_EQ(place["region"]["endColumn"].text(), "13");
  EXPECT_EQ(result["locations"][0]["logicalLocations"][0]["name"].text(), "R\xC3\x9CX");
  const std::string& uri = place["artifactLocation"]["uri"].text();
  EXPECT_TRUE(uri.ends_with("/%C3%A4%20b.mps")) << uri;
  EXPECT_TRUE(uri.starts_with("file:///")) << uri;
}

TEST(ProblemSarif, KeepsARelativePath) {
  const JsonValue log = CheckAsSarif("no such/file.mps");
  const JsonValue& run = log["runs"][0];
  EXPECT_EQ(run["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"].text(),
            "no%20such/file.mps");
  EXPECT_EQ(run["invocations"][0]["executionSuccessful"].text(), "false");
}

}  // namespace
}  // namespace quarvel
