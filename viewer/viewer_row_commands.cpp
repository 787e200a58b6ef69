// The viewer's commands that add, rename, delete and change rows.

#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

constexpr std::string_view kNoRow = "No Row Selected";

}  // namespace

void frmViewEquations::RowAdd() {
  ModelInterface& model = *parent_;
  const std::string name = AskName("Enter a name for the new row.  Names cannot contain spaces.",
                                   "Spaces are not allowed in row names");
  if (!IsReady() || model.AddRow(name) == 0 || !IsReady()) return;
  const std::int32_t row = model.NumberOfRows() - 1;
  // A host may have emptied the model while the name was warned of.
  if (row >= 0) {
    model.SetRowType(row, "L");
    row_bounds.ShowBounds(model, row);
  }
  if (IsReady()) Refill();
}

void frmViewEquations::RowRename() {
  ModelInterface& model = *parent_;
  const auto row = NamedRow();
  if (!row) return Say(kNoRow);
  const std::string name =
      desktop().InputBox("Enter a name for this row", platform::kDefaultTitle, row->name);
  WarnOfLongName(name);
  if (!IsReady()) return;
  if (!IsStillRow(*row)) return GiveUp(kNoRow);
  model.SetRowName(row->number, name);
  if (IsReady()) Refill();
}

void frmViewEquations::RowDel() {
  ModelInterface& model = *parent_;
  const auto row = NamedRow();
  if (!row) return Say(kNoRow);
  if (!ConfirmDeletion("row " + row->name)) return;
  if (!IsStillRow(*row)) return GiveUp(kNoRow);
  const std::int32_t count = model.NumberOfRows();
  model.DeleteRow(row->number);
  if (!IsReady()) return;
  // The number is another row's now, whose details begin at their first line.
  if (model.NumberOfRows() != count) detail_row_ = -1;
  Refill();
}

void frmViewEquations::RowAddEle() {
  const auto row = NamedRow();
  if (!row) return Say(kNoRow);
  add_elements.Begin(row->number, *parent_);
  if (IsReady()) Refill();
}

void frmViewEquations::RowChangeBnd() {
  const auto row = NamedRow();
  if (!row) return Say(kNoRow);
  row_bounds.ShowBounds(*parent_, row->number);
  if (IsReady()) Refill();
}

}  // namespace quarvel
