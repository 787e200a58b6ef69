// The operations of the model that show the viewer.

#include "component/lp_model.h"
#include "component/model_windows.h"
#include "model/error_reports.h"
#include "text/numbers.h"

namespace quarvel {
namespace {

std::string KindRangeText(std::int32_t number, std::string_view kind, std::int32_t count) {
  return "Quarvel.dll error: row " + text::IntegerText(number) + " is out of range.  \r\n" +
         std::string(kind) + " range from 0 to " + text::IntegerText(std::int64_t{count} - 1) + ".";
}

}  // namespace

// Prepares the window for the model and shows it.
void LPModel::View(bool editing, const std::function<void(viewer::frmViewEquations&)>& show) {
  viewer::frmViewEquations& viewer = windows_->viewer();
  frmViewEquationsIsShowing(true);
  viewer.Parent(*this);
  // What a read or a simplification is building, nobody else changes; a window that is open
  // already is paused, and goes on afterwards as it was.
  const bool rebuilt = view_.IsBeingRebuilt();
  if (!rebuilt || !viewer.IsShowing()) viewer.EditMode(editing && !rebuilt);
  try {
    show(viewer);
  } catch (...) {
    if (!viewer.IsShowing()) frmViewEquationsIsShowing(false);
    throw;
  }
}

void LPModel::ViewRowNumber(std::int32_t row, bool editing) {
  View(editing, [row](viewer::frmViewEquations& viewer) { viewer.ShowRow(model::Stored(row)); });
}

// Rows that cannot be shown take the window away, columns do not.
void LPModel::RefuseRow(std::string_view text) {
  Refuse(text);
  windows_->UnloadViewer();
}

void LPModel::ViewEquations(bool EditingIsEnabled) {
  Guarded([&] {
    View(EditingIsEnabled, [](viewer::frmViewEquations& viewer) { viewer.ShowWindow(); });
  });
}

void LPModel::ViewCol(std::int32_t ColNum, bool EditingIsEnabled) {
  Guarded([&] {
    if (!model::InRange(ColNum, NumberOfColumns())) {
      Refuse(model::ColumnRangeText(ColNum, NumberOfColumns()));
      return;
    }
    View(EditingIsEnabled,
         [ColNum](viewer::frmViewEquations& viewer) { viewer.ShowCol(model::Stored(ColNum)); });
  });
}

void LPModel::ViewRow(std::int32_t RowNum, bool EditingIsEnabled) {
  Guarded([&] {
    if (!model::InRange(RowNum, NumberOfRows())) {
      RefuseRow(model::RowRangeText(RowNum, NumberOfRows()));
      return;
    }
    ViewRowNumber(RowNum, EditingIsEnabled);
  });
}

void LPModel::ViewNonBindingRow(std::int32_t RowNum, bool EditingIsEnabled) {
  Guarded([&] {
    if (!model::InRange(RowNum, NumberOfNonBindingRows())) {
      RefuseRow(KindRangeText(RowNum, "Non-Binding Rows", NumberOfNonBindingRows()));
      return;
    }
    ViewRowNumber(NonBindingRowIndex(RowNum), EditingIsEnabled);
  });
}

void LPModel::ViewBindingRow(std::int32_t RowNum, bool EditingIsEnabled) {
  Guarded([&] {
    if (!model::InRange(RowNum, NumberOfBindingRows())) {
      RefuseRow(KindRangeText(RowNum, "Binding rows", NumberOfBindingRows()));
      return;
    }
    ViewRowNumber(BindingRowIndex(RowNum), EditingIsEnabled);
  });
}

void LPModel::NewMPSModel() {
  Guarded([&] {
    MakeNewModel();
    // A window that is open already shows the old model.
    if (model::ModelView* view = view_.open()) view->RefreshForm();
    ViewEquations(true);
  });
}

}  // namespace quarvel
