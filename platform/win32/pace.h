// How often long work lets a window live: about eight times a second. A turn of the message loop
// with its painting costs milliseconds, and the read of a large file takes half a second.
#pragma once

#include <chrono>

namespace quarvel::platform::win32 {

inline constexpr std::chrono::milliseconds kPaintInterval{120};

inline bool PaintIsDue(std::chrono::steady_clock::time_point last) {
  return std::chrono::steady_clock::now() - last >= kPaintInterval;
}

}  // namespace quarvel::platform::win32
