// The desktop of Windows: native windows and boxes, drawn from inside whatever process and thread
// it was made on. It takes nothing from its host: window classes, the version of the common
// controls, the current folder and the quit message stay as they are, and the process keeps its own
// way with high resolutions. One thread; two threads with a desktop each share nothing.
//
// The accessibility services give controls their automation names where COM is initialised on the
// thread.
#pragma once

#include <memory>

#include "platform/desktop.h"
#include "platform/win32/win32.h"

namespace quarvel::platform {

// `module` is the program or library that this code is linked into: its manifest resource number 2,
// when it has one, says which common controls are used. It must stay loaded while the desktop
// lives. Raises when the system has no window class left to give.
std::unique_ptr<Desktop> MakeWin32Desktop(HINSTANCE module);

}  // namespace quarvel::platform
