// Grids as virtual lists.
#include <chrono>
#include <string>

#include <windowsx.h>

#include "tests/win32/every_control_fixture.h"
#include "tests/win32/picture.h"

namespace quarvel::platform::win32 {
namespace {

class GridTest : public EveryControlTest {
 protected:
  // The line that is selected in the window, -1 for none.
  int SelectedLine(const Grid& grid) const {
    return static_cast<int>(Send(grid, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  std::wstring CellText(const Grid& grid, int line, int column) const {
    wchar_t text[300];
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 300;
    Send(grid, LVM_GETITEMTEXTW, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&item));
    return text;
  }
  LPARAM PlaceOf(const Grid& grid, int line) const {
    RECT place = {LVIR_LABEL, 0, 0, 0};
    Send(grid, LVM_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&place));
    return MAKELPARAM(place.left + 4, (place.top + place.bottom) / 2);
  }
  void Click(const Grid& grid, int line) {
    const LPARAM place = PlaceOf(grid, line);
    PostMessageW(Child(grid), WM_LBUTTONUP, 0, place);
    Send(grid, WM_LBUTTONDOWN, MK_LBUTTON, place);
    RunEvents();
  }
  // Rests with the mouse on a cell until a tip had its time.
  void RestOn(const Grid& grid, int line, int column) {
    RECT place = {LVIR_LABEL, column, 0, 0};
    Send(grid, LVM_GETSUBITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&place));
    POINT middle = {place.left + 20, (place.top + place.bottom) / 2};
    ClientToScreen(Child(grid), &middle);
    SetCursorPos(middle.x, middle.y);
    constexpr DWORD kRestMs = 1000;
    for (DWORD rested = 0; rested < kRestMs; rested += kUntilEventsRunMs) RunEvents();
  }
  // The tip that is on the screen, empty for none.
  std::wstring Tip() const {
    std::wstring text;
    EnumThreadWindows(GetCurrentThreadId(), NoteTip, reinterpret_cast<LPARAM>(&text));
    return text;
  }
  static BOOL CALLBACK NoteTip(HWND window, LPARAM found) {
    wchar_t words[300] = L"";
    GetClassNameW(window, words, 300);
    if (!IsWindowVisible(window) || std::wstring(words) != TOOLTIPS_CLASSW) return TRUE;
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    SendMessageW(window, TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    tool.lpszText = words;
    SendMessageW(window, TTM_GETTEXTW, 300, reinterpret_cast<LPARAM>(&tool));
    *reinterpret_cast<std::wstring*>(found) = words;
    return FALSE;
  }
  void Grow(int height) {
    RECT place;
    GetWindowRect(top(), &place);
    SetWindowPos(top(), nullptr, 0, 0, place.right - place.left, place.bottom - place.top + height,
                 SWP_NOMOVE | SWP_NOZORDER);
    RunEvents();
  }
  bool Shows(const Grid& grid, int line) const {
    const LRESULT top = Send(grid, LVM_GETTOPINDEX);
    return line >= top && line < top + Send(grid, LVM_GETCOUNTPERPAGE);
  }
  // What stands on the screen where that line is: its ground, right of all words.
  COLORREF GroundOf(const Grid& grid, int line) const {
    const Picture picture = PictureOf(Child(grid));
    return picture.At(picture.width - 3, GET_Y_LPARAM(PlaceOf(grid, line)));
  }
  void Drag(const Grid& grid, int from, int to) {
    Send(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from, 10));
    Send(grid, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to, 10));
    Send(grid, WM_LBUTTONUP, 0, MAKELPARAM(to, 10));
  }
};

TEST_F(GridTest, ShowsItsRowsAndItsCurrentRow) {
  EXPECT_EQ(Send(form_.grdList, LVM_GETITEMCOUNT), 12);
  EXPECT_EQ(SelectedLine(form_.grdList), 0);
  EXPECT_EQ(CellText(form_.grdList, 3, 0), L"ROW3");
  EXPECT_EQ(CellText(form_.grdList, 3, 1), L"less than");
  form_.grdList.set_current_row(5);
  EXPECT_EQ(SelectedLine(form_.grdList), 5);
  EXPECT_EQ(form_.events, Events{"grdList 5"});
}

TEST_F(GridTest, FixedRowIsTheHeaderAndNoLine) {
  EXPECT_EQ(Send(form_.grdMore, LVM_GETITEMCOUNT), 3);
  EXPECT_EQ(CellText(form_.grdMore, 0, 1), L"COL1");
  EXPECT_EQ(SelectedLine(form_.grdMore), -1);
  wchar_t words[30];
  LVCOLUMNW column = {};
  column.mask = LVCF_TEXT;
  column.pszText = words;
  column.cchTextMax = 30;
  Send(form_.grdMore, LVM_GETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
  EXPECT_STREQ(words, L"i.d.");
}

TEST_F(GridTest, ClickMakesARowCurrent) {
  Click(form_.grdList, 4);
  EXPECT_EQ(form_.grdList.current_row(), 4);
  Click(form_.grdMore, 1);
  EXPECT_EQ(form_.grdMore.current_row(), 2);
  EXPECT_EQ(form_.events, (Events{"grdList 4", "grdMore 2"}));
}

TEST_F(GridTest, DoubleClickIsHeardAfterTheRow) {
  Click(form_.grdList, 2);
  Send(form_.grdList, WM_LBUTTONDBLCLK, MK_LBUTTON, PlaceOf(form_.grdList, 2));
  EXPECT_EQ(form_.events, (Events{"grdList 2", "grdList double"}));
}

TEST_F(GridTest, ArrowKeysMoveTheCurrentRow) {
  form_.grdList.Focus();
  Type(VK_DOWN);
  Type(VK_DOWN);
  Type(VK_UP);
  EXPECT_EQ(form_.events, (Events{"grdList 1", "grdList 2", "grdList 1"}));
}

TEST_F(GridTest, SomeRowStaysSelectedAfterAClickBesideThem) {
  form_.grdList.set_rows(2);
  form_.grdList.set_current_row(1);
  PostMessageW(Child(form_.grdList), WM_LBUTTONUP, 0, MAKELPARAM(20, 150));
  Send(form_.grdList, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 150));
  RunEvents();
  EXPECT_EQ(form_.grdList.current_row(), 1);
  EXPECT_EQ(SelectedLine(form_.grdList), 1);
}

TEST_F(GridTest, TypingFindsTheRowThatBeginsSo) {
  form_.grdList.Focus();
  for (const wchar_t c : std::wstring(L"row11")) PostMessageW(GetFocus(), WM_CHAR, c, 1);
  RunEvents();
  EXPECT_EQ(form_.grdList.current_row(), 11);
  EXPECT_EQ(SelectedLine(form_.grdList), 11);
}

TEST_F(GridTest, ControlACopiesAllRowsWithControlC) {
  form_.grdList.set_rows(2);
  form_.grdList.Focus();
  TypeWith(VK_CONTROL, 'A');
  EXPECT_TRUE(form_.grdList.all_selected());
  TypeWith(VK_CONTROL, 'C');
  EXPECT_EQ(ClipboardText(), L"ROW0\tless than\r\nROW1\tless than");
}

TEST_F(GridTest, RowsThatControlAMarkedLookSelectedWithTheKeyboardAndWithout) {
  form_.grdList.Focus();
  TypeWith(VK_CONTROL, 'A');
  const COLORREF marked = GetSysColor(COLOR_HIGHLIGHT);
  for (int line = 0; line < 3; ++line) EXPECT_EQ(GroundOf(form_.grdList, line), marked) << line;
  form_.txtName.Focus();
  RunEvents();
  for (int line = 0; line < 3; ++line) EXPECT_EQ(GroundOf(form_.grdList, line), marked) << line;
  form_.grdList.set_current_row(1);
  RunEvents();
  EXPECT_NE(GroundOf(form_.grdList, 0), marked);
  EXPECT_NE(GroundOf(form_.grdList, 1), marked) << "selected, but without the keyboard";
}

TEST_F(GridTest, ListAtItsEndShowsTheRightLinesWhenTheWindowGrows) {
  form_.grdList.set_rows(500);
  form_.grdList.Focus();
  Type(VK_END);
  Grow(205);
  const Picture shown = PictureOf(Child(form_.grdList));
  RedrawWindow(Child(form_.grdList), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
  EXPECT_TRUE(PictureOf(Child(form_.grdList)) == shown);
  EXPECT_TRUE(Shows(form_.grdList, 499));
}

TEST_F(GridTest, CurrentRowStaysInSightWhenTheWindowShrinks) {
  form_.grdList.set_rows(500);
  Grow(200);
  form_.grdList.set_current_row(static_cast<int>(Send(form_.grdList, LVM_GETCOUNTPERPAGE)) - 1);
  Grow(-200);
  EXPECT_TRUE(Shows(form_.grdList, form_.grdList.current_row()));
}

TEST_F(GridTest, ListThatWasScrolledFromItsCurrentRowStaysThereWhenTheWindowGrows) {
  form_.grdList.set_rows(500);
  Send(form_.grdList, LVM_ENSUREVISIBLE, 300);
  const LRESULT top = Send(form_.grdList, LVM_GETTOPINDEX);
  Grow(100);
  EXPECT_EQ(Send(form_.grdList, LVM_GETTOPINDEX), top);
}

TEST_F(GridTest, CellThatIsCutShowsItsWholeTextUnderTheMouse) {
  form_.grdList.cell = [](int row, int column) {
    return row + column == 1 ? "R&D " + std::string(90, column == 0 ? 'A' : 'B') : "short";
  };
  form_.grdList.Refresh();
  RestOn(form_.grdList, 1, 0);
  EXPECT_EQ(Tip(), L"R&D " + std::wstring(90, L'A'));
  RestOn(form_.grdList, 0, 0);
  EXPECT_EQ(Tip(), L"");
  RestOn(form_.grdList, 0, 1);
  EXPECT_EQ(Tip(), L"R&D " + std::wstring(90, L'B'));
  Click(form_.grdList, 3);
  EXPECT_EQ(Tip(), L"");
}

TEST_F(GridTest, TipGoesWithItsText) {
  form_.grdList.cell = [](int, int) { return std::string(90, 'A'); };
  form_.grdList.Refresh();
  RestOn(form_.grdList, 1, 0);
  EXPECT_EQ(Tip(), std::wstring(90, L'A'));
  form_.grdList.set_rows(3);
  EXPECT_EQ(Tip(), L"");
}

TEST_F(GridTest, TipGoesWithItsWindow) {
  form_.grdMore.cell = [](int, int) { return std::string(90, 'A'); };
  form_.grdMore.Refresh();
  RestOn(form_.grdMore, 1, 1);
  EXPECT_EQ(Tip(), std::wstring(90, L'A'));
  form_.Unload();
  RunEvents();
  EXPECT_EQ(Tip(), L"");
}

TEST_F(GridTest, ChangesNothingItShowsWhileRedrawIsOff) {
  int asked = 0;
  form_.grdList.set_redraw(false);
  form_.grdList.cell = [&](int, int) {
    ++asked;
    return std::string("new");
  };
  form_.grdList.set_rows(5);
  form_.grdList.set_current_row(3);
  RedrawWindow(Child(form_.grdList), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(Send(form_.grdList, LVM_GETITEMCOUNT), 12);
  form_.grdList.set_redraw(true);
  EXPECT_EQ(Send(form_.grdList, LVM_GETITEMCOUNT), 5);
  EXPECT_EQ(SelectedLine(form_.grdList), 3);
  EXPECT_EQ(CellText(form_.grdList, 0, 0), L"new");
}

TEST_F(GridTest, ColumnIsWidenedByTheBorderBetweenCells) {
  Drag(form_.grdList, 128, 168);
  EXPECT_EQ(form_.grdList.column_width(0), 168);
  EXPECT_EQ(Send(form_.grdList, LVM_GETCOLUMNWIDTH, 0), 168);
  Drag(form_.grdList, 168, 0);
  EXPECT_EQ(form_.grdList.column_width(0), 12) << "a column does not vanish";
}

TEST_F(GridTest, ColumnOfAHeaderKeepsTheWidthItIsDraggedTo) {
  const auto header = reinterpret_cast<HWND>(Send(form_.grdMore, LVM_GETHEADER));
  SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(60, 5));
  SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 5));
  SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(90, 5));
  RunEvents();
  EXPECT_EQ(form_.grdMore.column_width(0), 90);
}

