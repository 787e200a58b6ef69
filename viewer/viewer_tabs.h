// The two pages of the viewer: a filtered list on the left, what is known of its current line on
// the right. Only what they consist of and where it stands; the window fills them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/grid.h"
#include "platform/input_controls.h"
#include "viewer/line_filter.h"

namespace quarvel {

// A list of rows or of columns with its filter. `kind` is "Rows" or "Cols": the controls are called
// cboRowsShowOnly, chkRowsInvert, fraRows and fgrdRows, or the like with Cols.
struct LinePane {
  LinePane(platform::Form& form, const std::string& kind, std::vector<int> widths);
  void HoldBy(platform::TabStrip& strip, int page);

  // The model's number of the current line; nothing when there is no current line.
  std::optional<std::int32_t> Current() const { return filter.At(grid.current_row()); }
  // Gives the grid the lines that the filter keeps.
  void ShowLines();

  platform::Label lblShowOnly;
  platform::ComboBox cboShowOnly;
  platform::CheckBox chkInvert;
  platform::Frame frame;
  platform::Grid grid;
  LineFilter filter;
};

// Gives a grid of details its lines. Which of them is meant is the user's choice: none is current
// at first, and the current one stays while the grid goes on with the same row or column.
void ShowDetails(platform::Grid& grid, std::int32_t count, bool same_line);

struct RowsTab {
  explicit RowsTab(platform::Form& form);
  void HoldBy(platform::TabStrip& strip, int page);
  // Undoes whatever made columns of the grids wider.
  void SetWidths();

  LinePane list;
  platform::Frame fraVars;
  platform::Grid fgrdRowsVars;
  platform::Label lblRowsType;
  platform::Grid fgrdRowsType;
};

struct ColumnsTab {
  explicit ColumnsTab(platform::Form& form);
  void HoldBy(platform::TabStrip& strip, int page);
  // Undoes whatever made columns of the grids wider.
  void SetWidths();

  LinePane list;
  platform::Frame fraEqns;
  platform::Grid fgrdColsEqns;
  platform::Label lblColsBounds;
  platform::Grid fgrdColsBounds;
  platform::Label lblColsEqn;
  platform::TextBox txtColsEqn;
};

}  // namespace quarvel
