// Text at the border to Windows: UTF-8 inside, UTF-16 there.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view wide);

// The text that a window shows, whatever its length.
std::string WindowText(HWND window);
void SetWindowTextTo(HWND window, std::string_view text);

}  // namespace quarvel::platform::win32
