// The program is failed, cut short and killed at every call of the file system that a save makes:
// the file that it saves is always the old one or the new one, whole; the user is told which; and the
// next save succeeds and clears what was left.
#include <iostream>

#include <gtest/gtest.h>

#include "tests/faults/effort.h"
#include "tests/faults/fault_sweep.h"

namespace quarvel::faults {
namespace {

class EveryCall : public ::testing::TestWithParam<WayOfSaving> {};

void Expect(const Tally& tally) {
  std::cout << tally.calls << " calls, " << tally.faults << " faults: " << tally.neither_whole
            << " with neither file whole, " << tally.untrue << " not told truly, " << tally.disorder
            << " in disorder, " << tally.not_saved_again << " not saved again\n";
  for (const std::string& line : tally.told) std::cout << "  " << line << '\n';
  EXPECT_TRUE(tally.IsGood());
}

TEST_P(EveryCall, LeavesTheOldOrTheNewFileWhole) {
  Expect(FaultSweep(GetParam()).Run(IsThorough() ? 1 : 60));
}

TEST_P(EveryCall, LeavesTheOldOrTheNewFileWholeWhenAFailedSaveIsKilled) {
  Expect(FaultSweep(GetParam()).RunFailuresWithAnEnd(IsThorough() ? 2 : 40));
}

TEST_P(EveryCall, LosesNothingMoreWhereAFileWasTorn) {
  const Tally tally = FaultSweep(GetParam()).RunFaultsAfterATornSave(IsThorough() ? 1 : 60);
  EXPECT_EQ(tally.faults > 0, GetParam().HasASecondCopy());
  if (tally.faults > 0) Expect(tally);
}

INSTANTIATE_TEST_SUITE_P(Ways, EveryCall, ::testing::ValuesIn(WaysOfSaving()),
                         [](const auto& way) { return way.param.name; });

}  // namespace
}  // namespace quarvel::faults
