// What an edit says of the records that it is given, and of what it has no use for.
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Edit, SaysWhichRecordIsMeantWhereANameLooksLikeANumber) {
  const HostFolder folder;
  const auto edit = [&folder](const char* command, std::string_view model) {
    return RunQuarvel({"edit", folder.Write("a.mps", model), folder.Path("b.mps"), "-c", command});
  };
  constexpr std::string_view kModel =
      "ROWS\n N C\n L #0\n L 2\nCOLUMNS\n X C 1 #0 1\n X 2 1\nENDATA\n";
  EXPECT_EQ(edit("set-row-bounds #0 -inf inf", kModel)
                .err.find("quarvel: #0 is taken as a number; the row of that name is #1\n"),
            0U);
  EXPECT_EQ(edit("rename-row 2 TWO", kModel).err, "");
  constexpr std::string_view kSwapped =
      "ROWS\n N C\n L 2\n L B\nCOLUMNS\n X C 1 2 1\n X B 1\nENDATA\n";
  EXPECT_EQ(edit("delete-row 2", kSwapped).err,
            "quarvel: 2 is taken as a name, that of row #1; #2 is B\n");
}

TEST(Edit, TakesALogOnlyWhereItSimplifies) {
  const HostFolder folder;
  const std::vector<std::string> words = {"edit", folder.Write("a.mps", kSmallModel),
                                          folder.Path("b.mps"), "--log", folder.Path("log")};
  const Outcome run = RunQuarvel(words, "set-bound X UP 7\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(
      run.err.substr(0, run.err.find('\n')),
      "quarvel: edit takes --log with --simplify or the command simplify, whose doings it lists");
  EXPECT_FALSE(folder.Has("b.mps"));
  EXPECT_EQ(RunQuarvel(words, "simplify\n").status, 0);
  EXPECT_TRUE(folder.Has("log"));
}

}  // namespace
}  // namespace quarvel
