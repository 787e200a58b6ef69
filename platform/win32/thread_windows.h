// The other windows of this thread: whose of them a new window belongs to, and keeping the user out
// of them for a while.
#pragma once

#include <vector>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// The window that a new one stands over: the thread's active window, or else the topmost form of
// the component; null when there is neither.
HWND OwnerWindow();

// What the screen of that window, or the first one for null, has to offer to windows.
RECT WorkArea(HWND window);

// Disables windows of this thread and, when it goes, enables exactly those again. Several may hold
// one window: the last of them to go enables it, in whatever order they go, and even when they
// belong to different objects of one thread. For that each disabled window counts its holders.
class DisabledWindows {
 public:
  enum class Which { kAll, kForms };
  DisabledWindows() = default;
  // All but `spared`, which may be null.
  DisabledWindows(Which which, HWND spared);
  ~DisabledWindows() { Enable(); }
  DisabledWindows(DisabledWindows&& other) noexcept = default;
  DisabledWindows& operator=(DisabledWindows&& other) noexcept;

  void Enable();

 private:
  std::vector<HWND> windows_;
};

// Windows that `owner` owns stand over `heir` from now on, which may be null: they would go down
// with it.
void HandOverOwned(HWND owner, HWND heir);

}  // namespace quarvel::platform::win32
