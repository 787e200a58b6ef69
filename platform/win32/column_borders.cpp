#include "platform/win32/column_borders.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/dpi.h"

namespace quarvel::platform::win32 {
namespace {

constexpr int kReach = 4;
constexpr int kNarrowest = 12;

int Width(HWND list, int column) {
  return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

int ColumnCount(HWND list) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  return header == nullptr ? 0 : static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

int LeftOf(HWND list, int column) {
  int left = -GetScrollPos(list, SB_HORZ);
  for (int i = 0; i < column; ++i) left += Width(list, i);
  return left;
}

}  // namespace

int ColumnBorders::At(HWND list, int x) {
  const int reach = ToPixels(kReach, DpiOf(list));
  int border = LeftOf(list, 0);
  int found = -1;
  for (int column = 0; column < ColumnCount(list); ++column) {
    border += Width(list, column);
    if (std::abs(x - border) <= reach) found = column;
  }
  return found;
}

bool ColumnBorders::Begin(HWND list, int x) {
  const int column = At(list, x);
  if (column < 0) return false;
  column_ = column;
  offset_ = x - LeftOf(list, column + 1);
  return true;
}

void ColumnBorders::Move(HWND list, int x) const {
  const int narrowest = ToPixels(kNarrowest, DpiOf(list));
  const int width = std::max(narrowest, x - offset_ - LeftOf(list, column_));
  SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column_), MAKELPARAM(width, 0));
}

void ColumnBorders::End() { column_ = -1; }

}  // namespace quarvel::platform::win32
