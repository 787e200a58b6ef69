// Who may be clicked while a window of the component is there, and who is afterwards.
#include <memory>
#include <string>

#include "mps/frm_progress.h"
#include "platform/win32/thread_windows.h"
#include "tests/support/any_box.h"
#include "tests/support/form_fixture.h"
#include "tests/win32/win32_fixture.h"

namespace quarvel::platform::win32 {
namespace {

// A window of a host.
class HostWindow {
 public:
  explicit HostWindow(const wchar_t* title)
      : handle_(CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {}
  ~HostWindow() { DestroyWindow(handle_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  HWND handle() const { return handle_; }
  bool enabled() const { return IsWindowEnabled(handle_) != FALSE; }

 private:
  HWND handle_;
};

class frmTitled : public frmTest {
 public:
  frmTitled(Desktop& desktop, std::string title) : frmTest(desktop) {
    SetSize(220, 120, false);
    on_load = [this, title] { set_caption(title); };
  }
};

class ModalityTest : public Win32Test {
 protected:
  ModalityTest() {
    SetActiveWindow(host_.handle());
    EnableWindow(asleep_.handle(), FALSE);
  }

  HostWindow host_{L"Host"};
  HostWindow other_{L"Other"};
  HostWindow asleep_{L"Asleep"};
  frmTitled outer_{desktop(), "Outer"};
  frmTitled inner_{desktop(), "Inner"};
};

TEST_F(ModalityTest, ModalFormDisablesTheWindowsOfTheThreadAndGivesThemBack) {
  On(L"Outer", [&](HWND window) {
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_FALSE(host_.enabled());
    EXPECT_FALSE(other_.enabled());
    EXPECT_EQ(GetWindow(window, GW_OWNER), host_.handle());
    PostMessageW(window, WM_CLOSE, 0, 0);
  });
  outer_.ShowModal();
  EXPECT_TRUE(host_.enabled());
  EXPECT_TRUE(other_.enabled());
  EXPECT_FALSE(asleep_.enabled()) << "its own program has disabled it";
  EXPECT_EQ(GetActiveWindow(), host_.handle());
}

TEST_F(ModalityTest, HostStaysDisabledUntilTheLastModalFormIsGone) {
  outer_.cmdGo.on_click = [&] { inner_.ShowModal(); };
  On(L"Outer", [](HWND window) { PostMessageW(FindControl(window, L"cmdGo"), BM_CLICK, 0, 0); });
  On(L"Inner", [&](HWND window) {
    EXPECT_FALSE(IsWindowEnabled(FindTopWindow(L"Outer")));
    outer_.Unload();
    EXPECT_FALSE(host_.enabled());
    EXPECT_TRUE(IsWindowEnabled(window));
    PostMessageW(window, WM_CLOSE, 0, 0);
  });
  outer_.ShowModal();
  EXPECT_TRUE(host_.enabled());
}

TEST_F(ModalityTest, ModelessFormDisablesTheComponentsFormsAlone) {
  outer_.Show();
  inner_.Show();
  EXPECT_FALSE(IsWindowEnabled(FindTopWindow(L"Outer")));
  EXPECT_TRUE(IsWindowEnabled(FindTopWindow(L"Inner")));
  EXPECT_TRUE(host_.enabled());
  inner_.Unload();
  EXPECT_TRUE(IsWindowEnabled(FindTopWindow(L"Outer")));
}

TEST_F(ModalityTest, FormsOfAnotherDesktopOfTheThreadCountToo) {
  const auto second = MakeWin32Desktop(GetModuleHandleW(nullptr));
  frmTitled theirs(*second, "Theirs");
  outer_.Show();
  theirs.Show();
  EXPECT_FALSE(IsWindowEnabled(FindTopWindow(L"Outer")));
  theirs.Unload();
  EXPECT_TRUE(IsWindowEnabled(FindTopWindow(L"Outer")));
}

TEST_F(ModalityTest, NothingButTheBoxCanBeClickedUnderAQuestion) {
  outer_.Show();
  On(L"Confirm", [&](HWND box) {
    EXPECT_FALSE(host_.enabled());
    EXPECT_FALSE(other_.enabled());
    EXPECT_FALSE(IsWindowEnabled(FindTopWindow(L"Outer")));
    PressBoxButton(box, IDYES);
  });
  desktop().MsgBox(AnyBox("Are you sure?", MsgBoxStyle::kYesNo, "Confirm"));
  EXPECT_TRUE(host_.enabled());
  EXPECT_TRUE(IsWindowEnabled(FindTopWindow(L"Outer")));
  EXPECT_FALSE(asleep_.enabled());
}

TEST_F(ModalityTest, StopButtonIsPressedWhileWorkLetsEventsRun) {
  mps::frmProgress progress(desktop());
  progress.Show();
  progress.set_caption("Progress: Simplifying");
  On(L"Progress: Simplifying",
     [](HWND window) { PostMessageW(FindControl(window, L"cmdStop"), BM_CLICK, 0, 0); });
  On(L"Confirm", [](HWND box) { PressBoxButton(box, IDYES); });
  for (int i = 0; i < 1000 && !progress.StopRequested; ++i) {
    Sleep(5);
    desktop().DoEvents();
  }
  EXPECT_TRUE(progress.StopRequested);
  EXPECT_EQ(progress.cmdStop.caption(), "Stopping...");
}

TEST_F(ModalityTest, ProgressWindowCannotBeClosedWhileItsWorkGoesOn) {
  mps::frmProgress progress(desktop());
  progress.Show();
  progress.set_caption("Progress: Simplifying");
  const HWND window = FindTopWindow(L"Progress: Simplifying");
  SendMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(progress.IsShowing());
  progress.Finish();
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(ModalityTest, BoxOfAWindowThatGoesAwayStays) {
  outer_.cmdGo.on_click = [&] {
    EXPECT_EQ(desktop().MsgBox(AnyBox("Still there?", MsgBoxStyle::kYesNo, "Confirm")),
              MsgBoxResult::kYes);
  };
  On(L"Outer", [](HWND window) { PostMessageW(FindControl(window, L"cmdGo"), BM_CLICK, 0, 0); });
  On(L"Confirm", [&](HWND) { outer_.Unload(); });
  On(L"Confirm", [](HWND box) { PressBoxButton(box, IDYES); });
  outer_.ShowModal();
}

TEST_F(ModalityTest, WaitPointerStaysOverTheFormsUntilItIsTakenBack) {
  outer_.Show();
  const HWND window = FindTopWindow(L"Outer");
  desktop().SetMousePointer(MousePointer::kWait);
  SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, 0));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
  desktop().SetMousePointer(MousePointer::kDefault);
  SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, 0));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

}  // namespace
}  // namespace quarvel::platform::win32
