#include "viewer/frm_set_col_bounds.h"

#include "model/error_reports.h"
#include "model/model_interface.h"
#include "platform/automation_error.h"

namespace quarvel {

using platform::MsgBoxStyle;

frmSetColBounds::frmSetColBounds(platform::Desktop& desktop)
    : Form(desktop, "frmSetColBounds"),
      lblColumn(*this, "lblColumn", {12, 10, 276, 20, {}}),
      fraType(*this, "fraType", {12, 34, 276, 80, {}}),
      optR(*this, "optR", {26, 56, 248, 22, {}}),
      optI(*this, "optI", {26, 80, 248, 22, {}}),
      bounds(*this, 122),
      cmdOK(*this, "cmdOK", {92, 226, 92, 28, {}}),
      cmdCancel(*this, "cmdCancel", {196, 226, 92, 28, {}}) {
  SetSize(300, 266, false);
  SurviveFailures();
  set_caption("Set Column Bounds");
  fraType.set_caption("Column Type");
  optR.set_caption("Real");
  optR.access_key = 'R';
  optI.set_caption("Integer");
  optI.access_key = 'I';
  cmdOK.set_caption("OK");
  cmdOK.is_default = true;
  cmdOK.on_click = [this] { Accept(); };
  cmdCancel.set_caption("Cancel");
  cmdCancel.is_cancel = true;
  cmdCancel.on_click = [this] { Unload(); };
}

void frmSetColBounds::ShowBounds(ModelInterface& model, std::int32_t column) {
  if (IsShowing()) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  const std::string type = model.ColType(column);
  if (type != "R" && type != "I") {
    desktop().MsgBox("Invalid Column Type specified", MsgBoxStyle::kOk);
    Unload();
    return;
  }
  model_ = &model;
  column_ = column;
  name_ = model.ColName(column);
  lblColumn.set_caption("Column " + name_);
  (type == "R" ? optR : optI).set_value(true);
  BoundBoxes::Put(bounds.txtLwrBnd, model.ColLowerBound(column));
  BoundBoxes::Put(bounds.txtUprBnd, model.ColUpperBound(column));
  ShowModal();
}

void frmSetColBounds::Accept() {
  if (model_ == nullptr) return;
  ModelInterface& model = *model_;
  if (!bounds.BothAreNumbers()) return;
  if (BoundBoxes::Get(bounds.txtLwrBnd) > BoundBoxes::Get(bounds.txtUprBnd)) bounds.Reverse();
  bounds.HoldWithinLimit();
  if (!HasColumn()) return;
  model.SetColType(column_, optI.value() ? "I" : "R");
  model.SetColUpperBound(column_, BoundBoxes::Get(bounds.txtUprBnd));
  model.SetColLowerBound(column_, BoundBoxes::Get(bounds.txtLwrBnd));
  Unload();
}

bool frmSetColBounds::HasColumn() {
  if (model_ == nullptr) return false;
  if (InRange(column_, model_->NumberOfColumns()) && model_->ColName(column_) == name_) return true;
  desktop().MsgBox("No Column Selected", MsgBoxStyle::kOk);
  Unload();
  return false;
}

}  // namespace quarvel
