// The desktop that the program shows windows on: the native one of the system.
#pragma once

#include <memory>

#include "platform/desktop.h"

namespace quarvel::hosts {

// Raises, or gives null, where no window can be shown.
std::unique_ptr<platform::Desktop> MakeViewerDesktop();

}  // namespace quarvel::hosts
