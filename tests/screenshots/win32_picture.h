// A picture of what stands on the screen where a window is.
#pragma once

#include <string>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// As a PNG file; false when that fails, or when there would be nothing in it to see.
bool SavePicture(HWND window, const std::string& path);

}  // namespace quarvel::platform::win32
