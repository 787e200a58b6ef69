#include "platform/win32/window_class.h"

#include <array>
#include <string_view>

#include "platform/automation_error.h"

namespace quarvel::platform::win32 {
namespace {

// A class belongs to the whole module, whatever thread asks for it.
SRWLOCK count_lock = SRWLOCK_INIT;
int count = 0;

class Locked {
 public:
  Locked() { AcquireSRWLockExclusive(&count_lock); }
  ~Locked() { ReleaseSRWLockExclusive(&count_lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
};

}  // namespace

WindowClass::WindowClass(HINSTANCE module, WNDPROC procedure) : module_(module) {
  const Locked locked;
  if (count == 0) {
    WNDCLASSEXW form = {};
    form.cbSize = sizeof(form);
    form.lpfnWndProc = procedure;
    form.hInstance = module;
    form.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    form.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    form.lpszClassName = kFormClass;
    if (RegisterClassExW(&form) == 0) RaiseRunTimeError(RunTimeError::kOutOfMemory);
  }
  ++count;
}

WindowClass::~WindowClass() {
  const Locked locked;
  if (--count == 0) UnregisterClassW(kFormClass, module_);
}

bool IsFormWindow(HWND window) {
  std::array<wchar_t, 32> name;
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return std::wstring_view(name.data(), static_cast<std::size_t>(length)) == kFormClass;
}

}  // namespace quarvel::platform::win32
