// What stands on the screen where a window is.
#pragma once

#include <vector>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<COLORREF> pixels;
  bool operator==(const Picture&) const = default;

  COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
  // How many lines of pixels there are from the top down to the last that has another colour.
  int InkHeight(COLORREF ground) const;
};

// Of its inner area, after it has painted what is due.
Picture PictureOf(HWND window);

}  // namespace quarvel::platform::win32
