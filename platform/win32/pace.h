// How often a screen is worth painting: about sixty times a second.
#pragma once

#include <chrono>

namespace quarvel::platform::win32 {

inline constexpr std::chrono::milliseconds kPaintInterval{16};

inline bool PaintIsDue(std::chrono::steady_clock::time_point last) {
  return std::chrono::steady_clock::now() - last >= kPaintInterval;
}

}  // namespace quarvel::platform::win32
