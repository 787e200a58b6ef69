// The system's keys as the component knows them.
#pragma once

#include "platform/keys.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

inline bool IsDown(int key) { return GetKeyState(key) < 0; }

// A virtual key, with what is held down beside it. Key::kNone for a key that means nothing to the
// component.
KeyPress ToKeyPress(WPARAM key);

}  // namespace quarvel::platform::win32
