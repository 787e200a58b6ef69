// Power goes at each moment of a save: whatever part of what was not flushed the disk then holds, it
// has the old file or the new one whole; and the new one once the program has told of its success.
#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

#include "tests/faults/simulated_disk.h"
#include "tests/faults/way_of_saving.h"

namespace quarvel::faults {
namespace {

class Power : public ::testing::TestWithParam<WayOfSaving> {
 protected:
  Power() {
    folder_.Lay();
    old_content_ = folder_.Content(GetParam().target);
    for (const auto& [name, which] : GetParam().files) disk_.Put(Path(name), Bytes(which));
    for (const auto& [name, other] : GetParam().second_names) {
      disk_.PutName(Path(name), Path(other));
    }
    ended_ = folder_.Save("", folder_.RecordPath());
    new_content_ = folder_.Content(GetParam().target);
  }

  std::string Path(const std::string& name) const { return folder_.path() + '/' + name; }

  static std::optional<std::string> In(const DiskState& state, const std::string& path) {
    const auto found = state.find(path);
    return found == state.end() ? std::nullopt : std::optional(found->second);
  }

  bool IsWhole(const DiskState& state) const {
    const auto target = In(state, Path(GetParam().target));
    if (target == old_content_ || target == new_content_) return true;
    if (!GetParam().HasASecondCopy()) return false;
    return std::any_of(state.begin(), state.end(), [&](const auto& file) {
      const std::string name = file.first.substr(file.first.rfind('/') + 1);
      const bool is_whole = file.second == old_content_ || file.second == new_content_;
      return GetParam().MayBackUp(name) && is_whole;
    });
  }

  SavingFolder folder_{GetParam()};
  SimulatedDisk disk_;
  Ended ended_;
  std::optional<std::string> old_content_;
  std::optional<std::string> new_content_;
};

TEST_P(Power, LeavesTheOldOrTheNewFileWholeWheneverItGoes) {
  int states = 0;
  int torn = 0;
  for (const RecordedCall& call : ReadRecord(folder_.RecordPath())) {
    disk_.Apply(call);
    if (!call.changes) continue;
    disk_.ForEachState([&](const DiskState& state) {
      ++states;
      if (IsWhole(state)) return;
      if (torn++ == 0) ADD_FAILURE() << "after " << call.kind << ' ' << call.path;
    });
  }
  std::cout << states << " states: " << torn << " with neither file whole\n";
  EXPECT_EQ(torn, 0);
}

TEST_P(Power, LeavesTheNewFileOnceSuccessIsTold) {
  for (const RecordedCall& call : ReadRecord(folder_.RecordPath())) disk_.Apply(call);
  for (const std::string& name : folder_.Names()) {
    if (GetParam().links.contains(name)) continue;
    EXPECT_EQ(In(disk_.Seen(), Path(name)), folder_.Content(name)) << name;
  }
  ASSERT_EQ(ended_.status, 0) << ended_.err;
  int lost = 0;
  disk_.ForEachState([&](const DiskState& state) {
    if (In(state, Path(GetParam().target)) != new_content_) ++lost;
  });
  EXPECT_EQ(lost, 0);
}

std::vector<WayOfSaving> ProtectedWays() {
  std::vector<WayOfSaving> ways;
  for (const WayOfSaving& way : WaysOfSaving()) {
    if (!way.fails && !way.is_unprotected) ways.push_back(way);
  }
  return ways;
}

INSTANTIATE_TEST_SUITE_P(Ways, Power, ::testing::ValuesIn(ProtectedWays()),
                         [](const auto& way) { return way.param.name; });

}  // namespace
}  // namespace quarvel::faults
