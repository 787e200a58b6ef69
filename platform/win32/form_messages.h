// Messages that the windows of forms send themselves.
#pragma once

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// A window that was taken off the screen inside one of its own events may be destroyed now.
inline constexpr UINT kDestroySoon = WM_APP + 1;
// The child window in `lParam` shows its control's state again.
inline constexpr UINT kSynchronize = WM_APP + 2;

}  // namespace quarvel::platform::win32