TEST_F(GridTest, ShowsColumnsAsWideAsCodeSetsThem) {
  form_.grdList.set_column_width(0, 99);
  EXPECT_EQ(Send(form_.grdList, LVM_GETCOLUMNWIDTH, 0), 99);
  form_.grdMore.set_column_width(1, 77);
  EXPECT_EQ(Send(form_.grdMore, LVM_GETCOLUMNWIDTH, 1), 77);
}

TEST_F(GridTest, LastColumnWithoutAHeaderHasTheRoomThatIsLeft) {
  RECT inner;
  GetClientRect(Child(form_.grdList), &inner);
  form_.grdList.set_column_width(0, 60);
  EXPECT_EQ(Send(form_.grdList, LVM_GETCOLUMNWIDTH, 1), inner.right - 60);
  EXPECT_EQ(form_.grdList.column_width(1), 72);
  form_.grdList.set_column_width(1, 500);
  EXPECT_EQ(Send(form_.grdList, LVM_GETCOLUMNWIDTH, 1), 500);
}

TEST_F(GridTest, MillionRowsOpenAtOnceAndAskForFewCells) {
  frmEveryControl large(desktop());
  int asked = 0;
  large.grdList.cell = [&](int row, int) {
    ++asked;
    return std::to_string(row);
  };
  large.Load();
  const auto start = std::chrono::steady_clock::now();
  large.grdList.set_rows(1000000);
  large.grdList.set_current_row(999999);
  large.Show();
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_LT(taken, std::chrono::milliseconds(500));
  EXPECT_GT(asked, 0);
  EXPECT_LT(asked, 1000);
  const HWND list = FindControl(FindTopWindow(L"Every control"), L"grdList");
  EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 1000000);
}

}  // namespace
}  // namespace quarvel::platform::win32
