// Tests on the real desktop of Windows, with a user who acts while a window waits.
#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/win32/win32_desktop.h"
#include "tests/win32/user_steps.h"

namespace quarvel::platform::win32 {

class Win32Test : public ::testing::Test {
 protected:
  ~Win32Test() override { EXPECT_TRUE(user_.AllDone()) << "the user had more to do"; }

  Desktop& desktop() { return *desktop_; }
  void DropDesktop() { desktop_.reset(); }
  UserSteps& user() { return user_; }
  // Waits for the window of that title, then acts on it.
  template <typename Action>
  void On(const std::wstring& title, Action action) {
    user_.Until("window " + std::string(title.begin(), title.end()), [title, action] {
      const HWND window = FindTopWindow(title);
      if (window == nullptr) return false;
      action(window);
      return true;
    });
  }

 private:
  std::unique_ptr<Desktop> desktop_ = MakeWin32Desktop(GetModuleHandleW(nullptr));
  UserSteps user_;
};

}  // namespace quarvel::platform::win32
