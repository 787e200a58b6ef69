// Coefficients that the user enters.
#pragma once

#include "platform/desktop.h"

namespace quarvel::viewer {

// Warns of a value that no standard MPS file can hold. It is only a warning.
void WarnOfLongValue(platform::Desktop& desktop, double value);

}  // namespace quarvel::viewer
