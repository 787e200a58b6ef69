#include "platform/win32/paced_caption.h"

#include "platform/win32/pace.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {

void PacedCaption::Change(HWND window, std::string_view caption) {
  stale_ = true;
  if (PaintIsDue(shown_)) Flush(window, caption);
}

void PacedCaption::Flush(HWND window, std::string_view caption) {
  if (!stale_) return;
  stale_ = false;
  shown_ = std::chrono::steady_clock::now();
  SetWindowTextTo(window, caption);
}

}  // namespace quarvel::platform::win32
