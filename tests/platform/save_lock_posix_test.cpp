#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "platform/automation_error.h"
#include "platform/save_lock.h"
#include "platform/system_names.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

class SaveLockTest : public ::testing::Test {
 protected:
  SaveLockTest() {
    WriteWholeFile(path_, "ROWS\n");
    stamp_ = StampUnder(path_).value();
  }

  TemporaryFolder folder_;
  const std::string path_ = folder_.File("model.mps");
  FileStamp stamp_;
};

TEST_F(SaveLockTest, IsRefusedWhileAnotherSaveHoldsIt) {
  const SaveLock first(path_, stamp_);
  try {
    const SaveLock second(path_, stamp_);
    FAIL() << "two saves at once";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.run_time_error(), RunTimeError::kPermissionDenied);
    EXPECT_EQ(error.description(), "Permission denied: another program has locked the file");
  }
}

TEST_F(SaveLockTest, WaitsForTheOther) {
  std::optional<SaveLock> first(std::in_place, path_, stamp_);
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    first.reset();
  });
  EXPECT_NO_THROW({ const SaveLock second(path_, stamp_); });
  other.join();
}

TEST_F(SaveLockTest, IsFreeAgainWhenItEnds) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_NO_THROW({ const SaveLock lock(path_, stamp_); });
  }
}

}  // namespace
}  // namespace quarvel::platform
