// The viewer's commands that add, rename, delete and change columns.

#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

constexpr std::string_view kNoColumn = "No Column Selected";

}  // namespace

void frmViewEquations::ColAdd() {
  ModelInterface& model = *parent_;
  const std::string name = AskName("Enter a name for the new column.  Names cannot contain spaces.",
                                   "Spaces are not allowed in column names");
  if (!IsReady() || model.AddColumn(name) == 0 || !IsReady()) return;
  const std::int32_t column = model.NumberOfColumns() - 1;
  // A host may have emptied the model while the name was warned of.
  if (column >= 0) {
    model.SetColType(column, "R");
    col_bounds.ShowBounds(model, column);
  }
  if (IsReady()) Refill();
}

void frmViewEquations::ColRename() {
  ModelInterface& model = *parent_;
  const auto column = NamedColumn();
  if (!column) return Say(kNoColumn);
  const std::string name =
      desktop().InputBox("Enter a name for this column", platform::kDefaultTitle, column->name);
  WarnOfLongName(name);
  if (!IsReady()) return;
  if (!IsStillColumn(*column)) return GiveUp(kNoColumn);
  model.SetColName(column->number, name);
  if (IsReady()) Refill();
}

void frmViewEquations::ColDel() {
  ModelInterface& model = *parent_;
  const auto column = NamedColumn();
  if (!column) return Say(kNoColumn);
  if (!ConfirmDeletion("column " + column->name)) return;
  if (!IsStillColumn(*column)) return GiveUp(kNoColumn);
  const std::int32_t count = model.NumberOfColumns();
  model.DeleteColumn(column->number);
  if (!IsReady()) return;
  // The number is another column's now, whose details begin at their first line.
  if (model.NumberOfColumns() != count) detail_column_ = -1;
  Refill();
}

void frmViewEquations::ColChangeTypeBnd() {
  const auto column = NamedColumn();
  if (!column) return Say(kNoColumn);
  col_bounds.ShowBounds(*parent_, column->number);
  if (IsReady()) Refill();
}

}  // namespace quarvel
