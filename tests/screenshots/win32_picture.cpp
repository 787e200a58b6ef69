#include "tests/screenshots/win32_picture.h"

// The second header needs what the first one has.
// clang-format off
#include <propidl.h>
#include <gdiplus.h>
// clang-format on

#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr CLSID kPng = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

HBITMAP CopyOfScreen(const RECT& place) {
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

// One colour inside of the frame that every window has.
bool IsBlank(Gdiplus::Bitmap& picture) {
  const UINT left = picture.GetWidth() / 4;
  const UINT top = picture.GetHeight() / 4;
  Gdiplus::Color first;
  Gdiplus::Color other;
  picture.GetPixel(static_cast<INT>(left), static_cast<INT>(top), &first);
  for (UINT y = top; y < 3 * top; ++y) {
    for (UINT x = left; x < 3 * left; ++x) {
      picture.GetPixel(static_cast<INT>(x), static_cast<INT>(y), &other);
      if (other.GetValue() != first.GetValue()) return false;
    }
  }
  return true;
}

}  // namespace

bool SavePicture(HWND window, const std::string& path) {
  RECT place;
  if (!GetWindowRect(window, &place)) return false;
  ULONG_PTR token = 0;
  const Gdiplus::GdiplusStartupInput input;
  if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
  const HBITMAP bitmap = CopyOfScreen(place);
  bool saved = false;
  {
    Gdiplus::Bitmap picture(bitmap, nullptr);
    saved = !IsBlank(picture) && picture.Save(ToWide(path).c_str(), &kPng, nullptr) == Gdiplus::Ok;
  }
  DeleteObject(bitmap);
  Gdiplus::GdiplusShutdown(token);
  return saved;
}

}  // namespace quarvel::platform::win32
