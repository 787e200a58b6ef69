// Widening the columns of a list without a header: the border between two cells is dragged.
#pragma once

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class ColumnBorders {
 public:
  // The column whose right border is near that place of the list; -1 for none.
  static int At(HWND list, int x);

  bool dragging() const { return column_ >= 0; }
  int column() const { return column_; }
  // False when there is no border at the place.
  bool Begin(HWND list, int x);
  void Move(HWND list, int x) const;
  void End();

 private:
  int column_ = -1;
  int offset_ = 0;  // of the place that was grabbed from the border itself
};

}  // namespace quarvel::platform::win32
