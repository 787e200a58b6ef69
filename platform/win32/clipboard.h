// The clipboard of the user.
#pragma once

#include <string_view>

namespace quarvel::platform::win32 {

// Replaces what the clipboard holds; it is left alone when it cannot be had.
void SetClipboardText(std::string_view text);

}  // namespace quarvel::platform::win32
