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
  EXPECT_EQ(arguments.on_error, OnError::kAsk);
  EXPECT_EQ(arguments.on_conflict, OnConflict::kAsk);
  EXPECT_FALSE(arguments.simplify);
  EXPECT_EQ(arguments.used, 0u);
}

TEST(Arguments, TakeEveryWordOfAChoice) {
  EXPECT_EQ(Parse({"--on-error", "ask"}).on_error, OnError::kAsk);
  EXPECT_EQ(Parse({"--on-error", "stop"}).on_error, OnError::kStop);
  EXPECT_EQ(Parse({"--on-error", "continue"}).on_error, OnError::kContinue);
  EXPECT_EQ(Parse({"--on-conflict", "remove"}).on_conflict, OnConflict::kRemove);
  EXPECT_EQ(Parse({"--on-conflict", "reset"}).on_conflict, OnConflict::kReset);
  EXPECT_EQ(Parse({"--on-conflict", "stop"}).on_conflict, OnConflict::kStop);
  EXPECT_EQ(Parse({"--default-bounds", "0"}).infinite_default_bounds, false);
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
