// Sizes that follow the dots an inch of the screen a window stands on. The process keeps whatever
// awareness its host chose: a window is drawn in the terms that the system gives it.
#pragma once

#include "platform/win32/handles.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

inline constexpr int kFormDpi = 96;  // of form units

int DpiOf(HWND window);

inline int ToPixels(int units, int dpi) { return MulDiv(units, dpi, kFormDpi); }
inline int ToUnits(int pixels, int dpi) { return MulDiv(pixels, kFormDpi, dpi); }

// The outer size of a window of that style around an inner area of that many pixels.
SIZE OuterSize(SIZE inner, DWORD style, DWORD extended_style, bool has_menu, int dpi);

// The font that the system's own message boxes have.
FontHolder MessageFont(int dpi);

}  // namespace quarvel::platform::win32
