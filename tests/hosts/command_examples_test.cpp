#include "hosts/command_examples.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/commands.h"
#include "hosts/streams.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/shell_line.h"

namespace quarvel::hosts {
namespace {

namespace fs = std::filesystem;

// The folder of the examples, which are run one after the other.
class Examples : public ::testing::Test {
 protected:
  Examples() {
    for (const auto& entry : fs::directory_iterator(SourceFolder() + "/examples")) {
      if (entry.is_regular_file()) folder_.Example(entry.path().filename().string());
    }
    const std::string folder = folder_.Path("");
    fs::current_path(std::u8string(folder.begin(), folder.end()));
  }
  ~Examples() override { fs::current_path(before_); }

  // What find problems and differences say so by their status.
  static std::set<int> StatusesOf(std::string_view command) {
    if (command == "check") return {kGood, kProblem, kWarnings};
    if (command == "diff" || command == "why" || command == "dialects") return {kGood, kProblem};
    return {kGood};
  }

  const fs::path before_ = fs::current_path();
  const HostFolder folder_;
};

TEST_F(Examples, AreTwoToFourOfEachCommandAndItsOwn) {
  for (const Command& command : Commands()) {
    const auto examples = ExamplesOf(command.name);
    EXPECT_GE(examples.size(), 2U) << command.name;
    EXPECT_LE(examples.size(), 4U) << command.name;
    for (const CommandExample& example : examples) {
      const std::vector<std::string> words = TakeShellLineApart(example.line).words;
      ASSERT_GE(words.size(), 2U) << example.line;
      EXPECT_EQ(words[0], "quarvel") << example.line;
      EXPECT_EQ(words[1], command.name) << example.line;
      EXPECT_NO_THROW(ParseArguments(std::vector<std::string>(words.begin() + 1, words.end())))
          << example.line;
      EXPECT_FALSE(example.purpose.empty()) << example.line;
    }
  }
  EXPECT_TRUE(ExamplesOf("polish").empty());
}

TEST_F(Examples, RunAsTheyStand) {
  for (const Command& command : Commands()) {
    if (command.name == "view") continue;  // opens windows
    for (const CommandExample& example : ExamplesOf(command.name)) {
      const ShellLine line = TakeShellLineApart(example.line);
      const std::string input = line.input.empty() ? "" : folder_.Read(line.input);
      const Outcome run = RunQuarvel({line.words.begin() + 1, line.words.end()}, input);
      EXPECT_TRUE(StatusesOf(command.name).contains(run.status)) << example.line << '\n' << run.err;
      EXPECT_EQ(run.err.find("tells more"), std::string::npos) << example.line << '\n' << run.err;
    }
  }
}

TEST_F(Examples, StandInTheHelpOfTheirCommand) {
  for (const Command& command : Commands()) {
    const std::string help = RunQuarvel({"help", std::string(command.name)}).out;
    EXPECT_EQ(help, RunQuarvel({std::string(command.name), "--help"}).out);
    const std::string_view title = "\nExamples:\n";
    EXPECT_NE(help.find(title), std::string::npos) << command.name;
    EXPECT_EQ(help.find(title), help.rfind(title)) << command.name;
    for (const CommandExample& example : ExamplesOf(command.name)) {
      const std::string shown =
          std::string("  # ").append(example.purpose).append("\n  ").append(example.line);
      EXPECT_NE(help.find(shown + '\n'), std::string::npos) << help;
    }
  }
}

}  // namespace
}  // namespace quarvel::hosts
