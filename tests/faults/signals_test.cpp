// A signal ends the program at some moment of the save of a large file: the file is whole.
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "tests/faults/effort.h"
#include "tests/faults/way_of_saving.h"

namespace quarvel::faults {
namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::microseconds;

const WayOfSaving& SaveOfALargeFile() {
  static const WayOfSaving way = {
      .name = "LargeFile",
      .words = {"edit", "m.mps", "m.mps", "-c", "set-name NEW", "-c", "set-bound C99999 UP 8"},
      .files = {{"m.mps", kLarge}},
      .backup = "m.bkp"};
  return way;
}

class Signals : public ::testing::TestWithParam<std::vector<int>> {
 protected:
  Signals() {
    folder_.Lay();
    const auto start = Clock::now();
    EXPECT_EQ(folder_.Save().status, 0);
    duration_ = std::chrono::duration_cast<Microseconds>(Clock::now() - start);
    new_content_ = folder_.Content("m.mps");
  }

  // Sends the signals that long after the start.
  Ended SaveWithSignals(Microseconds delay) const {
    Child child(folder_.StartOf());
    std::this_thread::sleep_for(delay);
    for (const int signal : GetParam()) {
      child.Send(signal);
      std::this_thread::sleep_for(Microseconds(200));
    }
    return child.Wait();
  }

  SavingFolder folder_{SaveOfALargeFile()};
  Microseconds duration_{};
  std::optional<std::string> new_content_;
};

TEST_P(Signals, LeaveALargeFileWhole) {
  std::mt19937 random(1);
  int ended_early = 0;
  const int rounds = Rounds(2, 40);
  for (int round = 0; round < rounds; ++round) {
    folder_.Lay();
    const Microseconds delay(random() % static_cast<unsigned>(duration_.count()));
    const Ended ended = SaveWithSignals(delay);
    ended_early += ended.status != 0;
    const auto content = folder_.Content("m.mps");
    const bool is_new = content == new_content_;
    EXPECT_TRUE(is_new || content == Bytes(kLarge)) << delay.count() << " us";
    EXPECT_TRUE(is_new || ended.status != 0) << ended.err;
    const auto backup = folder_.Content("m.bkp");
    EXPECT_TRUE(!backup || backup == Bytes(kLarge)) << delay.count() << " us";
  }
  std::cout << rounds << " rounds, " << ended_early << " ended by the signal\n";
  EXPECT_EQ(folder_.Save().status, 0);
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"m.mps"});
}

INSTANTIATE_TEST_SUITE_P(Kinds, Signals,
                         ::testing::Values(std::vector{SIGKILL}, std::vector{SIGTERM},
                                           std::vector{SIGHUP}, std::vector{SIGINT, SIGINT}),
                         [](const auto& signals) {
                           return std::string(sigabbrev_np(signals.param[0])) +
                                  (signals.param.size() > 1 ? "Twice" : "");
                         });

}  // namespace
}  // namespace quarvel::faults
