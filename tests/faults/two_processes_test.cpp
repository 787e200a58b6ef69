// Two processes save one file at the same time: it becomes one of the two, whole; each tells the
// truth; and nothing temporary is left once a save has gone through alone.
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <stdexcept>
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

std::vector<std::string> EditToBound(const std::string& column) {
  return {"edit", "m.mps", "m.mps", "-c", "set-bound " + column + " UP 5"};
}

// Two edits of one file, each of its own column: what one of them has saved is never lost by the other.
class TwoEdits : public ::testing::TestWithParam<bool> {
 protected:
  TwoEdits() {
    way_.second_names = {{"second.mps", "m.mps"}};
    if (!GetParam()) way_.second_names.clear();
    folder_.Lay();
    old_content_ = folder_.Content("m.mps");
    left_content_ = ContentAfter(left_, folder_.RecordPath());
    both_contents_ = ContentAfter(right_, "", false);
    right_content_ = ContentAfter(right_, "");
    EXPECT_NE(left_content_, right_content_);
    EXPECT_NE(both_contents_, left_content_);
  }

  Start StartOf(const std::vector<std::string>& words, const std::string& faults = "",
                const std::string& record = "") const {
    Start start = folder_.StartOf(faults, record);
    start.words = words;
    return start;
  }

  std::optional<std::string> ContentAfter(const std::vector<std::string>& words,
                                          const std::string& record, bool anew = true) const {
    if (anew) folder_.Lay();
    EXPECT_EQ(RunChild(StartOf(words, "", record)).status, 0);
    return folder_.Content("m.mps");
  }

  void Check(const Ended& left, const Ended& right) {
    ++rounds_;
    refused_ += (left.status != 0) + (right.status != 0);
    const auto& told = left.status == 0 ? (right.status == 0 ? both_contents_ : left_content_)
                                        : (right.status == 0 ? right_content_ : old_content_);
    EXPECT_TRUE(folder_.Content("m.mps") == told)
        << "left: status " << left.status << ", " << left.err << "right: status " << right.status
        << ", " << right.err;
    EXPECT_EQ(folder_.Disorder(), "");
  }

  // The number of the call that brings the new contents to the disk.
  std::size_t Flush() const {
    const auto calls = ReadRecord(folder_.RecordPath());
    for (std::size_t number = calls.size(); number >= 1; --number) {
      const RecordedCall& call = calls[number - 1];
      if (call.kind == "sync" && call.path.ends_with("/.m.mps.quarvel-0~")) return number;
    }
    throw std::runtime_error("nothing was flushed");
  }

  // The numbers of the calls around it, and of some before and after. While the left one holds the file
  // the right one waits, so that each place after the flush takes long.
  std::vector<std::size_t> Places() const {
    const std::size_t flush = Flush();
    const auto before = static_cast<std::size_t>(Rounds(40, 3));
    const auto after = static_cast<std::size_t>(Rounds(4, 1));
    std::vector<std::size_t> places;
    for (std::size_t number = 1; number <= ReadRecord(folder_.RecordPath()).size(); ++number) {
      const bool around = number + 3 >= flush && number <= flush + 3;
      if (around || number % (number < flush ? before : after) == 0) places.push_back(number);
    }
    return places;
  }

  const std::vector<std::string> left_ = EditToBound("C1");
  const std::vector<std::string> right_ = EditToBound("C4000");
  WayOfSaving way_{
      .name = "TwoEdits", .words = left_, .files = {{"m.mps", kOld}}, .backup = "m.bkp"};
  SavingFolder folder_{way_};
  std::optional<std::string> old_content_;
  std::optional<std::string> left_content_;
  std::optional<std::string> right_content_;
  std::optional<std::string> both_contents_;
  int rounds_ = 0;
  int refused_ = 0;
};

TEST_P(TwoEdits, LoseNothingWhereverOneOfThemIsHeldUp) {
  for (const std::size_t place : Places()) {
    SCOPED_TRACE("left stops at call " + std::to_string(place));
    folder_.Lay();
    Child left(StartOf(left_, std::to_string(place) + "=before:" + std::to_string(SIGSTOP)));
    ASSERT_TRUE(left.PausesWithin(60000) && left.stopped());
    Child right(StartOf(right_));
    right.PausesWithin(300);
    left.Send(SIGCONT);
    const Ended left_end = left.Wait();
    Check(left_end, right.Wait());
    if (HasFailure()) break;
  }
  std::cout << rounds_ << " rounds, " << refused_ << " saves refused\n";
}

TEST_P(TwoEdits, LoseNothingWhenTheyStartTogether) {
  std::mt19937 random(2);
  for (int round = 0; round < Rounds(20, 200) && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    folder_.Lay();
    Child left(StartOf(left_));
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
    Child right(StartOf(right_));
    const Ended left_end = left.Wait();
    Check(left_end, right.Wait());
  }
  std::cout << rounds_ << " rounds, " << refused_ << " saves refused\n";
}

// A slow disk has the flush take seconds, in which any program may write the file.
TEST_P(TwoEdits, LeaveWhatIsWrittenDuringTheFlush) {
  folder_.Lay();
  Child left(StartOf(left_, std::to_string(Flush()) + "=before:" + std::to_string(SIGSTOP)));
  ASSERT_TRUE(left.PausesWithin(60000) && left.stopped());
  WriteWholeFile(folder_.path() + "/m.mps", "written by others");
  left.Send(SIGCONT);
  const Ended ended = left.Wait();
  EXPECT_EQ(ended.status, 1);
  EXPECT_NE(ended.err.find("another program has changed the file since it was read"),
            std::string::npos)
      << ended.err;
  EXPECT_EQ(folder_.Content("m.mps"), "written by others");
}

INSTANTIATE_TEST_SUITE_P(Names, TwoEdits, ::testing::Bool(), [](const auto& names) {
  return names.param ? "FileOfTwoNames" : "FileOfOneName";
});

INSTANTIATE_TEST_SUITE_P(Ways, TwoProcesses, ::testing::ValuesIn(Contests()),
                         [](const auto& contest) { return contest.param.way.name; });

}  // namespace
}  // namespace quarvel::faults
