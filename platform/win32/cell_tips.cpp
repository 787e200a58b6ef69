#include "platform/win32/cell_tips.h"

#include <utility>

#include <windowsx.h>

#include "platform/win32/dpi.h"

namespace quarvel::platform::win32 {
namespace {

// That much of a cell's width, in form units, is beside its text.
constexpr int kCellMargins = 12;

TTTOOLINFOW Tool(HWND list) {
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = list;
  tool.uId = 1;
  return tool;
}

}  // namespace

void CellTips::Open(HWND list, TextOfCell text) {
  list_ = list;
  text_ = std::move(text);
  tip_ = WindowHolder(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                      WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, list,
                                      nullptr, nullptr, nullptr));
  wchar_t none[] = L"";
  TTTOOLINFOW tool = Tool(list);
  tool.lpszText = none;
  Send(TTM_ADDTOOLW, &tool);
}

LRESULT CellTips::Send(UINT message, const void* what) const {
  return SendMessageW(tip_.get(), message, 0, reinterpret_cast<LPARAM>(what));
}

CellTips::Cell CellTips::CellAt(POINT place) const {
  LVHITTESTINFO hit = {};
  hit.pt = place;
  SendMessageW(list_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit.iItem < 0 ? Cell() : Cell{hit.iItem, hit.iSubItem};
}

RECT CellTips::PlaceOf(Cell cell) const {
  // Of the first column the whole place is that of the line.
  RECT place = {cell.column == 0 ? LVIR_LABEL : LVIR_BOUNDS, cell.column, 0, 0};
  SendMessageW(list_, LVM_GETSUBITEMRECT, static_cast<WPARAM>(cell.line),
               reinterpret_cast<LPARAM>(&place));
  RECT inner;
  RECT seen;
  GetClientRect(list_, &inner);
  IntersectRect(&seen, &place, &inner);
  return seen;
}

bool CellTips::IsCut(const RECT& place, const std::wstring& text) const {
  const auto width = static_cast<int>(
      SendMessageW(list_, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str())));
  return width + ToPixels(kCellMargins, DpiOf(list_)) > place.right - place.left;
}

void CellTips::MoveTo(Cell cell) {
  if (cell == cell_) return;
  cell_ = cell;
  SendMessageW(tip_.get(), TTM_POP, 0, 0);
  TTTOOLINFOW tool = Tool(list_);
  std::wstring text;
  if (cell.line >= 0) {
    tool.rect = PlaceOf(cell);
    text = text_(cell.line, cell.column);
    if (!IsCut(tool.rect, text)) text.clear();
  }
  tool.lpszText = text.data();
  Send(TTM_NEWTOOLRECTW, &tool);
  Send(TTM_UPDATETIPTEXTW, &tool);
}

void CellTips::Watch(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_MOUSEMOVE: {
      MoveTo(CellAt({GET_X_LPARAM(l), GET_Y_LPARAM(l)}));
      const MSG moved = {list_, message, w, l, 0, {}};
      Send(TTM_RELAYEVENT, &moved);
      return;
    }
    // Other cells may come under the mouse.
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_MOUSEWHEEL:
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_KEYDOWN:
    case WM_SIZE:
      return Hide();
    default:
      return;
  }
}

}  // namespace quarvel::platform::win32
