// The whole text of a cell of a list, shown beside the mouse that rests on a cell too narrow for
// it. The list's own tips are not used: they know no columns but the first.
#pragma once

#include <functional>
#include <string>

#include "platform/win32/handles.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class CellTips {
 public:
  // The text of a cell, by line and column.
  using TextOfCell = std::function<std::wstring(int line, int column)>;

  // Without memory for its window there are no tips.
  void Open(HWND list, TextOfCell text);
  // A message that the list gets.
  void Watch(UINT message, WPARAM w, LPARAM l);
  // The texts or their places have changed.
  void Hide() { MoveTo({}); }

 private:
  struct Cell {
    int line = -1;
    int column = -1;
    bool operator==(const Cell&) const = default;
  };
  Cell CellAt(POINT place) const;
  // What is seen of it, in pixels of the list.
  RECT PlaceOf(Cell cell) const;
  bool IsCut(const RECT& place, const std::wstring& text) const;
  void MoveTo(Cell cell);
  LRESULT Send(UINT message, const void* what) const;

  HWND list_ = nullptr;
  WindowHolder tip_;
  TextOfCell text_;
  Cell cell_;
};

}  // namespace quarvel::platform::win32
