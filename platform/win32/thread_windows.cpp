#include "platform/win32/thread_windows.h"

#include <utility>

#include "platform/win32/window_class.h"

namespace quarvel::platform::win32 {
namespace {

constexpr wchar_t kHolders[] = L"QuarvelDisabledBy";

BOOL CALLBACK Note(HWND window, LPARAM list) noexcept {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

std::vector<HWND> ThreadWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

INT_PTR Holders(HWND window) { return reinterpret_cast<INT_PTR>(GetPropW(window, kHolders)); }

void SetHolders(HWND window, INT_PTR count) {
  if (count > 0) {
    SetPropW(window, kHolders, reinterpret_cast<HANDLE>(count));
  } else {
    RemovePropW(window, kHolders);
  }
}

bool IsUsable(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

}  // namespace

HWND OwnerWindow() {
  if (HWND active = GetActiveWindow()) {
    if (IsUsable(active)) return active;
    const HWND popup = GetLastActivePopup(active);
    if (popup != nullptr && IsUsable(popup)) return popup;
  }
  for (HWND window : ThreadWindows()) {
    if (IsFormWindow(window) && IsUsable(window)) return window;
  }
  return nullptr;
}

RECT WorkArea(HWND window) {
  MONITORINFO info = {};
  info.cbSize = sizeof(info);
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &info);
  return info.rcWork;
}

DisabledWindows::DisabledWindows(Which which, HWND spared) {
  for (HWND window : ThreadWindows()) {
    if (window == spared || (which == Which::kForms && !IsFormWindow(window))) continue;
    const INT_PTR holders = Holders(window);
    // What its own program has disabled stays so.
    if (holders == 0 && !IsWindowEnabled(window)) continue;
    windows_.push_back(window);
    SetHolders(window, holders + 1);
    EnableWindow(window, FALSE);
  }
}

DisabledWindows& DisabledWindows::operator=(DisabledWindows&& other) noexcept {
  if (this != &other) {
    Enable();
    windows_ = std::exchange(other.windows_, {});
  }
  return *this;
}

void DisabledWindows::Enable() {
  for (HWND window : std::exchange(windows_, {})) {
    const INT_PTR holders = Holders(window);
    if (holders == 0) continue;
    SetHolders(window, holders - 1);
    if (holders == 1) EnableWindow(window, TRUE);
  }
}

void HandOverOwned(HWND owner, HWND heir) {
  for (HWND window : ThreadWindows()) {
    if (GetWindow(window, GW_OWNER) != owner) continue;
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(heir));
  }
}

}  // namespace quarvel::platform::win32
