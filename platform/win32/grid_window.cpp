#include "platform/win32/grid_window.h"

#include <algorithm>

#include <windowsx.h>

#include "platform/win32/dpi.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr UINT kSelected = LVIS_SELECTED | LVIS_FOCUSED;
constexpr DWORD kExtendedStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;

}  // namespace

ControlWindow::Style GridWindow::WindowStyle() const {
  DWORD style = LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP;
  style |= first() == 0 ? LVS_NOCOLUMNHEADER : LVS_NOSORTHEADER;
  return {WC_LISTVIEWW, style, WS_EX_CLIENTEDGE};
}

void GridWindow::Fill() {
  SetWindowSubclass(handle(), Receive, 1, reinterpret_cast<DWORD_PTR>(this));
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kExtendedStyle, static_cast<LPARAM>(kExtendedStyle));
  ShowColumns();
  ShowRows();
  tips_.Open(handle(),
             [this](int line, int column) { return ToWide(Own().Text(line + first(), column)); });
}

void GridWindow::Mirror(Change change) {
  const Mirroring mirroring(*this);
  if (change == Change::kContents) ShowRows();
  if (change == Change::kSelection) ShowSelection();
  if (change == Change::kRange) ShowWidths();
  ControlWindow::Mirror(change);
}

void GridWindow::SetFont(HFONT font) {
  const Mirroring mirroring(*this);
  ControlWindow::SetFont(font);
  ShowWidths();
}

void GridWindow::ShowColumns() {
  for (int i = 0; i < Own().columns(); ++i) {
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = ToPixels(Own().column_width(i), owner().dpi());
    column.iSubItem = i;
    Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void GridWindow::ShowWidths() {
  RECT inner = {};
  GetClientRect(handle(), &inner);
  int left = 0;
  for (int i = 0; i < Own().columns(); ++i) {
    int width = ToPixels(Own().column_width(i), owner().dpi());
    // Without a header to show otherwise, the last column has all the room that is left.
    const bool fills = first() == 0 && i == Own().columns() - 1;
    if (fills) width = std::max(width, static_cast<int>(inner.right) - left);
    Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), MAKELPARAM(width, 0));
    left += width;
  }
}

void GridWindow::ShowHeader() {
  for (int i = 0; first() > 0 && i < Own().columns(); ++i) {
    std::wstring words = ToWide(Own().Text(0, i));
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT;
    column.pszText = words.data();
    Send(LVM_SETCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void GridWindow::Freeze(bool frozen) {
  if (frozen_ == frozen) return;
  frozen_ = frozen;
  Send(WM_SETREDRAW, frozen ? FALSE : TRUE);
}

void GridWindow::ShowRows() {
  Freeze(!Own().redraw());
  if (frozen_) return;
  tips_.Hide();
  ShowHeader();
  const int count = std::max(0, Own().rows() - first());
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
  ShowSelection();
  InvalidateRect(handle(), nullptr, TRUE);
}

void GridWindow::Unselect() {
  LVITEMW item = {};
  item.stateMask = kSelected;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
}

void GridWindow::ShowSelection() {
  if (frozen_) return;
  const int line = Own().current_row() - first();
  if (line < 0) return Unselect();
  LVITEMW item = {};
  item.state = kSelected;
  item.stateMask = kSelected;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&item));
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(line), FALSE);
  // Marking all rows changes how every row looks.
  InvalidateRect(handle(), nullptr, FALSE);
}

void GridWindow::Synchronize() {
  const Mirroring mirroring(*this);
  for (int i = 0; first() > 0 && i < Own().columns(); ++i) KeepWidth(i);
  ShowSelection();
}

int GridWindow::RowAt(POINT screen) const {
  LVHITTESTINFO hit = {};
  hit.pt = screen;
  ScreenToClient(handle(), &hit.pt);
  Send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit.iItem < 0 ? -1 : hit.iItem + first();
}

POINT GridWindow::CurrentRowPoint() const {
  RECT place = {LVIR_LABEL, 0, 0, 0};
  const int line = std::max(0, Own().current_row() - first());
  POINT point = {0, 0};
  if (Send(LVM_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&place)) != 0) {
    point = {place.left, place.bottom};
  }
  ClientToScreen(handle(), &point);
  return point;
}

ControlWindow::KeyUse GridWindow::Press(KeyPress press) {
  return Own().Press(press) ? KeyUse::kDone : KeyUse::kNone;
}

ControlWindow::KeyUse GridWindow::PressEnter() {
  // Where Enter presses no button it opens the row, as a double click does.
  if (owner().form().PressDefaultButton()) return KeyUse::kDone;
  if (owner().alive()) Own().DoubleClick(Own().current_row());
  return KeyUse::kDone;
}

void GridWindow::GiveText(NMLVDISPINFOW& wanted) {
  if ((wanted.item.mask & LVIF_TEXT) == 0) return;
  std::wstring& text = texts_[next_text_];
  next_text_ = (next_text_ + 1) % texts_.size();
  text = ToWide(Own().Text(wanted.item.iItem + first(), wanted.item.iSubItem));
  wanted.item.pszText = text.data();
}

