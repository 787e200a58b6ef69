#include "hosts/environment.h"

#include <cstdlib>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "hosts/streams.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

void SetVariable(const char* name, const char* value) {
#ifdef _WIN32
  _putenv_s(name, value);
#else
  setenv(name, value, 1);
#endif
}

class Environment : public ::testing::Test {
 protected:
  ~Environment() override { Set(""); }

  static void Set(const char* value) { SetVariable("QUARVEL_DEFAULT_BOUNDS", value); }
  static std::optional<bool> Taken(const std::vector<std::string>& words) {
    Arguments arguments = ParseArguments(words);
    TakeEnvironment(arguments);
    return arguments.infinite_default_bounds;
  }
  // The lower bound of a column whose file gives none.
  std::string Lower(std::vector<std::string> options) {
    std::vector<std::string> words = {
        "columns", folder_.Write("a.mps", kSmallModel), "--match", "Y", "--columns", "lower",
        "--csv"};
    words.insert(words.end(), options.begin(), options.end());
    return RunQuarvel(words).out;
  }

  const HostFolder folder_;
};

TEST_F(Environment, ChoosesTheDefaultBoundsWhereNoOptionDoes) {
  EXPECT_EQ(Taken({"info", "a"}), std::nullopt);
  Set("inf");
  EXPECT_EQ(Taken({"info", "a"}), true);
  EXPECT_EQ(Taken({"info", "a", "--default-bounds", "0"}), false);
  Set("0");
  EXPECT_EQ(Taken({"info", "a"}), false);
}

TEST_F(Environment, RulesWhatACommandReads) {
  EXPECT_EQ(Lower({}), "lower\r\n0\r\n");
  Set("inf");
  EXPECT_EQ(Lower({}), "lower\r\n-inf\r\n");
  EXPECT_EQ(Lower({"--dialect", "component"}), "lower\r\n-inf\r\n");
  EXPECT_EQ(Lower({"--default-bounds", "0"}), "lower\r\n0\r\n");
}

TEST_F(Environment, IsRefusedWithItsNameWhereItIsWrong) {
  Set("infinite");
  const Outcome run = RunQuarvel({"info", folder_.Write("a.mps", kSmallModel)});
  EXPECT_EQ(run.status, kUsage);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(
      run.err,
      "quarvel: QUARVEL_DEFAULT_BOUNDS in the environment takes 0|inf, not \"infinite\"; change "
      "or unset it, or give --default-bounds\nquarvel: \"quarvel info --help\" tells more\n");
}

TEST_F(Environment, IsNoMatterToWhoDoesNotNeedIt) {
  Set("infinite");
  EXPECT_EQ(RunQuarvel({"--version"}).status, kGood);
  EXPECT_EQ(RunQuarvel({"info", "--help"}).status, kGood);
  EXPECT_EQ(Lower({"--default-bounds", "inf"}), "lower\r\n-inf\r\n");
}

}  // namespace
}  // namespace quarvel::hosts
