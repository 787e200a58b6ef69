#include "tests/win32/picture.h"

#include <algorithm>

namespace quarvel::platform::win32 {

int Picture::InkHeight(COLORREF ground) const {
  for (int y = height; y > 0; --y) {
    const auto line = pixels.begin() + std::ptrdiff_t{y - 1} * width;
    if (std::any_of(line, line + width, [ground](COLORREF c) { return c != ground; })) return y;
  }
  return 0;
}

Picture PictureOf(HWND window) {
  UpdateWindow(window);
  RECT inner = {};
  GetClientRect(window, &inner);
  Picture picture = {inner.right, inner.bottom, {}};
  const HDC screen = GetDC(window);
  for (int y = 0; y < inner.bottom; ++y) {
    for (int x = 0; x < inner.right; ++x) picture.pixels.push_back(GetPixel(screen, x, y));
  }
  ReleaseDC(window, screen);
  return picture;
}

}  // namespace quarvel::platform::win32
