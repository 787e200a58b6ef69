#include "platform/win32/grid_view.h"

#include <algorithm>

#include "platform/win32/dpi.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr UINT kSelected = LVIS_SELECTED | LVIS_FOCUSED;
constexpr DWORD kExtendedStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;

}  // namespace

ControlView::Style GridView::WindowStyle() const {
  DWORD style = LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP;
  style |= first() == 0 ? LVS_NOCOLUMNHEADER : LVS_NOSORTHEADER;
  return {WC_LISTVIEWW, style, WS_EX_CLIENTEDGE};
}

void GridView::Fill() {
  SetWindowSubclass(handle(), Receive, 1, reinterpret_cast<DWORD_PTR>(this));
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kExtendedStyle, static_cast<LPARAM>(kExtendedStyle));
  ShowColumns();
  ShowContents();
  tips_.Open(handle(),
             [this](int line, int column) { return ToWide(Own().Text(line + first(), column)); });
}

void GridView::Show(Change change) {
  if (change == Change::kContents) ShowContents();
  if (change == Change::kSelection) ShowSelection();
  if (change == Change::kRange) ShowWidths();
}

void GridView::SetFont(HFONT font) {
  const Mirroring mirroring(*this);
  ControlView::SetFont(font);
  ShowWidths();
}

void GridView::ShowColumns() {
  for (int i = 0; i < Own().columns(); ++i) {
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = ToPixels(Own().column_width(i), owner().dpi());
    column.iSubItem = i;
    Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void GridView::ShowWidths() {
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

void GridView::ShowHeader() {
  for (int i = 0; first() > 0 && i < Own().columns(); ++i) {
    std::wstring words = ToWide(Own().Text(0, i));
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT;
    column.pszText = words.data();
    Send(LVM_SETCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void GridView::Freeze(bool frozen) {
  if (frozen_ == frozen) return;
  frozen_ = frozen;
  Send(WM_SETREDRAW, frozen ? FALSE : TRUE);
}

void GridView::ShowContents() {
  Freeze(!Own().redraw());
  if (frozen_) return;
  tips_.Hide();
  ShowHeader();
  const int count = std::max(0, Own().rows() - first());
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
  ShowSelection();
  InvalidateRect(handle(), nullptr, TRUE);
}

void GridView::Unselect() {
  LVITEMW item = {};
  item.stateMask = kSelected;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
}

void GridView::ShowSelection() {
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

void GridView::Synchronize() {
  const Mirroring mirroring(*this);
  for (int i = 0; first() > 0 && i < Own().columns(); ++i) KeepWidth(i);
  ShowSelection();
}

int GridView::RowAt(POINT screen) const {
  LVHITTESTINFO hit = {};
  hit.pt = screen;
  ScreenToClient(handle(), &hit.pt);
  Send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit.iItem < 0 ? -1 : hit.iItem + first();
}

POINT GridView::CurrentRowPoint() const {
  RECT place = {LVIR_LABEL, 0, 0, 0};
  const int line = std::max(0, Own().current_row() - first());
  POINT point = {0, 0};
  if (Send(LVM_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&place)) != 0) {
    point = {place.left, place.bottom};
  }
  ClientToScreen(handle(), &point);
  return point;
}

void GridView::FillWidth() {
  const Mirroring mirroring(*this);
  if (!borders_.dragging()) ShowWidths();
}

bool GridView::CurrentRowShows() const {
  RECT inner = {};
  GetClientRect(handle(), &inner);
  // Before it has a size, it is still to be shown.
  if (IsRectEmpty(&inner)) return true;
  const auto line = LRESULT{Own().current_row()} - first();
  const LRESULT top = Send(LVM_GETTOPINDEX);
  return line >= top && line < top + Send(LVM_GETCOUNTPERPAGE);
}

void GridView::ShowResized() {
  const int line = Own().current_row() - first();
  if (keeps_row_in_sight_ && line >= 0) {
    Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(line), FALSE);
  }
  // More room moves the lines of a list that was scrolled to its end, but the list repaints only
  // the room that is new.
  InvalidateRect(handle(), nullptr, TRUE);
}

}  // namespace quarvel::platform::win32
