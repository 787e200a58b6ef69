// The name that UI-automation tools know a window by. It is the window's automation identifier
// where the system has accessibility services, and on every system a property of the window,
// "QuarvelName", whose value is a global atom of the name: other processes can read that.
#pragma once

#include <string_view>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

inline constexpr wchar_t kNameProperty[] = L"QuarvelName";

void GiveAutomationName(HWND window, std::string_view name);
// Before the window goes: the system keeps names until they are taken back.
void TakeAutomationName(HWND window);

}  // namespace quarvel::platform::win32
