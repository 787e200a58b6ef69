// What `quarvel view` says where it can show nothing. The windows have tests of their own.
#include <cstdlib>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr const char* kNoDisplay =
    "quarvel: there is no display to show windows on; \"quarvel rows\" prints a model\n";

class ViewCommand : public ::testing::Test {
 protected:
  ViewCommand() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
      unsetenv(variable);
    }
  }

  HostFolder folder_;
};

TEST_F(ViewCommand, SaysThatThereIsNoDisplay) {
  const Outcome run = RunQuarvel({"view", folder_.Example("diet.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, kNoDisplay);
}

TEST_F(ViewCommand, SaysThatADisplayDoesNotAnswer) {
  setenv("DISPLAY", ":65000", 1);
  const Outcome run = RunQuarvel({"view", "--edit"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, kNoDisplay);
}

TEST_F(ViewCommand, WantsAFileOrEditing) {
  const Outcome run = RunQuarvel({"view"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with("quarvel: view takes a FILE, or --edit for a new model\n"));
  EXPECT_EQ(RunQuarvel({"view", "a.mps", "b.mps"}).status, 2);
  EXPECT_EQ(RunQuarvel({"view", "a.mps", "--json"}).status, 2);
}

}  // namespace
}  // namespace quarvel
