// Each kind of control as a child window: it shows what the control holds, and the control hears
// what the user does to it, once.
#include <string>

#include "platform/win32/text_view.h"
#include "tests/win32/every_control_fixture.h"

namespace quarvel::platform::win32 {
namespace {

using ControlsTest = EveryControlTest;

TEST_F(ControlsTest, AreFoundByNameAndHaveTheNumberOfTheirPlaceInTheForm) {
  for (const Control* control : form_.controls()) {
    if (control->kind() == ControlKind::kMenuItem) continue;
    const HWND child = Child(*control);
    ASSERT_NE(child, nullptr) << control->name();
    EXPECT_EQ(GetDlgCtrlID(child), Command(*control)) << control->name();
  }
}

TEST_F(ControlsTest, ShowWordsWithTheirAccessKeysAndPlainAmpersands) {
  EXPECT_EQ(TextOf(Child(form_.lblName)), L"N&ame:");
  EXPECT_EQ(TextOf(Child(form_.fraMore)), L"R&&D in ROW1 (3):");
  EXPECT_EQ(TextOf(Child(form_.txtName)), L"diet & more");
  form_.fraMore.set_caption("Variables in \xC3\x84 (3):");
  EXPECT_EQ(TextOf(Child(form_.fraMore)), L"Variables in \x00C4 (3):");
}

TEST_F(ControlsTest, AreEnabledAndVisibleAsTheControlIs) {
  EXPECT_TRUE(IsWindowEnabled(Child(form_.cmdGo)));
  form_.cmdGo.set_enabled(false);
  EXPECT_FALSE(IsWindowEnabled(Child(form_.cmdGo)));
  EXPECT_TRUE(IsWindowVisible(Child(form_.chkInvert)));
  form_.chkInvert.set_visible(false);
  EXPECT_FALSE(IsWindowVisible(Child(form_.chkInvert)));
  form_.chkInvert.set_visible(true);
  EXPECT_TRUE(IsWindowVisible(Child(form_.chkInvert)));
}

TEST_F(ControlsTest, ButtonIsPressed) {
  Send(form_.cmdGo, BM_CLICK);
  EXPECT_EQ(form_.events, Events{"cmdGo"});
}

TEST_F(ControlsTest, CheckBoxChangesWithEachClickAndShowsWhatCodeSets) {
  Send(form_.chkInvert, BM_CLICK);
  EXPECT_EQ(Send(form_.chkInvert, BM_GETCHECK), BST_CHECKED);
  Send(form_.chkInvert, BM_CLICK);
  EXPECT_EQ(Send(form_.chkInvert, BM_GETCHECK), BST_UNCHECKED);
  EXPECT_EQ(form_.events, (Events{"chkInvert on", "chkInvert off"}));
  form_.chkInvert.set_checked(true);
  EXPECT_EQ(Send(form_.chkInvert, BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(form_.events.size(), 2u);
}

TEST_F(ControlsTest, OneOptionButtonOfAGroupIsOn) {
  EXPECT_EQ(Send(form_.optOne, BM_GETCHECK), BST_CHECKED);
  Send(form_.optTwo, BM_CLICK);
  EXPECT_TRUE(form_.optTwo.value());
  EXPECT_EQ(Send(form_.optOne, BM_GETCHECK), BST_UNCHECKED);
  EXPECT_EQ(Send(form_.optTwo, BM_GETCHECK), BST_CHECKED);
}

TEST_F(ControlsTest, OptionButtonDoesNotClickItselfWhenItGetsTheKeyboard) {
  SetFocus(Child(form_.optTwo));
  EXPECT_FALSE(form_.optTwo.value());
}

TEST_F(ControlsTest, TextBoxHearsTheUserAndShowsCodeWithoutAnEcho) {
  SendMessageW(Child(form_.txtName), EM_SETSEL, 0, -1);
  Send(form_.txtName, WM_CHAR, L'\x00DC');
  EXPECT_EQ(form_.txtName.text(), "\xC3\x9C");
  EXPECT_EQ(form_.events, Events{"txtName \xC3\x9C"});
  form_.txtName.set_text("from code");
  EXPECT_EQ(TextOf(Child(form_.txtName)), L"from code");
  EXPECT_EQ(form_.events.size(), 1u);
}

TEST_F(ControlsTest, TextBoxOfManyLinesKeepsThemAndTakesLongText) {
  EXPECT_EQ(TextOf(Child(form_.txtNote)), L"first line\r\nsecond line");
  std::string longest;
  for (int i = 0; i < 2000; ++i) longest += "a line of text that is repeated many times over\r\n";
  form_.txtNote.set_text(longest);
  const auto length = static_cast<WPARAM>(GetWindowTextLengthW(Child(form_.txtNote)));
  EXPECT_EQ(length, longest.size());
  EXPECT_GT(length, 0x10000u);
  Send(form_.txtNote, EM_SETSEL, length, static_cast<LPARAM>(length));
  Send(form_.txtNote, WM_CHAR, L'y');
  EXPECT_EQ(form_.txtNote.text(), longest + 'y');
}

TEST_F(ControlsTest, ComboBoxHearsTheUsersChoiceAndShowsWhatCodeSets) {
  EXPECT_EQ(Send(form_.cboKind, CB_GETCOUNT), 3);
  EXPECT_EQ(Send(form_.cboKind, CB_GETCURSEL), CB_ERR);
  SendMessageW(Child(form_.cboKind), WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(form_.cboKind.list_index(), 0);
  EXPECT_EQ(form_.events, Events{"cboKind 0"});
  form_.cboKind.set_list_index(2);
  EXPECT_EQ(Send(form_.cboKind, CB_GETCURSEL), 2);
  EXPECT_EQ(form_.events, (Events{"cboKind 0", "cboKind 2"}));
  form_.cboKind.set_items({"real"});
  EXPECT_EQ(Send(form_.cboKind, CB_GETCOUNT), 1);
  EXPECT_EQ(Send(form_.cboKind, CB_GETCURSEL), CB_ERR);
}

TEST_F(ControlsTest, TabStripTurnsForTheUserAndForCode) {
  Send(form_.tabs, TCM_SETCURFOCUS, 1);
  EXPECT_EQ(form_.tabs.current(), 1);
  EXPECT_EQ(form_.events, Events{"tabs 1"});
  form_.tabs.set_current(0);
  EXPECT_EQ(Send(form_.tabs, TCM_GETCURSEL), 0);
  EXPECT_EQ(form_.events, (Events{"tabs 1", "tabs 0"}));
}

TEST_F(ControlsTest, ProgressBarShowsItsShareOfAnyRange) {
  EXPECT_EQ(Send(form_.barWork, PBM_GETPOS), 250);
  Sleep(kUntilEventsRunMs);
  form_.barWork.set_value(150);
  EXPECT_EQ(Send(form_.barWork, PBM_GETPOS), 750);
  form_.barWork.set_value(200);
  // Too soon after the last to be worth painting, but not forgotten.
  EXPECT_EQ(Send(form_.barWork, PBM_GETPOS), 750);
  RunEvents();
  EXPECT_EQ(Send(form_.barWork, PBM_GETPOS), 1000);
}

TEST_F(ControlsTest, CaptionThatChangesOftenIsShownInTheEnd) {
  for (int i = 0; i <= 1000; ++i) form_.set_caption("Progress: " + std::to_string(i));
  RunEvents();
  EXPECT_EQ(TextOf(top()), L"Progress: 1000");
}

TEST_F(ControlsTest, FollowTheSizeOfTheWindowDownToTheDesignedOne) {
  RECT before;
  RECT after;
  GetWindowRect(Child(form_.grdList), &before);
  RECT window;
  GetWindowRect(top(), &window);
  const int width = window.right - window.left;
  const int height = window.bottom - window.top;
  SetWindowPos(top(), nullptr, 0, 0, width + 200, height + 100, SWP_NOMOVE | SWP_NOZORDER);
  GetWindowRect(Child(form_.grdList), &after);
  EXPECT_EQ(after.right - after.left, before.right - before.left + 100);
  EXPECT_EQ(after.bottom - after.top, before.bottom - before.top + 100);
  SetWindowPos(top(), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
  GetWindowRect(top(), &window);
  EXPECT_EQ(window.right - window.left, width);
  EXPECT_EQ(window.bottom - window.top, height);
}

TEST_F(ControlsTest, AreScaledWithTheDotsAnInch) {
  RECT before;
  RECT after;
  GetClientRect(Child(form_.cmdGo), &before);
  const RECT suggested = {0, 0, 1100, 950};
  SendMessageW(top(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  GetClientRect(Child(form_.cmdGo), &after);
  EXPECT_EQ(after.right, before.right * 2);
  EXPECT_EQ(after.bottom, before.bottom * 2);
  EXPECT_EQ(Send(form_.grdList, LVM_GETCOLUMNWIDTH, 0), 256);
}

}  // namespace
}  // namespace quarvel::platform::win32
