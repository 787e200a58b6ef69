// Whether there is a display at all: a QApplication without one ends the process.
#pragma once

namespace quarvel::platform::qt {

// True when the platform that Qt will choose can be reached, or is one that needs no display.
bool HasDisplay();

}  // namespace quarvel::platform::qt
