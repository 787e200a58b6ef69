// A list of rows in columns of text, of which one row is current. Virtual: it holds a row count and
// a function for a cell's text, and a drawer asks for the cells it shows, so that a million rows
// cost as much as ten.
//
// Rows are numbered from 0. A grid may have one fixed row: row 0 is then its header, which a drawer
// shows above the others and never scrolls away; being current there means that no line is chosen.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/control.h"
#include "platform/keys.h"

namespace quarvel::platform {

class MenuItem;

class Grid : public Control {
 public:
  // Column widths in form units.
  Grid(Form& form, std::string name, Place place, std::vector<int> widths, int fixed_rows = 0);

  // The text of a cell. What it raises is shown as an empty cell.
  std::function<std::string(int row, int column)> cell;
  // Another row became current, from code or by the user.
  std::function<void()> on_row_change;
  std::function<void()> on_double_click;
  // The Delete key was pressed in the grid.
  std::function<void()> on_delete;
  // The menu whose items a right click offers; null for none.
  MenuItem* popup = nullptr;
  // The column that typing searches.
  int search_column = 0;

  int columns() const { return static_cast<int>(widths_.size()); }
  int column_width(int column) const { return widths_[static_cast<std::size_t>(column)]; }
  void set_column_width(int column, int width);
  int fixed_rows() const { return fixed_rows_; }

  int rows() const { return rows_; }
  // The current row stays where it can, else becomes the last one (-1 in an empty grid, 0 in one
  // that was empty); on_row_change does not run. All cells are asked for anew.
  void set_rows(int rows);
  // -1 for none.
  int current_row() const { return current_row_; }
  // Runs on_row_change when it is another row. A number outside the grid is ignored.
  void set_current_row(int row);
  // The texts may have changed: the cells shown are asked for anew.
  void Refresh();
  // While off, a drawer changes nothing it shows, and cells answer what they answered before:
  // whatever `cell` looks at may be half built.
  bool redraw() const { return redraw_; }
  void set_redraw(bool redraw);

  // For drawers and tests: the text of a cell; never raises, empty outside the grid.
  std::string Text(int row, int column) const;
  // All rows are marked for copying, until a row is chosen.
  bool all_selected() const { return all_selected_; }
  // The current row, or all of them when they are marked: cells separated by tabs, lines by CR LF.
  std::string CopyText() const;

  // For drawers and tests: what the user does. Nothing when the grid is disabled or hidden.
  void Select(int row);
  void DoubleClick(int row);
  // True when the grid has a use for the key: Delete, Ctrl+A (mark all), Ctrl+C (copy).
  bool Press(KeyPress press);
  // A character typed in the grid: the next row whose text in the search column begins with what
  // was typed within a second becomes current. Letter case is ignored.
  void TypeCharacter(std::string_view character);

 private:
  bool MakeCurrent(int row);
  std::string Ask(int row, int column) const;
  bool BeginsWith(int row, std::string_view upper_case_start) const;
  void FindTyped(int first);

  std::vector<int> widths_;
  int fixed_rows_;
  int rows_ = 0;
  int current_row_ = -1;
  bool redraw_ = true;
  bool all_selected_ = false;
  std::string typed_;
  std::chrono::steady_clock::time_point last_typed_{};
  // What was shown last, for the time without redraw; never more than a few screens.
  mutable std::unordered_map<std::int64_t, std::string> seen_;
};

}  // namespace quarvel::platform
