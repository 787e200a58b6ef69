// What GoogleTest asks of its port when it is compiled for Windows with the win32 thread model,
// which has no std::mutex and no std::condition_variable. GoogleTest's own locks are the system's
// there; only the notification of a thread it has started would need these, and no test starts one.
#pragma once

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
 public:
  void Notify() {}
  void WaitForNotification() {}
};

}  // namespace testing::internal
