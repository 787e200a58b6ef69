#include "viewer/viewer_tabs.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace quarvel {
namespace {

using platform::Follow;
using platform::Place;
using platform::TabStrip;
using platform::TextBox;

// The list takes one half of what a wider window offers, the details the other.
constexpr Follow kLeftTop{0, 0, 50, 0};
constexpr Follow kLeftFull{0, 0, 50, 100};
constexpr Follow kRightFull{50, 0, 100, 100};
constexpr Follow kRightBottom{50, 100, 100, 100};
// On the Columns tab rows and equation share what a higher window offers.
constexpr Follow kRightUpper{50, 0, 100, 60};
constexpr Follow kRightMiddle{50, 60, 100, 60};
constexpr Follow kRightLower{50, 60, 100, 100};

constexpr Place kFilterLabel{24, 138, 70, 20, {}};
constexpr Place kFilterBox{98, 134, 176, 24, kLeftTop};
constexpr Place kInvert{284, 134, 80, 24, {50, 0, 50, 0}};
constexpr Place kListFrame{24, 164, 340, 352, kLeftFull};
constexpr Place kListGrid{34, 186, 320, 320, kLeftFull};

// Columns of the grids, as every opening has them.
const std::vector<int> kRowsWidths = {128, 72};
const std::vector<int> kRowsVarsWidths = {120, 88};
const std::vector<int> kRowsTypeWidths = {340};
const std::vector<int> kColsWidths = {190, 64};
const std::vector<int> kColsEqnsWidths = {152};
const std::vector<int> kColsBoundsWidths = {104, 88, 148};

void Widen(platform::Grid& grid, const std::vector<int>& widths) {
  for (int i = 0; i < grid.columns(); ++i) {
    grid.set_column_width(i, widths[static_cast<std::size_t>(i)]);
  }
}

}  // namespace

LinePane::LinePane(platform::Form& form, const std::string& kind, std::vector<int> widths)
    : lblShowOnly(form, "lbl" + kind + "ShowOnly", kFilterLabel),
      cboShowOnly(form, "cbo" + kind + "ShowOnly", kFilterBox),
      chkInvert(form, "chk" + kind + "Invert", kInvert),
      frame(form, "fra" + kind, kListFrame),
      grid(form, "fgrd" + kind, kListGrid, std::move(widths)) {
  lblShowOnly.set_caption("Show only:");
  lblShowOnly.access_key = 'S';
  chkInvert.set_caption("Invert");
  chkInvert.access_key = 'I';
}

void LinePane::ShowLines() {
  grid.set_redraw(false);
  grid.set_rows(filter.count());
  grid.set_redraw(true);
}

void LinePane::HoldBy(TabStrip& strip, int page) {
  for (platform::Control* control : std::initializer_list<platform::Control*>{
           &lblShowOnly, &cboShowOnly, &chkInvert, &frame, &grid}) {
    strip.Hold(page, *control);
  }
}

void ShowDetails(platform::Grid& grid, std::int32_t count, bool same_line) {
  const bool chosen = same_line && grid.current_row() >= 0;
  grid.set_rows(count);
  if (!chosen) grid.set_current_row(-1);
}

RowsTab::RowsTab(platform::Form& form)
    : list(form, "Rows", kRowsWidths),
      fraVars(form, "fraVars", {376, 134, 360, 314, kRightFull}),
      fgrdRowsVars(form, "fgrdRowsVars", {386, 156, 340, 282, kRightFull}, kRowsVarsWidths),
      lblRowsType(form, "lblRowsType", {376, 458, 360, 18, kRightBottom}),
      fgrdRowsType(form, "fgrdRowsType", {376, 480, 360, 36, kRightBottom}, kRowsTypeWidths) {
  lblRowsType.set_caption("Type and bounds:");
  lblRowsType.access_key = 'T';
}

void RowsTab::HoldBy(TabStrip& strip, int page) {
  list.HoldBy(strip, page);
  strip.Hold(page, fraVars);
  strip.Hold(page, fgrdRowsVars);
  strip.Hold(page, lblRowsType);
  strip.Hold(page, fgrdRowsType);
}

void RowsTab::SetWidths() {
  Widen(list.grid, kRowsWidths);
  Widen(fgrdRowsVars, kRowsVarsWidths);
  Widen(fgrdRowsType, kRowsTypeWidths);
}

ColumnsTab::ColumnsTab(platform::Form& form)
    : list(form, "Cols", kColsWidths),
      fraEqns(form, "fraEqns", {376, 134, 360, 190, kRightUpper}),
      fgrdColsEqns(form, "fgrdColsEqns", {386, 156, 340, 158, kRightUpper}, kColsEqnsWidths),
      lblColsBounds(form, "lblColsBounds", {376, 334, 360, 18, kRightMiddle}),
      fgrdColsBounds(form, "fgrdColsBounds", {376, 356, 360, 36, kRightMiddle}, kColsBoundsWidths),
      lblColsEqn(form, "lblColsEqn", {376, 402, 360, 18, kRightMiddle}),
      txtColsEqn(form, "txtColsEqn", {376, 424, 360, 92, kRightLower}, TextBox::Lines::kMany) {
  lblColsBounds.set_caption("Bounds:");
  lblColsBounds.access_key = 'B';
  lblColsEqn.set_caption("Equation:");
  lblColsEqn.access_key = 'q';
  txtColsEqn.read_only = true;
}

void ColumnsTab::HoldBy(TabStrip& strip, int page) {
  list.HoldBy(strip, page);
  strip.Hold(page, fraEqns);
  strip.Hold(page, fgrdColsEqns);
  strip.Hold(page, lblColsBounds);
  strip.Hold(page, fgrdColsBounds);
  strip.Hold(page, lblColsEqn);
  strip.Hold(page, txtColsEqn);
}

void ColumnsTab::SetWidths() {
  Widen(list.grid, kColsWidths);
  Widen(fgrdColsEqns, kColsEqnsWidths);
  Widen(fgrdColsBounds, kColsBoundsWidths);
}

}  // namespace quarvel
