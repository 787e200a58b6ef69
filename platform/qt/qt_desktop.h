// The desktop of Linux: windows, boxes and dialogs by Qt 6 Widgets.
#pragma once

#include <memory>

#include "platform/desktop.h"

namespace quarvel::platform {

// Null when there is no display to show windows on. Makes the QApplication unless the process has
// one, and keeps it as long as the desktop lives; forms and models that use the desktop must be
// gone before it. Several desktops may live one after the other, on the thread of the application.
std::unique_ptr<Desktop> MakeQtDesktop();

}  // namespace quarvel::platform
