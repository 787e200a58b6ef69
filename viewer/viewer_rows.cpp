// The Rows tab of the viewer: its list, the details of the current row, and the way to a column.

#include <utility>

#include "model/error_reports.h"
#include "text/numbers.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

using text::RoundTripText;

std::string TypeWord(std::string_view type) {
  if (type == "E") return "equality";
  if (type == "G") return "greater than";
  if (type == "L") return "less than";
  if (type == "R") return "ranged";
  if (type == "N") return "objective";
  return "";
}

}  // namespace

void frmViewEquations::ConnectRows() {
  LinePane& list = rows.list;
  list.cboShowOnly.on_click = Handler(&frmViewEquations::FillRows);
  list.chkInvert.on_click = Handler(&frmViewEquations::FillRows);
  list.grid.cell = [this](int line, int column) { return RowsCell(line, column); };
  list.grid.on_row_change = Handler(&frmViewEquations::ShowRowDetail);
  rows.fgrdRowsVars.cell = [this](int line, int column) { return RowsVarsCell(line, column); };
  rows.fgrdRowsVars.on_double_click = Handler(&frmViewEquations::GoToColumn);
  rows.fgrdRowsType.cell = [this](int, int) { return RowsTypeCell(); };
  for (platform::Grid* grid : {&list.grid, &rows.fgrdRowsVars}) {
    grid->popup = &menu[MenuId::kEditRow];
  }
}

void frmViewEquations::FillRows() {
  const ModelInterface& model = *parent_;
  const int position = rows.list.cboShowOnly.list_index();
  rows.list.filter.Run(model.NumberOfRows(), rows.list.chkInvert.checked(),
                       [&model, position](std::int32_t i) {
                         return position == kShowAll || KeepsRow(position, model.RowType(i));
                       });
  rows.list.ShowLines();
  if (rows.list.filter.count() > 0) {
    ShowRowDetail();
  } else {
    ClearRowDetail();
  }
  rows.list.frame.set_caption("Rows (" + text::IntegerText(model.NumberOfRows()) + ")");
  UpdateMenus();
}

void frmViewEquations::EmptyRows() {
  rows.list.filter.Clear();
  rows.list.ShowLines();
  ClearRowDetail();
  rows.list.frame.set_caption("Rows (0)");
}

void frmViewEquations::ShowRowDetail() {
  const auto row = SelectedRow();
  if (!row) return UpdateMenus();
  const std::int32_t count = parent_->RowNumberElements(*row);
  const bool same = std::exchange(detail_row_, *row) == *row;
  const std::string name = parent_->RowName(*row);
  rows.fraVars.set_caption(count > 0
                               ? "Variables in " + name + " (" + text::IntegerText(count) + "):"
                               : "Variables:  " + name);
  ShowDetails(rows.fgrdRowsVars, count, same);
  ShowDetails(rows.fgrdRowsType, 1, same);
  UpdateMenus();
}

void frmViewEquations::ClearRowDetail() {
  detail_row_ = -1;
  rows.fraVars.set_caption("");
  ShowDetails(rows.fgrdRowsVars, 1, false);
  ShowDetails(rows.fgrdRowsType, 1, false);
}

std::string frmViewEquations::RowsCell(int line, int column) const {
  const auto row = rows.list.filter.At(line);
  if (parent_ == nullptr || !row) return "";
  return column == 0 ? parent_->RowName(*row) : TypeWord(parent_->RowType(*row));
}

std::string frmViewEquations::RowsVarsCell(int line, int column) const {
  if (parent_ == nullptr || detail_row_ < 0) return "";
  if (column == 0) return parent_->ColName(parent_->RowElementCol(detail_row_, line));
  return RoundTripText(parent_->RowElementValue(detail_row_, line));
}

std::string frmViewEquations::RowsTypeCell() const {
  if (parent_ == nullptr || detail_row_ < 0) return "";
  const std::string type = parent_->RowType(detail_row_);
  const std::string lower = RoundTripText(parent_->RowLowerBound(detail_row_));
  const std::string upper = RoundTripText(parent_->RowUpperBound(detail_row_));
  if (type == "N") return "Objective";
  if (type == "L") return "<=  " + upper;
  if (type == "G") return ">=  " + lower;
  if (type == "E") return "=  " + upper;
  if (type == "R") return lower + " <= " + parent_->RowName(detail_row_) + " <= " + upper;
  return "";
}

std::optional<std::int32_t> frmViewEquations::SelectedRow() const {
  const auto row = rows.list.Current();
  return row && InRange(*row, parent_->NumberOfRows()) ? row : std::nullopt;
}

std::optional<frmViewEquations::Element> frmViewEquations::SelectedElementOfRow() const {
  const auto row = SelectedRow();
  const std::int32_t k = rows.fgrdRowsVars.current_row();
  if (!row || *row != detail_row_ || !InRange(k, parent_->RowNumberElements(*row))) {
    return std::nullopt;
  }
  const std::int32_t column = parent_->RowElementCol(*row, k);
  return Element{{*row, parent_->RowName(*row)}, {column, parent_->ColName(column)}, k};
}

std::optional<frmViewEquations::Named> frmViewEquations::NamedRow() const {
  const auto row = SelectedRow();
  if (!row) return std::nullopt;
  return Named{*row, parent_->RowName(*row)};
}

bool frmViewEquations::IsStillRow(const Named& row) const {
  return IsReady() && InRange(row.number, parent_->NumberOfRows()) &&
         parent_->RowName(row.number) == row.name;
}

bool frmViewEquations::IsStillThere(const Element& element) const {
  return IsStillRow(element.row) && IsStillColumn(element.column) &&
         InRange(element.place, parent_->RowNumberElements(element.row.number)) &&
         parent_->RowElementCol(element.row.number, element.place) == element.column.number;
}

void frmViewEquations::GoToColumn() {
  const auto element = SelectedElementOfRow();
  if (!element) return;
  const auto place = columns.list.filter.PlaceOf(element->column.number);
  if (!place) return;
  sstViewEqns.set_current(kColumnsPage);
  columns.list.grid.set_current_row(*place);
  columns.list.grid.Focus();
  desktop().DoEvents();
  if (IsReady()) ShowColumnDetail();
}

}  // namespace quarvel
