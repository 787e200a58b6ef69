// Menu bars and the menus of grids.
#include <string>

#include "tests/win32/every_control_fixture.h"

namespace quarvel::platform::win32 {
namespace {

class MenusTest : public EveryControlTest {
 protected:
  HMENU FileMenu() const { return GetSubMenu(GetMenu(top()), 0); }
  std::wstring Words(HMENU menu, int place) const {
    wchar_t text[100] = L"";
    GetMenuStringW(menu, static_cast<UINT>(place), text, 100, MF_BYPOSITION);
    return text;
  }
};

TEST_F(MenusTest, HaveTheItemsThatAreVisibleWithTheirKeys) {
  ASSERT_EQ(GetMenuItemCount(GetMenu(top())), 1);
  EXPECT_EQ(Words(GetMenu(top()), 0), L"&File");
  ASSERT_EQ(GetMenuItemCount(FileMenu()), 3);
  EXPECT_EQ(Words(FileMenu(), 0), L"&New\tCtrl+N");
  EXPECT_NE(GetMenuState(FileMenu(), 1, MF_BYPOSITION) & MF_SEPARATOR, 0u);
  EXPECT_EQ(Words(FileMenu(), 2), L"E&xit");
}

TEST_F(MenusTest, AreMadeAnewWhenTheyOpen) {
  form_.mnuFile.on_open = [&] {
    form_.mnuFileNew.set_enabled(false);
    form_.mnuFileHidden.set_visible(true);
  };
  SendMessageW(top(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(FileMenu()), 0);
  ASSERT_EQ(GetMenuItemCount(FileMenu()), 4);
  EXPECT_NE(GetMenuState(FileMenu(), 0, MF_BYPOSITION) & MF_GRAYED, 0u);
  EXPECT_EQ(Words(FileMenu(), 2), L"Hidden");
}

TEST_F(MenusTest, HaveNoLineAtTheirEdges) {
  form_.mnuFileExit.set_visible(false);
  SendMessageW(top(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(FileMenu()), 0);
  EXPECT_EQ(GetMenuItemCount(FileMenu()), 1);
}

TEST_F(MenusTest, ItemIsChosenByItsCommand) {
  SendMessageW(top(), WM_COMMAND, static_cast<WPARAM>(Command(form_.mnuFileNew)), 0);
  EXPECT_EQ(form_.events, Events{"mnuFileNew"});
}

TEST_F(MenusTest, ItemMayCloseTheWindow) {
  SendMessageW(top(), WM_COMMAND, static_cast<WPARAM>(Command(form_.mnuFileExit)), 0);
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(MenusTest, BarFollowsItsItems) {
  form_.mnuFile.set_caption("Edit");
  EXPECT_EQ(Words(GetMenu(top()), 0), L"Edit");
  form_.mnuFile.set_enabled(false);
  EXPECT_NE(GetMenuState(GetMenu(top()), 0, MF_BYPOSITION) & MF_GRAYED, 0u);
  form_.mnuFile.set_visible(false);
  EXPECT_EQ(GetMenuItemCount(GetMenu(top())), 0);
}

TEST_F(MenusTest, GridOffersItsMenuForTheRowUnderThePointer) {
  RECT place = {LVIR_LABEL, 0, 0, 0};
  Send(form_.grdList, LVM_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&place));
  POINT point = {place.left + 4, (place.top + place.bottom) / 2};
  ClientToScreen(Child(form_.grdList), &point);
  // The menu has its own loop: there the first item is chosen.
  user().Until("the menu", [] {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    if (menu == nullptr || !IsWindowVisible(menu)) return false;
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    PressKey(info.hwndMenuOwner, VK_DOWN);
    PressKey(info.hwndMenuOwner, VK_RETURN);
    return true;
  });
  Send(form_.grdList, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Child(form_.grdList)),
       MAKELPARAM(point.x, point.y));
  EXPECT_EQ(form_.events, (Events{"grdList 3", "mnuFile opens", "mnuFileNew"}));
}

}  // namespace
}  // namespace quarvel::platform::win32
