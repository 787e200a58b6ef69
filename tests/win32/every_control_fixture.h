// The form of every control, shown in a real window, and the hands of its user.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/control_view.h"
#include "tests/win32/every_control.h"
#include "tests/win32/win32_fixture.h"

namespace quarvel::platform::win32 {

using Events = std::vector<std::string>;

class EveryControlTest : public Win32Test {
 protected:
  EveryControlTest() {
    form_.Show();
    top_ = FindTopWindow(L"Every control");
  }

  HWND top() const { return top_; }
  HWND Child(const Control& control) const {
    return FindControl(top_, std::wstring(control.name().begin(), control.name().end()));
  }
  LRESULT Send(const Control& control, UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(Child(control), message, w, l);
  }
  // Lets what was posted run.
  void RunEvents() {
    Sleep(kUntilEventsRunMs);
    desktop().DoEvents();
  }
  // Presses a key where the keyboard is.
  void Type(WPARAM key) {
    PressKey(GetFocus(), key);
    RunEvents();
  }
  void TypeWith(int modifier, WPARAM key) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[modifier] = 0x80;
    SetKeyboardState(keys);
    Type(key);
    keys[modifier] = 0;
    SetKeyboardState(keys);
  }
  bool HasFocus(const Control& control) const { return GetFocus() == Child(control); }
  int Command(const Control& control) const {
    for (std::size_t i = 0; i < form_.controls().size(); ++i) {
      if (form_.controls()[i] == &control) return kFirstControlId + static_cast<int>(i);
    }
    return 0;
  }

  frmEveryControl form_{desktop()};

 private:
  HWND top_ = nullptr;
};

}  // namespace quarvel::platform::win32
