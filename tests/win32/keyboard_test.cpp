// The keyboard in a form: shortcuts, tab order, access keys, Enter and Escape.
#include <string>

#include "platform/win32/text_view.h"
#include "tests/win32/every_control_fixture.h"

namespace quarvel::platform::win32 {
namespace {

class KeyboardTest : public EveryControlTest {
 protected:
  void TypeCharacter(UINT message, wchar_t character) {
    PostMessageW(GetFocus(), message, character, message == WM_SYSCHAR ? 0x20000001 : 1);
    RunEvents();
  }
};

TEST_F(KeyboardTest, BeginsAtTheFirstControlWithItsTextSelected) {
  ASSERT_TRUE(HasFocus(form_.txtName));
  DWORD start = 1;
  DWORD end = 0;
  Send(form_.txtName, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(end, 11u);
}

TEST_F(KeyboardTest, TabGoesThroughTheControlsInTheirOrderAndRoundAgain) {
  const Control* const order[] = {&form_.txtNote, &form_.tabs,      &form_.grdList, &form_.grdMore,
                                  &form_.cboKind, &form_.chkInvert, &form_.optOne,  &form_.cmdGo,
                                  &form_.cmdStop, &form_.txtName};
  for (const Control* control : order) {
    Type(VK_TAB);
    EXPECT_TRUE(HasFocus(*control)) << control->name();
  }
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_TRUE(HasFocus(form_.cmdStop));
}

TEST_F(KeyboardTest, TabPassesOverWhatCannotBeUsed) {
  form_.txtNote.set_enabled(false);
  form_.tabs.set_visible(false);
  Type(VK_TAB);
  EXPECT_TRUE(HasFocus(form_.grdList));
}

TEST_F(KeyboardTest, LeavesAControlThatIsHiddenOrDisabled) {
  form_.cmdGo.Focus();
  ASSERT_TRUE(HasFocus(form_.cmdGo));
  form_.cmdGo.set_enabled(false);
  EXPECT_TRUE(HasFocus(form_.cmdStop));
  // Not to a box, where the next letter would replace a text.
  form_.txtName.Focus();
  form_.txtName.set_visible(false);
  EXPECT_TRUE(HasFocus(form_.tabs));
}

TEST_F(KeyboardTest, ArrowsMoveThroughAGroupOfOptionButtonsAndChoose) {
  form_.optOne.Focus();
  Type(VK_DOWN);
  EXPECT_TRUE(HasFocus(form_.optTwo));
  EXPECT_TRUE(form_.optTwo.value());
  Type(VK_DOWN);
  EXPECT_TRUE(form_.optOne.value());
}

TEST_F(KeyboardTest, EnterPressesTheDefaultButtonOrTheOneWithTheKeyboard) {
  Type(VK_RETURN);
  form_.cmdStop.Focus();
  Type(VK_RETURN);
  EXPECT_EQ(form_.events, (Events{"cmdGo", "cmdStop"}));
}

TEST_F(KeyboardTest, EnterIsALineEndInABoxOfManyLines) {
  form_.txtNote.Focus();
  Send(form_.txtNote, EM_SETSEL, 0, -1);
  Type(VK_RETURN);
  EXPECT_EQ(form_.events, Events{"txtNote \r\n"});
}

TEST_F(KeyboardTest, EscapePressesTheCancelButton) {
  Type(VK_ESCAPE);
  EXPECT_EQ(form_.events, Events{"cmdStop"});
}

TEST_F(KeyboardTest, EscapeInAWindowWithMenusAndNoCancelButtonDoesNothing) {
  form_.cmdStop.set_enabled(false);
  Type(VK_ESCAPE);
  EXPECT_TRUE(form_.IsShowing());
}

TEST_F(KeyboardTest, EscapeClosesAListThatIsDroppedAndNothingElse) {
  form_.cboKind.Focus();
  Send(form_.cboKind, CB_SHOWDROPDOWN, TRUE);
  Type(VK_ESCAPE);
  EXPECT_EQ(Send(form_.cboKind, CB_GETDROPPEDSTATE), FALSE);
  EXPECT_EQ(form_.events, Events{});
}

TEST_F(KeyboardTest, AccessKeyOfALabelLeadsToTheControlAfterIt) {
  form_.cmdGo.Focus();
  TypeCharacter(WM_SYSCHAR, L'o');
  EXPECT_TRUE(HasFocus(form_.txtNote));
}

TEST_F(KeyboardTest, AccessKeyClicksAButtonOrACheckBox) {
  TypeCharacter(WM_SYSCHAR, L'i');
  EXPECT_TRUE(HasFocus(form_.chkInvert));
  // No text is typed here: the letter alone will do.
  TypeCharacter(WM_CHAR, L'g');
  EXPECT_EQ(form_.events, (Events{"chkInvert on", "cmdGo"}));
}

TEST_F(KeyboardTest, LetterThatIsTextIsNoAccessKey) {
  TypeCharacter(WM_CHAR, L'g');
  EXPECT_EQ(form_.events, Events{"txtName g"});
}

TEST_F(KeyboardTest, ShortcutChoosesItsMenuItem) {
  TypeWith(VK_CONTROL, 'N');
  EXPECT_EQ(form_.events, (Events{"mnuFile opens", "mnuFileNew"}));
}

TEST_F(KeyboardTest, ControlTabTurnsThePage) {
  TypeWith(VK_CONTROL, VK_TAB);
  EXPECT_EQ(form_.tabs.current(), 1);
  TypeWith(VK_CONTROL, VK_TAB);
  EXPECT_EQ(form_.tabs.current(), 0);
}

TEST_F(KeyboardTest, ControlASelectsTheWholeTextOfABox) {
  form_.txtNote.Focus();
  TypeWith(VK_CONTROL, 'A');
  DWORD end = 0;
  Send(form_.txtNote, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(end, form_.txtNote.text().size());
}

TEST_F(KeyboardTest, DeleteInAGridGoesToTheGrid) {
  form_.grdList.Focus();
  Type(VK_DELETE);
  EXPECT_EQ(form_.events, Events{"grdList delete"});
}

TEST_F(KeyboardTest, ButtonWithTheKeyboardLooksLikeTheOneThatEnterPresses) {
  const auto look = [this](const Button& button) {
    return GetWindowLongPtrW(Child(button), GWL_STYLE) & BS_TYPEMASK;
  };
  EXPECT_EQ(look(form_.cmdGo), BS_DEFPUSHBUTTON);
  form_.cmdStop.Focus();
  EXPECT_EQ(look(form_.cmdGo), BS_PUSHBUTTON);
  EXPECT_EQ(look(form_.cmdStop), BS_DEFPUSHBUTTON);
  form_.txtName.Focus();
  EXPECT_EQ(look(form_.cmdGo), BS_DEFPUSHBUTTON);
  EXPECT_EQ(look(form_.cmdStop), BS_PUSHBUTTON);
}

}  // namespace
}  // namespace quarvel::platform::win32
