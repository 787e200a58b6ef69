// The desktop of Windows that the program shows its windows on. Elsewhere the program has none:
// viewer_program.h.
#pragma once

#include <memory>

#include "platform/desktop.h"

namespace quarvel::hosts {

// Raises where no window can be shown.
std::unique_ptr<platform::Desktop> MakeViewerDesktop();

}  // namespace quarvel::hosts
