// Two processes save one file at the same time: it becomes one of the two, whole; each tells the
// truth; and nothing temporary is left once a save has gone through alone.
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "tests/faults/effort.h"
#include "tests/faults/recorded_calls.h"
#include "tests/faults/way_of_saving.h"

namespace quarvel::faults {
namespace {

struct Contest {
  WayOfSaving way;
  // What the other process is called with.
  std::vector<std::string> other_words;
};

void PrintTo(const Contest& contest, std::ostream* out) { *out << contest.way.name; }

std::vector<std::string> EditToBeNamed(const std::string& name) {
  return {"edit", "m.mps", "m.mps", "-c", "set-name " + name, "-c", "set-bound C4999 UP 9"};
}

std::vector<Contest> Contests() {
  const std::vector<std::string> left = EditToBeNamed("LEFT");
  const std::vector<std::string> right = EditToBeNamed("RIGHT");
  return {
      {{.name = "OwnFile", .words = left, .files = {{"m.mps", kOld}}, .backup = "m.bkp"}, right},
      {{.name = "OwnFileOfTwoNames",
        .words = left,
        .files = {{"m.mps", kOld}},
        .second_names = {{"second.mps", "m.mps"}},
        .backup = "m.bkp",
        .in_place = true},
       right},
      {{.name = "AnotherFile",
        .words = {"convert", "new.mps", "m.mps"},
        .files = {{"m.mps", kStale}, {"new.mps", kNew}, {"old.mps", kOld}}},
       {"convert", "old.mps", "m.mps"}},
      {{.name = "ANewFile",
        .words = {"convert", "new.mps", "m.mps"},
        .files = {{"new.mps", kNew}, {"old.mps", kOld}}},
       {"convert", "old.mps", "m.mps"}},
  };
}

class TwoProcesses : public ::testing::TestWithParam<Contest> {
 protected:
  TwoProcesses() {
    old_content_ = ContentAfter("", {});
    left_content_ = ContentAfter(folder_.RecordPath(), GetParam().way.words);
    names_ = folder_.Names();
    right_content_ = ContentAfter("", GetParam().other_words);
  }

  std::optional<std::string> ContentAfter(const std::string& record,
                                          const std::vector<std::string>& words) {
    folder_.Lay();
    if (!words.empty()) {
      Start start = folder_.StartOf("", record);
      start.words = words;
      EXPECT_EQ(RunChild(start).status, 0);
    }
    return folder_.Content(GetParam().way.target);
  }

  Start RightStart() const {
    Start start = folder_.StartOf();
    start.words = GetParam().other_words;
    return start;
  }

  // What both have said is true of the file, which is whole.
  void Check(const Ended& left, const Ended& right) {
    ++rounds_;
    const auto content = folder_.Content(GetParam().way.target);
    const bool is_left = content == left_content_ && left.status == 0;
    const bool is_right = content == right_content_ && right.status == 0;
    const bool is_old = content == old_content_ && left.status != 0 && right.status != 0;
    EXPECT_TRUE(is_left || is_right || is_old)
        << "left: status " << left.status << ", " << left.err << "right: status " << right.status
        << ", " << right.err << (content ? content->size() : 0) << " bytes";
    EXPECT_EQ(folder_.Disorder(), "");
    failed_ += (left.status != 0) + (right.status != 0);
    const Ended alone = folder_.Save();
    EXPECT_EQ(alone.status, 0) << alone.err;
    EXPECT_EQ(folder_.Content(GetParam().way.target), left_content_);
    EXPECT_EQ(folder_.Names(), names_);
  }

  void Tell() const {
    std::cout << rounds_ << " rounds, " << failed_ << " of " << 2 * rounds_ << " saves refused\n";
  }

  SavingFolder folder_{GetParam().way};
  std::optional<std::string> old_content_;
  std::optional<std::string> left_content_;
  std::optional<std::string> right_content_;
  std::vector<std::string> names_;
  int rounds_ = 0;
  int failed_ = 0;
};

TEST_P(TwoProcesses, LeaveOneFileWholeWhereverOneOfThemIsHeldUp) {
  const int step = Rounds(25, 1);
  const auto calls = ReadRecord(folder_.RecordPath());
  for (std::size_t number = 1; number <= calls.size(); number += static_cast<std::size_t>(step)) {
    SCOPED_TRACE("left stops at " + calls[number - 1].kind + " (" + std::to_string(number) + ")");
    folder_.Lay();
    Child left(folder_.StartOf(std::to_string(number) + "=before:" + std::to_string(SIGSTOP)));
    ASSERT_TRUE(left.PausesWithin(60000) && left.stopped());
    Child right(RightStart());
    // One that waits for the other cannot end before it.
    right.PausesWithin(2000);
    left.Send(SIGCONT);
    const Ended left_end = left.Wait();
    Check(left_end, right.Wait());
    if (HasFailure()) break;
  }
  Tell();
}

TEST_P(TwoProcesses, LeaveOneFileWholeWhenTheyStartTogether) {
  std::mt19937 random(1);
  const int rounds = Rounds(3, 100);
  for (int round = 0; round < rounds && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    folder_.Lay();
    Child left(folder_.StartOf());
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
    Child right(RightStart());
    const Ended left_end = left.Wait();
    Check(left_end, right.Wait());
  }
  Tell();
}

INSTANTIATE_TEST_SUITE_P(Ways, TwoProcesses, ::testing::ValuesIn(Contests()),
                         [](const auto& contest) { return contest.param.way.name; });

}  // namespace
}  // namespace quarvel::faults
