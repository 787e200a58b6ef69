#include "platform/win32/dpi.h"

namespace quarvel::platform::win32 {
namespace {

// What systems before Windows 10 do not have.
struct NewerSystem {
  UINT(WINAPI* GetDpiForWindow)(HWND) = nullptr;
  BOOL(WINAPI* AdjustWindowRectExForDpi)(RECT*, DWORD, BOOL, DWORD, UINT) = nullptr;
  BOOL(WINAPI* SystemParametersInfoForDpi)(UINT, UINT, void*, UINT, UINT) = nullptr;
};

template <typename Function>
void Find(HMODULE library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

const NewerSystem& System() {
  static const NewerSystem system = [] {
    NewerSystem found;
    if (HMODULE user = GetModuleHandleW(L"user32.dll")) {
      Find(user, "GetDpiForWindow", found.GetDpiForWindow);
      Find(user, "AdjustWindowRectExForDpi", found.AdjustWindowRectExForDpi);
      Find(user, "SystemParametersInfoForDpi", found.SystemParametersInfoForDpi);
    }
    return found;
  }();
  return system;
}

int ScreenDpi() {
  const HDC screen = GetDC(nullptr);
  if (screen == nullptr) return kFormDpi;
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kFormDpi;
}

}  // namespace

int DpiOf(HWND window) {
  const UINT dpi = System().GetDpiForWindow ? System().GetDpiForWindow(window) : 0;
  return dpi != 0 ? static_cast<int>(dpi) : ScreenDpi();
}

SIZE OuterSize(SIZE inner, DWORD style, DWORD extended_style, bool has_menu, int dpi) {
  RECT area = {0, 0, inner.cx, inner.cy};
  const BOOL menu = has_menu ? TRUE : FALSE;
  if (System().AdjustWindowRectExForDpi) {
    System().AdjustWindowRectExForDpi(&area, style, menu, extended_style, static_cast<UINT>(dpi));
  } else {
    AdjustWindowRectEx(&area, style, menu, extended_style);
  }
  return {area.right - area.left, area.bottom - area.top};
}

FontHolder MessageFont(int dpi) {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof(metrics);
  if (!System().SystemParametersInfoForDpi ||
      !System().SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0,
                                           static_cast<UINT>(dpi))) {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, ScreenDpi());
  }
  return FontHolder(CreateFontIndirectW(&metrics.lfMessageFont));
}

}  // namespace quarvel::platform::win32
