// The Columns tab of the viewer: its list, the details of the current column, and the way to a row.

#include <utility>

#include "model/error_reports.h"
#include "text/numbers.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

using text::RoundTripText;

std::string TypeWord(std::string_view type) {
  if (type == "R") return "real";
  if (type == "I") return "integer";
  if (type == "B") return "binary";
  return "";
}

}  // namespace

void frmViewEquations::ConnectColumns() {
  LinePane& list = columns.list;
  list.cboShowOnly.on_click = Handler(&frmViewEquations::FillColumns);
  list.chkInvert.on_click = Handler(&frmViewEquations::FillColumns);
  list.grid.cell = [this](int line, int column) { return ColsCell(line, column); };
  list.grid.on_row_change = Handler(&frmViewEquations::ShowColumnDetail);
  columns.fgrdColsEqns.cell = [this](int line, int) { return ColsEqnsCell(line); };
  columns.fgrdColsEqns.on_row_change = Handler(&frmViewEquations::ShowEquation);
  columns.fgrdColsEqns.on_double_click = Handler(&frmViewEquations::GoToRow);
  columns.fgrdColsBounds.cell = [this](int, int column) { return ColsBoundsCell(column); };
  for (platform::Grid* grid : {&list.grid, &columns.fgrdColsEqns}) {
    grid->popup = &menu[MenuId::kEditCol];
  }
}

void frmViewEquations::FillColumns() {
  const ModelInterface& model = *parent_;
  const int position = columns.list.cboShowOnly.list_index();
  columns.list.filter.Run(model.NumberOfColumns(), columns.list.chkInvert.checked(),
                          [&model, position](std::int32_t j) {
                            return position == kShowAll || KeepsColumn(position, model.ColType(j));
                          });
  columns.list.ShowLines();
  if (columns.list.filter.count() > 0) {
    ShowColumnDetail();
  } else {
    ClearColumnDetail();
  }
  columns.list.frame.set_caption("Columns (" + text::IntegerText(model.NumberOfColumns()) + ")");
  UpdateMenus();
}

void frmViewEquations::EmptyColumns() {
  columns.list.filter.Clear();
  columns.list.ShowLines();
  ClearColumnDetail();
  columns.list.frame.set_caption("Columns (0)");
}

void frmViewEquations::ShowColumnDetail() {
  const auto column = SelectedColumn();
  if (!column) return;
  const std::int32_t count = parent_->ColNumberElements(*column);
  const bool same = std::exchange(detail_column_, *column) == *column;
  columns.fraEqns.set_caption("Rows that " + parent_->ColName(*column) + " appears in (" +
                              text::IntegerText(count) + "):");
  ShowDetails(columns.fgrdColsEqns, count, same);
  ShowDetails(columns.fgrdColsBounds, 1, same);
  ShowEquation();
}

void frmViewEquations::ClearColumnDetail() {
  detail_column_ = -1;
  columns.fraEqns.set_caption("");
  ShowDetails(columns.fgrdColsEqns, 1, false);
  ShowDetails(columns.fgrdColsBounds, 1, false);
  columns.txtColsEqn.set_text("");
}

void frmViewEquations::ShowEquation() {
  const auto element = SelectedElementOfColumn();
  if (!element) return columns.txtColsEqn.set_text("");
  columns.txtColsEqn.set_text(element->row.name + ":  " +
                              parent_->RowEquation(element->row.number));
}

std::string frmViewEquations::ColsCell(int line, int column) const {
  const auto number = columns.list.filter.At(line);
  if (parent_ == nullptr || !number) return "";
  return column == 0 ? parent_->ColName(*number) : TypeWord(parent_->ColType(*number));
}

std::string frmViewEquations::ColsEqnsCell(int line) const {
  if (parent_ == nullptr || detail_column_ < 0) return "";
  return parent_->RowName(parent_->ColElementrow(detail_column_, line));
}

std::string frmViewEquations::ColsBoundsCell(int column) const {
  if (parent_ == nullptr || detail_column_ < 0) return "";
  switch (column) {
    case 0:
      return RoundTripText(parent_->ColLowerBound(detail_column_));
    case 1:
      return "<= " + parent_->ColName(detail_column_) + " <=";
    default:
      return RoundTripText(parent_->ColUpperBound(detail_column_));
  }
}

std::optional<std::int32_t> frmViewEquations::SelectedColumn() const {
  const auto column = columns.list.Current();
  return column && InRange(*column, parent_->NumberOfColumns()) ? column : std::nullopt;
}

std::optional<frmViewEquations::Element> frmViewEquations::SelectedElementOfColumn() const {
  const auto column = SelectedColumn();
  const std::int32_t e = columns.fgrdColsEqns.current_row();
  if (!column || *column != detail_column_ || !InRange(e, parent_->ColNumberElements(*column))) {
    return std::nullopt;
  }
  const std::int32_t row = parent_->ColElementrow(*column, e);
  const auto place = PlaceInRow(*parent_, row, *column);
  if (!place) return std::nullopt;
  return Element{{row, parent_->RowName(row)}, {*column, parent_->ColName(*column)}, *place};
}

std::optional<frmViewEquations::Named> frmViewEquations::NamedColumn() const {
  const auto column = SelectedColumn();
  if (!column) return std::nullopt;
  return Named{*column, parent_->ColName(*column)};
}

bool frmViewEquations::IsStillColumn(const Named& column) const {
  return IsReady() && InRange(column.number, parent_->NumberOfColumns()) &&
         parent_->ColName(column.number) == column.name;
}

void frmViewEquations::GoToRow() {
  const auto element = SelectedElementOfColumn();
  if (!element) return;
  const auto place = rows.list.filter.PlaceOf(element->row.number);
  if (!place) return;
  sstViewEqns.set_current(kRowsPage);
  rows.list.grid.set_current_row(*place);
  rows.list.grid.Focus();
  desktop().DoEvents();
  if (IsReady()) ShowRowDetail();
}

}  // namespace quarvel
