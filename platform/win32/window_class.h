// The window class of all forms. Registered while somebody in this module holds one of these, so
// that a DLL leaves no class behind whose code is gone.
#pragma once

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// What tools know the windows of forms by.
inline constexpr wchar_t kFormClass[] = L"QuarvelForm";

class WindowClass {
 public:
  // Raises when the class cannot be registered.
  WindowClass(HINSTANCE module, WNDPROC procedure);
  ~WindowClass();
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;

 private:
  HINSTANCE module_;
};

// Whether a window is a form of this component, of whatever desktop.
bool IsFormWindow(HWND window);

}  // namespace quarvel::platform::win32
