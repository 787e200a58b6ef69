#include "hosts/completion.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/commands.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

using Strings = std::vector<std::string>;

Completion CompletionOf(const Strings& words) {
  std::ostringstream text;
  return Complete(words, {[] { return std::nullopt; }, text, text});
}

Strings Candidates(const Strings& words) {
  Strings candidates;
  for (const Completion::Candidate& candidate : CompletionOf(words).candidates) {
    candidates.push_back(candidate.word);
  }
  return candidates;
}

bool Has(const Strings& words, const std::string& word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

TEST(Completion, KnowsEveryCommand) {
  const Completion all = CompletionOf({""});
  ASSERT_EQ(all.candidates.size(), Commands().size());
  for (std::size_t i = 0; i < Commands().size(); ++i) {
    EXPECT_EQ(all.candidates[i].word, Commands()[i].name);
    EXPECT_EQ(all.candidates[i].purpose, Commands()[i].summary);
  }
  EXPECT_EQ(Candidates({"ro"}), (Strings{"rows", "row"}));
  EXPECT_EQ(Candidates({"help", "ex"}), Strings{"explain"});
  EXPECT_EQ(Candidates({"--color", "never", "ex"}), Strings{"explain"});
  EXPECT_EQ(Candidates({"polish", ""}), Strings{});
  EXPECT_EQ(Candidates({}), Strings{});
}

TEST(Completion, KnowsTheOptionsOfACommandThatAreNotGivenYet) {
  EXPECT_EQ(Candidates({"rows", "a.mps", "--eq"}), Strings{"--equations"});
  EXPECT_EQ(Candidates({
                "--li",
            }),
            Strings{});
  EXPECT_EQ(Candidates({"--he"}), Strings{"--help"});
  EXPECT_EQ(Candidates({"rows", "--json", "--js"}), Strings{});
  EXPECT_EQ(Candidates({"rows", "--match", "*", "--mat"}), Strings{"--match"});
  EXPECT_EQ(Candidates({"check", "--integer"}), Strings{});
  EXPECT_EQ(Candidates({"row", "--", "--js"}), Strings{});
  EXPECT_EQ(CompletionOf({"rows", "--eq"}).candidates.at(0).purpose,
            "print each row as an equation");
}

TEST(Completion, KnowsTheValuesOfOptions) {
  EXPECT_EQ(Candidates({"rows", "--color", ""}), (Strings{"auto", "always", "never"}));
  EXPECT_EQ(Candidates({"rows", "--color=a"}), (Strings{"--color=auto", "--color=always"}));
  EXPECT_EQ(Candidates({"info", "--default-bounds", ""}), (Strings{"0", "inf"}));
  EXPECT_EQ(Candidates({"info", "--on-error", "s"}), Strings{"stop"});
  EXPECT_EQ(Candidates({"rows", "--limit", ""}), Strings{"all"});
  EXPECT_EQ(Candidates({"rows", "--sort", "-el"}), Strings{"-elements"});
  EXPECT_EQ(Candidates({"columns", "--columns=name,obj"}), Strings{"--columns=name,objective"});
  EXPECT_EQ(Candidates({"rows", "--columns", "name,obj"}), Strings{});
  EXPECT_EQ(CompletionOf({"why", "--log", ""}).files, Completion::Files::kAny);
  EXPECT_EQ(CompletionOf({"why", "--log="}).files, Completion::Files::kAny);
  EXPECT_EQ(Candidates({"rows", "--no-such", "--li"}), Strings{"--limit"});
  EXPECT_EQ(Candidates({"rows", "--type", ""}), (Strings{"E", "G", "L", "N", "R"}));
  EXPECT_EQ(Candidates({"columns", "--type=binary,i"}), Strings{"--type=binary,integer"});
  EXPECT_EQ(Candidates({"check", "--only", "E90"}), Strings{"E901"});
  EXPECT_EQ(Candidates({"check", "--ignore", "E901,long-n"}), Strings{"E901,long-names"});
  EXPECT_EQ(CompletionOf({"check", "--only", "E90"}).candidates.at(0).purpose, "failure");
  EXPECT_EQ(Candidates({"edit", "a", "b", "-c", "set-n"}), Strings{"set-name"});
  EXPECT_EQ(CompletionOf({"edit", "-c", "set-n"}).candidates.at(0).purpose, "TEXT");
}

TEST(Completion, LeavesFilesToTheShell) {
  using enum Completion::Files;
  EXPECT_EQ(CompletionOf({"rows", ""}).files, kModels);
  EXPECT_EQ(CompletionOf({"rows", "a", ""}).files, kNone);
  EXPECT_EQ(CompletionOf({"info", "a", "b", ""}).files, kModels);
  EXPECT_EQ(CompletionOf({"convert", "a", ""}).files, kAny);
  EXPECT_EQ(CompletionOf({"diff", "a", ""}).files, kModels);
  EXPECT_EQ(CompletionOf({"why", "a", ""}).files, kAny);
  EXPECT_EQ(CompletionOf({"rows", "--json", "--limit", "5", ""}).files, kModels);
  EXPECT_EQ(CompletionOf({""}).files, kNone);
}

TEST(Completion, ReadsNamesFromTheModel) {
  const HostFolder folder;
  const std::string diet = folder.Example("diet.mps");
  EXPECT_EQ(Candidates({"row", diet, "C"}), (Strings{"COST", "CALORIES", "CALCIUM"}));
  EXPECT_EQ(Candidates({"row", diet, "cal"}), (Strings{"CALORIES", "CALCIUM"}));
  EXPECT_EQ(Candidates({"column", diet, "C"}), (Strings{"CHEESE", "CABBAGE"}));
  EXPECT_EQ(Candidates({"explain", diet, "CA"}), (Strings{"CALORIES", "CALCIUM", "CABBAGE"}));
  EXPECT_EQ(Candidates({"evaluate", diet, "CO"}), Strings{"COST"});
  EXPECT_EQ(Candidates({"evaluate", diet, "COST", "BREAD=2", "MI"}), Strings{"MILK="});
  EXPECT_EQ(Candidates({"info", diet, "--objective", "CO"}), Strings{"COST"});
  EXPECT_EQ(Candidates({"info", diet, "--objective", ""}), Strings{"COST"});
  EXPECT_EQ(Candidates({"info", diet, "--objective=CO"}), Strings{"--objective=COST"});
  EXPECT_EQ(CompletionOf({"explain", diet, "CAB"}).candidates.at(0).purpose, "column");
}

TEST(Completion, HasNoNamesWhereThereIsNoModelToRead) {
  const HostFolder folder;
  EXPECT_EQ(Candidates({"row", folder.Path("none.mps"), ""}), Strings{});
  EXPECT_EQ(Candidates({"row", folder.Path(""), ""}), Strings{});
  EXPECT_EQ(Candidates({"row", "-", ""}), Strings{});
  EXPECT_EQ(Candidates({"info", "--objective", ""}), Strings{});
}

TEST(Completion, LeavesOutNamesThatWouldSteerATerminal) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "ROWS\n N A\x1b[2J\n N AB\n N A\xE2\x80\xAE\nCOLUMNS\n X AB 1\nENDATA\n");
  EXPECT_EQ(Candidates({"row", model, "A"}), Strings{"AB"});
}

TEST(Completion, EndsListsOfNames) {
  const HostFolder folder;
  std::string rows;
  for (int i = 0; i < 700; ++i) rows += " N R" + std::to_string(i) + "\n";
  const std::string model = folder.Write("a.mps", "ROWS\n" + rows + "COLUMNS\n X R1 1\nENDATA\n");
  EXPECT_EQ(Candidates({"row", model, ""}).size(), kMostNames);
  EXPECT_EQ(Candidates({"row", model, "R699"}), Strings{"R699"});
}

TEST(Completion, IsPrintedForScripts) {
  EXPECT_EQ(RunQuarvel({"__complete", "help", "vi"}).out, "none\nview\tshow a model in a window\n");
  EXPECT_EQ(RunQuarvel({"__complete", "rows", ""}).out, "models\n");
  EXPECT_EQ(RunQuarvel({"__complete", "why", "--log", ""}).out, "files\n");
  EXPECT_EQ(RunQuarvel({"__complete", "rows", "--limit", ""}).out, "none\nall\n");
  EXPECT_EQ(RunQuarvel({"__complete"}).out, "none\n");
  EXPECT_TRUE(Has(Candidates({""}), "completion"));
}

}  // namespace
}  // namespace quarvel::hosts
