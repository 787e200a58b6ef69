// What the windows of grids do with what the user does in them.
#include <windowsx.h>

#include "platform/win32/dpi.h"
#include "platform/win32/form_window.h"
#include "platform/win32/grid_view.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {

ControlView::KeyUse GridView::Press(KeyPress press) {
  return Own().Press(press) ? KeyUse::kDone : KeyUse::kNone;
}

ControlView::KeyUse GridView::PressEnter() {
  // Where Enter presses no button it opens the row, as a double click does.
  if (owner().form().PressDefaultButton()) return KeyUse::kDone;
  if (alive()) Own().DoubleClick(Own().current_row());
  return KeyUse::kDone;
}

void GridView::GiveText(NMLVDISPINFOW& wanted) {
  if ((wanted.item.mask & LVIF_TEXT) == 0) return;
  std::wstring& text = texts_[next_text_];
  next_text_ = (next_text_ + 1) % texts_.size();
  text = ToWide(Own().Text(wanted.item.iItem + first(), wanted.item.iSubItem));
  wanted.item.pszText = text.data();
}

void GridView::TakeSelection(const NMLISTVIEW& change) {
  if (mirroring() || (change.uChanged & LVIF_STATE) == 0) return;
  if ((change.uNewState & LVIS_SELECTED) != 0 && change.iItem >= 0) {
    Own().Select(change.iItem + first());
  } else if ((change.uOldState & LVIS_SELECTED) != 0) {
    // A click beside the rows chooses nothing, but one row is always current.
    owner().SynchronizeSoon(*this);
  }
}

LRESULT GridView::Paint(NMLVCUSTOMDRAW& draw) const {
  if (!Own().all_selected()) return CDRF_DODEFAULT;
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  // The current row as well: the list would paint it otherwise, and pale without the keyboard.
  draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
  draw.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  draw.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
  return CDRF_NEWFONT;
}

void GridView::KeepWidth(int column) {
  const auto width = static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  Own().set_column_width(column, ToUnits(width, owner().dpi()));
}

LRESULT GridView::OnNotify(NMHDR& header) {
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

void GridView::TypeCharacter(wchar_t unit) {
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

bool GridView::ShowBorderCursor(HWND window, WORD part) const {
  if (first() > 0 || part != HTCLIENT || window != handle()) return false;
  POINT place;
  GetCursorPos(&place);
  ScreenToClient(handle(), &place);
  if (ColumnBorders::At(handle(), place.x) < 0) return false;
  SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
  return true;
}

bool GridView::DragBorder(UINT message, int x) {
  if (message == WM_LBUTTONDOWN) {
    if (first() > 0 || !borders_.Begin(handle(), x)) return false;
    SetCapture(handle());
    return true;
  }
  if (!borders_.dragging()) return false;
  if (message == WM_MOUSEMOVE) borders_.Move(handle(), x);
  if (message == WM_LBUTTONUP) ReleaseCapture();
  if (message == WM_CAPTURECHANGED) EndDrag();
  return true;
}

void GridView::EndDrag() {
  const int column = borders_.column();
  borders_.End();
  KeepWidth(column);
  FillWidth();
}

bool GridView::Take(UINT message, WPARAM w, LPARAM l) {
  tips_.Watch(message, w, l);
  switch (message) {
    case WM_CHAR:
      if (w >= L' ' && w != 0x7F) TypeCharacter(static_cast<wchar_t>(w));
      return true;
    case WM_SETCURSOR:
      return ShowBorderCursor(reinterpret_cast<HWND>(w), LOWORD(l));
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      return DragBorder(message, GET_X_LPARAM(l));
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

LRESULT CALLBACK GridView::Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                   DWORD_PTR self) noexcept {
  auto& grid = *reinterpret_cast<GridView*>(self);
  bool taken = false;
  grid.owner().ForUser([&] { taken = grid.alive() && grid.Take(message, w, l); });
  return taken ? (message == WM_SETCURSOR ? TRUE : 0) : DefSubclassProc(window, message, w, l);
}

}  // namespace quarvel::platform::win32
