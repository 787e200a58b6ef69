#include "hosts/progress_window.h"

#include <chrono>

#include <gtest/gtest.h>

#include "platform/console/console_desktop.h"
#include "tests/support/console_fixture.h"

namespace quarvel::hosts {
namespace {

using platform::ConsoleDesktopTest;
using platform::Printed;

class ProgressWindowTest : public ConsoleDesktopTest {};

TEST(BytesOfProgress, AreForPeople) {
  EXPECT_EQ(BytesText(0), "0 bytes");
  EXPECT_EQ(BytesText(999), "999 bytes");
  EXPECT_EQ(BytesText(5.3), "5 bytes");
  EXPECT_EQ(BytesText(1000), "1 KB");
  EXPECT_EQ(BytesText(1540), "1.5 KB");
  EXPECT_EQ(BytesText(33'700'000), "34 MB");
  EXPECT_EQ(BytesText(999'900'000), "1 GB");
  EXPECT_EQ(BytesText(5e12), "5000 GB");
}

TEST_F(ProgressWindowTest, TellsPartAndRateAndLeavesNothingBehind) {
  desktop_.set_shows_progress(true);
  std::string shown;
  const std::string erased = Printed([&] {
    ProgressWindow window(desktop_, "Writing a.mps");
    shown = ::testing::internal::GetCapturedStderr();
    ::testing::internal::CaptureStderr();
    EXPECT_TRUE(window.Update(10, 0.25));
    shown = ::testing::internal::GetCapturedStderr();
    ::testing::internal::CaptureStderr();
  });
  EXPECT_EQ(shown, "\rWriting a.mps (25.%) [#######.......................]");
  // With what a Ctrl-C behind it would show.
  EXPECT_EQ(erased, std::string(shown.size() - 1 + 2, ' '));
}

TEST_F(ProgressWindowTest, TellsBytesWhereTheWholeIsNotKnown) {
  desktop_.set_shows_progress(true);
  EXPECT_NE(Printed([&] {
              ProgressWindow window(desktop_, "Reading a.mps");
              window.Update(2'000'000, PartOf(2'000'000, 0));
            }).find("Reading a.mps (2 MB) [..."),
            std::string::npos);
}

TEST_F(ProgressWindowTest, HasARateAfterHalfASecond) {
  desktop_.set_shows_progress(true);
  const std::string printed = Printed([&] {
    ProgressWindow window(desktop_, "Reading a.mps");
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(600);
    while (std::chrono::steady_clock::now() < until) {
    }
    window.Update(1'000'000'000'000, 0.5);
  });
  EXPECT_NE(printed.find(" GB/s), "), std::string::npos) << printed;
}

}  // namespace
}  // namespace quarvel::hosts
