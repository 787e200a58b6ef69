#include "hosts/output_target.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

TEST(OutputTarget, MayBeStandardOutput) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  ASSERT_EQ(RunQuarvel({"convert", model, folder.Path("b.mps")}).status, 0);
  const Outcome run = RunQuarvel({"convert", model, "-"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, folder.Read("b.mps"));
  EXPECT_EQ(run.err,
            "quarvel: standard output: written and verified: 2 rows, 2 columns, 3 coefficients "
            "equal\n");
  ASSERT_EQ(RunQuarvel({"simplify", model, folder.Path("c.mps")}).status, 0);
  EXPECT_EQ(RunQuarvel({"simplify", "-", "-"}, kSmallModel).out, folder.Read("c.mps"));
  ASSERT_EQ(RunQuarvel({"edit", model, folder.Path("d.mps"), "-c", "set-bound X UP 7"}).status, 0);
  EXPECT_EQ(RunQuarvel({"edit", "-", "-", "-c", "set-bound X UP 7"}, kSmallModel).out,
            folder.Read("d.mps"));
  EXPECT_FALSE(folder.Has("-"));
}

TEST(OutputTarget, GetsNothingWhereSomethingWouldBeLost) {
  constexpr std::string_view kLossyModel =
      "ROWS\n N R1\n L R2\n L EMPTY\nCOLUMNS\n X R1 1 R2 2\nENDATA\n";
  const Outcome run =
      RunQuarvel({"convert", "-", "-", "--layout", "fixed", "--strict"}, kLossyModel);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("quarvel: standard output was not written"), std::string::npos) << run.err;
}

TEST(OutputTarget, HasNoRoomForAModelAndAReceipt) {
  const Outcome run = RunQuarvel({"convert", "-", "-", "--json"}, kSmallModel);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_TRUE(run.err.starts_with(
      "quarvel: --json and a model do not both go to standard output: name a file\n"));
}

TEST(OutputTarget, OnATerminalIsNotSteeredByNames) {
  constexpr std::string_view kHostileModel =
      "ROWS\n N C\nCOLUMNS\n \x1b]0;T\a C 1\n \xC2\x9BJ C 2\nENDATA\n";
  const Outcome run =
      RunQuarvelOn({.is_terminal = true, .width = 80}, {"convert", "-", "-"}, kHostileModel);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("\\x1B]0;T\\x07"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\\u009BJ"), std::string::npos) << run.out;
  EXPECT_TRUE(run.out.ends_with("\nENDATA\n"));
  EXPECT_EQ(run.out.find('\x1b'), std::string::npos);
  EXPECT_NE(RunQuarvel({"convert", "-", "-"}, kHostileModel).out.find("\x1b]0;T\a"),
            std::string::npos);
}

TEST(OutputTarget, SaysWhenItIsTheFileThatWasRead) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_EQ(
      RunQuarvel({"convert", model, model}).out,
      folder.Expand("@a.mps: written and verified: 2 rows, 2 columns, 3 coefficients equal, in "
                    "place of what was read\n"));
}

#ifndef _WIN32
TEST(OutputTarget, IsTheFileThatWasReadAlsoByALink) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const std::string link = folder.Path("link.mps");
  const std::string twin = folder.Path("twin.mps");
  std::filesystem::create_symlink(model, link);
  std::filesystem::create_hard_link(model, twin);
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"edit", model, link, "-c", "set-bound X UP 7"},
        {"edit", link, model, "-c", "set-bound X UP 8"},
        {"edit", twin, model, "-c", "set-bound X UP 9"}}) {
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.ends_with(", in place of what was read\n")) << run.out;
    const std::string expected = "X,R,0," + words.back().substr(words.back().size() - 1) + ',';
    EXPECT_NE(RunQuarvel({"columns", model, "--csv"}).out.find(expected), std::string::npos);
  }
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_TRUE(std::filesystem::equivalent(model, twin)) << "both names still are of one file";
  EXPECT_EQ(folder.Read("twin.mps"), folder.Read("a.mps"));
}
#endif

}  // namespace
}  // namespace quarvel::hosts