void GridWindow::TakeSelection(const NMLISTVIEW& change) {
  if (mirroring() || (change.uChanged & LVIF_STATE) == 0) return;
  if ((change.uNewState & LVIS_SELECTED) != 0 && change.iItem >= 0) {
    Own().Select(change.iItem + first());
  } else if ((change.uOldState & LVIS_SELECTED) != 0) {
    // A click beside the rows chooses nothing, but one row is always current.
    owner().SynchronizeSoon(*this);
  }
}

LRESULT GridWindow::Paint(NMLVCUSTOMDRAW& draw) const {
  if (!Own().all_selected()) return CDRF_DODEFAULT;
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  // The current row as well: the list would paint it otherwise, and pale without the keyboard.
  draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
  draw.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  draw.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
  return CDRF_NEWFONT;
}

void GridWindow::KeepWidth(int column) {
  const auto width = static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  Own().set_column_width(column, ToUnits(width, owner().dpi()));
}

LRESULT GridWindow::OnNotify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      GiveText(reinterpret_cast<NMLVDISPINFOW&>(header));
      return 0;
    case LVN_ITEMCHANGED:
      TakeSelection(reinterpret_cast<NMLISTVIEW&>(header));
      return 0;
    case NM_CLICK:
    case NM_RCLICK:
    case NM_DBLCLK: {
      const int line = reinterpret_cast<NMITEMACTIVATE&>(header).iItem;
      if (line < 0) return 0;
      const int row = line + first();
      header.code == NM_DBLCLK ? Own().DoubleClick(row) : Own().Select(row);
      return 0;
    }
    case NM_CUSTOMDRAW:
      if (header.hwndFrom != handle()) return CDRF_DODEFAULT;
      return Paint(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    case LVN_ODFINDITEMW:
      return -1;
    case HDN_ENDTRACKW:
      // The list takes the new width only when this returns.
      owner().SynchronizeSoon(*this);
      return 0;
    default:
      return 0;
  }
}

void GridWindow::TypeCharacter(wchar_t unit) {
  if (IS_HIGH_SURROGATE(unit)) {
    high_surrogate_ = unit;
    return;
  }
  std::wstring character;
  if (IS_LOW_SURROGATE(unit) && high_surrogate_ != 0) character += high_surrogate_;
  high_surrogate_ = 0;
  character += unit;
  Own().TypeCharacter(ToUtf8(character));
}

void GridWindow::FillWidth() {
  const Mirroring mirroring(*this);
  if (!borders_.dragging()) ShowWidths();
}

bool GridWindow::CurrentRowShows() const {
  RECT inner = {};
  GetClientRect(handle(), &inner);
  // Before it has a size, it is still to be shown.
  if (IsRectEmpty(&inner)) return true;
  const auto line = LRESULT{Own().current_row()} - first();
  const LRESULT top = Send(LVM_GETTOPINDEX);
  return line >= top && line < top + Send(LVM_GETCOUNTPERPAGE);
}

void GridWindow::ShowResized() {
  const int line = Own().current_row() - first();
  if (keeps_row_in_sight_ && line >= 0) {
    Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(line), FALSE);
  }
  // More room moves the lines of a list that was scrolled to its end, but the list repaints only
  // the room that is new.
  InvalidateRect(handle(), nullptr, TRUE);
}

bool GridWindow::Take(UINT message, WPARAM w, LPARAM l) {
  tips_.Watch(message, w, l);
  switch (message) {
    case WM_CHAR:
      if (w >= L' ' && w != 0x7F) TypeCharacter(static_cast<wchar_t>(w));
      return true;
    case WM_SETCURSOR: {
      POINT place;
      GetCursorPos(&place);
      ScreenToClient(handle(), &place);
      if (first() > 0 || LOWORD(l) != HTCLIENT || reinterpret_cast<HWND>(w) != handle() ||
          ColumnBorders::At(handle(), place.x) < 0) {
        return false;
      }
      SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
      return true;
    }
    case WM_LBUTTONDOWN:
      if (first() > 0 || !borders_.Begin(handle(), GET_X_LPARAM(l))) return false;
      SetCapture(handle());
      return true;
    case WM_MOUSEMOVE:
      if (!borders_.dragging()) return false;
      borders_.Move(handle(), GET_X_LPARAM(l));
      return true;
    case WM_LBUTTONUP:
      if (!borders_.dragging()) return false;
      ReleaseCapture();
      return true;
    case WM_CAPTURECHANGED: {
      if (!borders_.dragging()) return false;
      const int column = borders_.column();
      borders_.End();
      KeepWidth(column);
      FillWidth();
      return true;
    }
    case WM_WINDOWPOSCHANGING:
      if ((reinterpret_cast<const WINDOWPOS*>(l)->flags & SWP_NOSIZE) == 0) {
        keeps_row_in_sight_ = CurrentRowShows();
      }
      return false;
    case WM_SIZE:
      FillWidth();
      DefSubclassProc(handle(), message, w, l);
      ShowResized();
      return true;
    default:
      return false;
  }
}

LRESULT CALLBACK GridWindow::Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                     DWORD_PTR self) noexcept {
  auto& grid = *reinterpret_cast<GridWindow*>(self);
  bool taken = false;
  grid.owner().Visit([&] { taken = grid.owner().alive() && grid.Take(message, w, l); });
  return taken ? (message == WM_SETCURSOR ? TRUE : 0) : DefSubclassProc(window, message, w, l);
}

}  // namespace quarvel::platform::win32
