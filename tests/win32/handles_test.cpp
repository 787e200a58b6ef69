// Windows that come and go many times leave nothing behind.
#include <algorithm>
#include <string>

#include "mps/frm_set_default_bounds.h"
#include "tests/support/test_length.h"
#include "tests/win32/every_control.h"
#include "tests/win32/win32_fixture.h"

namespace quarvel::platform::win32 {
namespace {

struct Handles {
  int windows = 0;
  DWORD drawing = 0;  // nothing where the system does not count them
  DWORD user = 0;
  DWORD process = 0;
};

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

Handles Count() {
  Handles handles;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&handles.windows));
  handles.drawing = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  handles.user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
  GetProcessHandleCount(GetCurrentProcess(), &handles.process);
  return handles;
}

// A kind of drawing object is numbered within a table of some ten thousand: a leak fills it.
bool CanStillDraw() {
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HFONT font = CreateFontW(20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
  const bool can = memory != nullptr && font != nullptr;
  DeleteObject(font);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return can;
}

TEST(Handles, StayFlatOverManyShowings) {
  const auto desktop = MakeWin32Desktop(GetModuleHandleW(nullptr));
  mps::frmSetDefaultBounds dialog(*desktop);
  const auto show = [&](int times) {
    for (int i = 0; i < times; ++i) {
      dialog.Show();
      dialog.Unload();
    }
  };
  show(10);
  const Handles before = Count();
  show(TestLength(1000));
  const Handles after = Count();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_LE(after.drawing, before.drawing + 5);
  EXPECT_LE(after.user, before.user + 5);
  EXPECT_LE(after.process, before.process + 5);
  EXPECT_TRUE(CanStillDraw());
  EXPECT_EQ(GlobalFindAtomW(L"optLimitToLimit"), 0) << "the name of a control that is gone";
}

TEST(Handles, StayFlatOverShowingsOfEveryKindOfControl) {
  const auto desktop = MakeWin32Desktop(GetModuleHandleW(nullptr));
  frmEveryControl form(*desktop);
  const auto show = [&](int times) {
    for (int i = 0; i < times; ++i) {
      form.Show();
      form.Unload();
    }
  };
  show(3);
  const Handles before = Count();
  show(std::max(20, TestLength(50)));
  const Handles after = Count();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_LE(after.drawing, before.drawing + 5);
  EXPECT_LE(after.user, before.user + 5);
  EXPECT_LE(after.process, before.process + 5);
}

TEST(Handles, OfDesktopsAndTheirClassesAreGivenBack) {
  for (int i = 0; i < 200; ++i) {
    const auto desktop = MakeWin32Desktop(GetModuleHandleW(nullptr));
    ASSERT_NE(desktop, nullptr);
  }
  DWORD before = 0;
  DWORD after = 0;
  GetProcessHandleCount(GetCurrentProcess(), &before);
  for (int i = 0; i < 200; ++i) MakeWin32Desktop(GetModuleHandleW(nullptr));
  GetProcessHandleCount(GetCurrentProcess(), &after);
  EXPECT_LE(after, before + 2);
}

}  // namespace
}  // namespace quarvel::platform::win32
