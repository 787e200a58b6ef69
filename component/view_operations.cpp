// The operations of the model that show the viewer.

#include <memory>

#include "model/error_reports.h"
#include "model/lp_model.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "text/numbers.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

viewer::frmViewEquations& Viewer(LPModel& model) {
  std::unique_ptr<platform::Form>& slot = model.window(WindowSlot::kViewer);
  if (!slot) slot = std::make_unique<viewer::frmViewEquations>(model.desktop());
  return static_cast<viewer::frmViewEquations&>(*slot);
}

// Prepares the window for the model and shows it.
template <typename Show>
void View(LPModel& model, bool editing, Show show) {
  viewer::frmViewEquations& viewer = Viewer(model);
  model.frmViewEquationsIsShowing(true);
  viewer.Parent(model);
  // What a read or a simplification is building, nobody else changes; a window that is open
  // already is paused, and goes on afterwards as it was.
  const bool rebuilt = model.IsBeingRebuilt();
  if (!rebuilt || !viewer.IsShowing()) viewer.EditMode(editing && !rebuilt);
  try {
    show(viewer);
  } catch (...) {
    if (!viewer.IsShowing()) model.frmViewEquationsIsShowing(false);
    throw;
  }
}

void ViewRowNumber(LPModel& model, std::int32_t row, bool editing) {
  View(model, editing, [row](viewer::frmViewEquations& viewer) { viewer.ShowRow(row + 1); });
}

void ShowBox(LPModel& model, std::string_view text) {
  model.desktop().MsgBox(platform::Refusal(text));
}

// Rows that cannot be shown take the window away, columns do not.
void RefuseRow(LPModel& model, std::string_view text) {
  ShowBox(model, text);
  platform::Form* const viewer = model.window(WindowSlot::kViewer).get();
  if (viewer != nullptr) viewer->Unload();
}

std::string KindRangeText(std::int32_t number, std::string_view kind, std::int32_t count) {
  return "Quarvel.dll error: row " + text::IntegerText(number) + " is out of range.  \r\n" +
         std::string(kind) + " range from 0 to " + text::IntegerText(std::int64_t{count} - 1) + ".";
}

}  // namespace

void LPModel::ViewEquations(bool EditingIsEnabled) {
  View(*this, EditingIsEnabled, [](viewer::frmViewEquations& viewer) { viewer.ShowWindow(); });
}

void LPModel::ViewCol(std::int32_t ColNum, bool EditingIsEnabled) {
  if (!InRange(ColNum, NumberOfColumns())) {
    ShowBox(*this, ColumnRangeText(ColNum, NumberOfColumns()));
    return;
  }
  View(*this, EditingIsEnabled,
       [ColNum](viewer::frmViewEquations& viewer) { viewer.ShowCol(ColNum + 1); });
}

void LPModel::ViewRow(std::int32_t RowNum, bool EditingIsEnabled) {
  if (!InRange(RowNum, NumberOfRows())) {
    RefuseRow(*this, RowRangeText(RowNum, NumberOfRows()));
    return;
  }
  ViewRowNumber(*this, RowNum, EditingIsEnabled);
}

void LPModel::ViewNonBindingRow(std::int32_t RowNum, bool EditingIsEnabled) {
  if (!InRange(RowNum, NumberOfNonBindingRows())) {
    RefuseRow(*this, KindRangeText(RowNum, "Non-Binding Rows", NumberOfNonBindingRows()));
    return;
  }
  ViewRowNumber(*this, NonBindingRowIndex(RowNum), EditingIsEnabled);
}

void LPModel::ViewBindingRow(std::int32_t RowNum, bool EditingIsEnabled) {
  if (!InRange(RowNum, NumberOfBindingRows())) {
    RefuseRow(*this, KindRangeText(RowNum, "Binding rows", NumberOfBindingRows()));
    return;
  }
  ViewRowNumber(*this, BindingRowIndex(RowNum), EditingIsEnabled);
}

void LPModel::NewMPSModel() {
  MakeNewModel();
  // A window that is open already shows the old model.
  if (ModelView* view = OpenView(*this)) view->RefreshForm();
  ViewEquations(true);
}

}  // namespace quarvel
