// A user for windows of this thread: a list of steps that a timer plays, one after the other, while
// a modal loop or a box of the system waits. A step is tried again until it says that it is done,
// so it may wait for a window to come up. A step that is never done, or a window that stays when no
// step is left, ends the program with a failure: nobody is there to close what the test waits for.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "platform/win32/pace.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// Events that come sooner after the last may be passed over.
inline constexpr auto kUntilEventsRunMs = static_cast<DWORD>(kPaintInterval.count()) + 10;

class UserSteps {
 public:
  UserSteps();
  ~UserSteps();
  UserSteps(const UserSteps&) = delete;
  UserSteps& operator=(const UserSteps&) = delete;

  // Tried until it gives true.
  void Until(std::string what, std::function<bool()> step);
  void Then(std::string what, std::function<void()> step);
  bool AllDone() const { return steps_.empty(); }

 private:
  struct Step {
    std::string what;
    std::function<bool()> run;
    ULONGLONG begun_ms;  // 0 until it is tried
  };
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
  void Play();

  std::deque<Step> steps_;
  UINT_PTR timer_;
  ULONGLONG last_played_ms_ = GetTickCount64();
};

// The visible top-level window of this thread with that title; null when there is none.
HWND FindTopWindow(const std::wstring& title);
// The child window of that control name; null when there is none.
HWND FindControl(HWND top, const std::wstring& name);
std::wstring TextOf(HWND window);
// The text that was copied last; a failure, and nothing, when the clipboard cannot be had.
std::wstring ClipboardText();
// Presses a button of a box of the system.
void PressBoxButton(HWND box, int id);
// A key as it comes from the queue, with its character.
void PressKey(HWND window, WPARAM key);

}  // namespace quarvel::platform::win32
