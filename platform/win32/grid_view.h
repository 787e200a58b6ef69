// The window of a grid: a virtual list that holds no text and asks for what it paints. A fixed row
// is its column header; without one its columns are widened by dragging the borders between cells.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/grid.h"
#include "platform/win32/cell_tips.h"
#include "platform/win32/column_borders.h"
#include "platform/win32/control_view.h"

namespace quarvel::platform::win32 {

class GridView : public ViewOf<Grid> {
 public:
  using ViewOf::ViewOf;
  void SetFont(HFONT font) override;
  KeyUse Press(KeyPress press) override;
  KeyUse PressEnter() override;
  LRESULT OnNotify(NMHDR& header) override;
  void Synchronize() override;

  // The row of the grid at a point of the screen, or the current row and where it stands when the
  // keyboard asks; -1 beside the rows.
  int RowAt(POINT screen) const;
  POINT CurrentRowPoint() const;

 protected:
  Style WindowStyle() const override;
  void Fill() override;
  void Show(Change change) override;

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                  DWORD_PTR self) noexcept;
  // Whether the message is dealt with.
  bool Take(UINT message, WPARAM w, LPARAM l);
  bool ShowBorderCursor(HWND window, WORD part) const;
  bool DragBorder(UINT message, int x);
  void EndDrag();
  void TypeCharacter(wchar_t unit);
  void ShowColumns();
  void ShowWidths();
  void ShowHeader();
  void ShowContents();
  void ShowSelection();
  void Freeze(bool frozen);
  void Unselect();
  void GiveText(NMLVDISPINFOW& wanted);
  void TakeSelection(const NMLISTVIEW& change);
  LRESULT Paint(NMLVCUSTOMDRAW& draw) const;
  void KeepWidth(int column);
  void FillWidth();
  bool CurrentRowShows() const;
  void ShowResized();
  int first() const { return Own().fixed_rows(); }

  ColumnBorders borders_;
  CellTips tips_;
  bool frozen_ = false;
  bool keeps_row_in_sight_ = true;  // of a change of size that is under way
  wchar_t high_surrogate_ = 0;
  // The list may look at a text until it has asked for two more.
  std::array<std::wstring, 4> texts_;
  std::size_t next_text_ = 0;
};

}  // namespace quarvel::platform::win32
