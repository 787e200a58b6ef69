// The life of forms in real windows: what form_test.cpp tells of every desktop, and what only a
// window can go through.
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/form_messages.h"
#include "platform/win32/window_class.h"
#include "tests/support/any_box.h"
#include "tests/support/form_fixture.h"
#include "tests/win32/win32_fixture.h"

namespace quarvel::platform::win32 {
namespace {

class frmLife : public frmTest {
 public:
  explicit frmLife(Desktop& desktop, std::string title = "Life")
      : frmTest(desktop), title_(std::move(title)) {
    SetSize(200, 100, false);
    on_load = [this] { set_caption(title_); };
  }

 private:
  std::string title_;
};

class FormLifeTest : public Win32Test {
 protected:
  frmLife form_{desktop()};
};

void Click(HWND top, const wchar_t* name) { SendMessageW(FindControl(top, name), BM_CLICK, 0, 0); }

void Close(HWND top) { PostMessageW(top, WM_CLOSE, 0, 0); }

TEST_F(FormLifeTest, IsLoadedDrawnActivatedAndClosed) {
  form_.on_activate = [&] {
    const HWND window = FindTopWindow(L"Life");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(IsFormWindow(window));
    form_.set_caption("Active");
  };
  On(L"Active", Close);
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
  EXPECT_EQ(FindTopWindow(L"Active"), nullptr);
}

TEST_F(FormLifeTest, StaysWhenClosingIsRefused) {
  int refusals = 0;
  form_.on_query = [&](UnloadReason) { return ++refusals == 3; };
  for (int i = 0; i < 3; ++i) On(L"Life", Close);
  form_.ShowModal();
  EXPECT_EQ(refusals, 3);
}

TEST_F(FormLifeTest, MayUnloadItselfInItsOwnHandler) {
  form_.cmdGo.on_click = [&] {
    form_.Unload();
    EXPECT_EQ(FindTopWindow(L"Life"), nullptr);
  };
  On(L"Life", [](HWND window) { Click(window, L"cmdGo"); });
  form_.ShowModal();
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(FormLifeTest, MayBeDestroyedInItsOwnHandler) {
  auto gone = std::make_unique<frmLife>(desktop(), "Gone");
  gone->cmdGo.on_click = [&] { gone.reset(); };
  On(L"Gone", [](HWND window) { Click(window, L"cmdGo"); });
  gone->ShowModal();
  EXPECT_EQ(gone, nullptr);
  EXPECT_EQ(FindTopWindow(L"Gone"), nullptr);
}

TEST_F(FormLifeTest, WindowIsDestroyedOnceItsEventsHaveReturned) {
  HWND window = nullptr;
  form_.cmdGo.on_click = [&] {
    window = FindTopWindow(L"Life");
    form_.Unload();
    EXPECT_TRUE(IsWindow(window)) << "the button's own code is still running";
  };
  On(L"Life", [](HWND top) { Click(top, L"cmdGo"); });
  form_.ShowModal();
  ASSERT_NE(window, nullptr);
  // Once is enough, but for a busy machine.
  for (int i = 0; i < 50 && IsWindow(window); ++i) {
    Sleep(kUntilEventsRunMs);
    desktop().DoEvents();
  }
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(FormLifeTest, DesktopTakesItsLastWindowsWithIt) {
  frmLife last(desktop(), "Last");
  HWND window = nullptr;
  last.cmdGo.on_click = [&] {
    window = FindTopWindow(L"Last");
    last.Unload();
  };
  On(L"Last", [](HWND top) { Click(top, L"cmdGo"); });
  last.ShowModal();
  DropDesktop();
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(FormLifeTest, MayBeShownAgainInItsOwnHandler) {
  int showings = 0;
  form_.on_activate = [&] {
    if (++showings == 1) {
      form_.Unload();
      form_.ShowModal();
    }
  };
  On(L"Life", Close);
  form_.ShowModal();
  EXPECT_EQ(showings, 2);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query code", "unload", "load", "activate",
                               "query user", "unload"}));
}

TEST_F(FormLifeTest, ModalFormsNest) {
  frmLife inner(desktop(), "Inner");
  form_.cmdGo.on_click = [&] {
    inner.ShowModal();
    form_.Unload();
  };
  On(L"Life", [](HWND window) { PostMessageW(FindControl(window, L"cmdGo"), BM_CLICK, 0, 0); });
  On(L"Inner", [](HWND window) {
    EXPECT_FALSE(IsWindowEnabled(FindTopWindow(L"Life")));
    EXPECT_EQ(GetWindow(window, GW_OWNER), FindTopWindow(L"Life"));
    Close(window);
  });
  form_.ShowModal();
  EXPECT_FALSE(inner.IsShowing());
}

TEST_F(FormLifeTest, OuterFormMayCloseWhileAnInnerOneWaits) {
  frmLife inner(desktop(), "Inner");
  form_.cmdGo.on_click = [&] { inner.ShowModal(); };
  On(L"Life", [](HWND window) { PostMessageW(FindControl(window, L"cmdGo"), BM_CLICK, 0, 0); });
  On(L"Inner", [&](HWND) { form_.Unload(); });
  On(L"Inner", [](HWND window) {
    EXPECT_EQ(FindTopWindow(L"Life"), nullptr);
    EXPECT_TRUE(IsWindowEnabled(window));
    Close(window);
  });
  form_.ShowModal();
  EXPECT_FALSE(inner.IsShowing());
}

TEST_F(FormLifeTest, FailureOfAHandlerIsRaisedByTheModalCall) {
  form_.cmdGo.on_click = Fail;
  On(L"Life", [](HWND window) { Click(window, L"cmdGo"); });
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(FindTopWindow(L"Life"), nullptr);
}

TEST_F(FormLifeTest, FailureInAModelessFormIsOneBox) {
  form_.cmdGo.on_click = Fail;
  form_.Show();
  On(L"Quarvel", [](HWND box) { PressBoxButton(box, IDOK); });
  Click(FindTopWindow(L"Life"), L"cmdGo");
  EXPECT_TRUE(form_.IsShowing());
}

TEST_F(FormLifeTest, FormWhoseWindowSomebodyDestroyedIsAnErrorAndNoEndlessWait) {
  On(L"Life", [](HWND window) { DestroyWindow(window); });
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 51);
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(FormLifeTest, QuitMessageIsKeptForTheHost) {
  user().Then("quit", [] { PostQuitMessage(7); });
  On(L"Life", Close);
  form_.ShowModal();
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 7u);
}

TEST_F(FormLifeTest, QuitMessageSurvivesPendingEvents) {
  PostQuitMessage(9);
  Sleep(kUntilEventsRunMs);
  desktop().DoEvents();
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 9u);
}

TEST_F(FormLifeTest, QuitMessageAnswersNoQuestion) {
  PostQuitMessage(3);
  On(L"Confirm", [](HWND box) { PressBoxButton(box, IDYES); });
  EXPECT_EQ(desktop().MsgBox(AnyBox("Go on?", MsgBoxStyle::kYesNo, "Confirm")), MsgBoxResult::kYes);
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3u);
}

TEST_F(FormLifeTest, WindowClassGoesWithTheLastDesktop) {
  WNDCLASSEXW found = {};
  found.cbSize = sizeof(found);
  const HINSTANCE module = GetModuleHandleW(nullptr);
  EXPECT_TRUE(GetClassInfoExW(module, kFormClass, &found));
  {
    const auto other = MakeWin32Desktop(module);
    DropDesktop();
    EXPECT_TRUE(GetClassInfoExW(module, kFormClass, &found));
  }
  EXPECT_FALSE(GetClassInfoExW(module, kFormClass, &found));
}

}  // namespace
}  // namespace quarvel::platform::win32
