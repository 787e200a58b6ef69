// What `quarvel view` says where it can show nothing. The windows have tests of their own.
#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(ViewCommand, SaysThatNothingCanBeShown) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"view", folder.Example("diet.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "quarvel: there is no display to show windows on; \"quarvel rows\" prints a model\n");
}

TEST(ViewCommand, WantsAFileOrEditing) {
  const Outcome run = RunQuarvel({"view"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with("quarvel: view takes a FILE, or --edit for a new model\n"));
  EXPECT_EQ(RunQuarvel({"view", "a.mps", "b.mps"}).status, 2);
  EXPECT_EQ(RunQuarvel({"view", "a.mps", "--json"}).status, 2);
}

}  // namespace
}  // namespace quarvel
