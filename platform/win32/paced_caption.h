// The caption of a window whose form may change it far more often than anybody can read.
#pragma once

#include <chrono>
#include <string_view>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class PacedCaption {
 public:
  // Shows the new caption, or puts that off when the last one has only just been shown.
  void Change(HWND window, std::string_view caption);
  // Shows `caption`, the present one, if that was deferred.
  void Flush(HWND window, std::string_view caption);

 private:
  bool stale_ = false;
  std::chrono::steady_clock::time_point shown_{};
};

}  // namespace quarvel::platform::win32
