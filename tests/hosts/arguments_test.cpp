#include "hosts/arguments.h"

#include <gtest/gtest.h>

#include "hosts/streams.h"

namespace quarvel::hosts {
namespace {

Arguments Parse(const std::vector<std::string>& words) { return ParseArguments(words); }

TEST(Arguments, TakeOptionsAnywhere) {
  const Arguments arguments = Parse({"--json", "rows", "--limit", "7", "a.mps", "--equations"});
  EXPECT_EQ(arguments.command, "rows");
  EXPECT_EQ(arguments.operands, std::vector<std::string>{"a.mps"});
  EXPECT_TRUE(arguments.json);
  EXPECT_TRUE(arguments.equations);
  EXPECT_EQ(arguments.limit, 7);
  EXPECT_EQ(arguments.used, kJson | kLimit | kEquations);
}

TEST(Arguments, TakeValuesBehindAnEqualsSign) {
  const Arguments arguments = Parse({"info", "--default-bounds=inf", "--log=a=b"});
  EXPECT_EQ(arguments.infinite_default_bounds, true);
  EXPECT_EQ(arguments.log, "a=b");
}

TEST(Arguments, KeepTheirDefaults) {
  const Arguments arguments = Parse({"info", "a"});
  EXPECT_EQ(arguments.infinite_default_bounds, std::nullopt);
  EXPECT_TRUE(arguments.answers.empty());
  EXPECT_EQ(arguments.used, 0u);
}

TEST(Arguments, TakeEveryWordOfAChoice) {
  for (const QuestionOption& option : QuestionOptions()) {
    for (const GivenAnswer& answer : option.answers) {
      if (option.values.empty()) continue;
      const Arguments arguments = Parse({std::string(option.name), std::string(answer.word)});
      EXPECT_EQ(arguments.answers.at(option.id), &answer) << option.name << ' ' << answer.word;
      EXPECT_EQ(arguments.used, option.id);
    }
  }
  EXPECT_EQ(Parse({"--default-bounds", "0"}).infinite_default_bounds, false);
}

TEST(Arguments, SayHowFilesAreRead) {
  EXPECT_EQ(Parse({"info", "a"}).file_columns, mps::FileColumns::kByLine);
  EXPECT_EQ(Parse({"info", "a", "--file-columns", "fixed"}).file_columns, mps::FileColumns::kFixed);
  EXPECT_EQ(Parse({"info", "a", "--file-columns=free"}).file_columns, mps::FileColumns::kFree);
  EXPECT_EQ(Parse({"info", "a", "--objective", "cost"}).objective, "cost");
  EXPECT_FALSE(Parse({"info", "a", "--negative-upper", "keep"}).negative_upper_frees_lower);
  EXPECT_TRUE(Parse({"info", "a", "--negative-upper", "free"}).negative_upper_frees_lower);
}

TEST(Arguments, TakeNegativeNumbersAsOperands) {
  EXPECT_EQ(Parse({"row", "a", "-1"}).operands, (std::vector<std::string>{"a", "-1"}));
  EXPECT_EQ(Parse({"row", "a", "-.5"}).operands, (std::vector<std::string>{"a", "-.5"}));
  EXPECT_EQ(Parse({"row", "-"}).operands, std::vector<std::string>{"-"});
}

TEST(Arguments, TakeEverythingBehindTwoDashesAsOperands) {
  EXPECT_EQ(Parse({"row", "--", "--json", "-x"}).operands,
            (std::vector<std::string>{"--json", "-x"}));
}

TEST(Arguments, GatherEditCommandsInOrder) {
  const Arguments arguments = Parse({"edit", "-c", "--one", "a", "--command", "two", "b"});
  EXPECT_EQ(arguments.edit_commands, (std::vector<std::string>{"--one", "two"}));
  EXPECT_EQ(arguments.operands, (std::vector<std::string>{"a", "b"}));
}

TEST(Arguments, RefuseAnEmptyPath) {
  EXPECT_THROW(Parse({"--log="}), CommandError);
  EXPECT_THROW(Parse({"--point", ""}), CommandError);
}

}  // namespace
}  // namespace quarvel::hosts
