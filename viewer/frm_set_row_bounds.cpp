#include "viewer/frm_set_row_bounds.h"

#include "model/error_reports.h"
#include "model/model_interface.h"
#include "platform/automation_error.h"

namespace quarvel {

using platform::MsgBoxStyle;
using platform::OptionButton;

frmSetRowBounds::frmSetRowBounds(platform::Desktop& desktop)
    : Form(desktop, "frmSetRowBounds"),
      lblRow(*this, "lblRow", {12, 10, 276, 20, {}}),
      fraType(*this, "fraType", {12, 34, 276, 152, {}}),
      optN(*this, "optN", {26, 56, 248, 22, {}}),
      optR(*this, "optR", {26, 80, 248, 22, {}}),
      optE(*this, "optE", {26, 104, 248, 22, {}}),
      optGT(*this, "optGT", {26, 128, 248, 22, {}}),
      optLT(*this, "optLT", {26, 152, 248, 22, {}}),
      bounds(*this, 194),
      cmdOK(*this, "cmdOK", {92, 298, 92, 28, {}}),
      cmdCancel(*this, "cmdCancel", {196, 298, 92, 28, {}}) {
  SetSize(300, 338, false);
  SurviveFailures();
  set_caption("Set Row Bounds");
  const struct {
    platform::Control& control;
    const char* caption;
    char access_key;
  } all_words[] = {
      {fraType, "Bound Type", 0},
      {optN, "Non-Binding/Objective", 'N'},
      {optR, "Range", 'R'},
      {optE, "Equality", 'E'},
      {optGT, "Greater Than or Equal To", 'G'},
      {optLT, "Less Than or Equal To", 'L'},
      {cmdOK, "OK", 0},
      {cmdCancel, "Cancel", 0},
  };
  for (const auto& words : all_words) {
    words.control.set_caption(words.caption);
    words.control.access_key = words.access_key;
  }
  cmdOK.is_default = true;
  cmdOK.on_click = [this] { Accept(); };
  cmdCancel.is_cancel = true;
  cmdCancel.on_click = [this] { Unload(); };
}

OptionButton* frmSetRowBounds::OptionOf(std::string_view type) {
  const struct {
    std::string_view type;
    OptionButton* option;
  } options[] = {{"L", &optLT}, {"G", &optGT}, {"E", &optE}, {"R", &optR}, {"N", &optN}};
  for (const auto& line : options) {
    if (line.type == type) return line.option;
  }
  return nullptr;
}

void frmSetRowBounds::ShowBounds(ModelInterface& model, std::int32_t row) {
  if (IsShowing()) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  OptionButton* const option = OptionOf(model.RowType(row));
  if (option == nullptr) {
    desktop().MsgBox("Invalid Bound Type specified", MsgBoxStyle::kOk);
    Unload();
    return;
  }
  model_ = &model;
  row_ = row;
  name_ = model.RowName(row);
  lblRow.set_caption("Row " + name_);
  option->set_value(true);
  BoundBoxes::Put(bounds.txtLwrBnd, model.RowLowerBound(row));
  BoundBoxes::Put(bounds.txtUprBnd, model.RowUpperBound(row));
  ShowModal();
}

void frmSetRowBounds::Accept() {
  if (model_ == nullptr) return;
  ModelInterface& model = *model_;
  if (!bounds.BothAreNumbers()) return;
  if (optR.value()) CheckRange();
  if (!HasRow()) return;
  StoreType();
  bounds.HoldWithinLimit();
  if (!HasRow()) return;
  model.SetRowUpperBound(row_, BoundBoxes::Get(bounds.txtUprBnd));
  model.SetRowLowerBound(row_, BoundBoxes::Get(bounds.txtLwrBnd));
  Unload();
}

bool frmSetRowBounds::HasRow() {
  if (model_ == nullptr) return false;
  if (InRange(row_, model_->NumberOfRows()) && model_->RowName(row_) == name_) return true;
  desktop().MsgBox("No Row Selected", MsgBoxStyle::kOk);
  Unload();
  return false;
}

void frmSetRowBounds::CheckRange() {
  const double lower = BoundBoxes::Get(bounds.txtLwrBnd);
  const double upper = BoundBoxes::Get(bounds.txtUprBnd);
  if (lower > upper) {
    bounds.Reverse();
  } else if (lower == upper) {
    optE.set_value(true);
    desktop().MsgBox("Bounds were identical.  Bound type changed to equality", MsgBoxStyle::kOk);
  }
}

// The open side of an inequality gets the limit of the other sign; models have been written with
// these values and are to stay as they are.
void frmSetRowBounds::StoreType() {
  if (optE.value()) {
    model_->SetRowType(row_, "E");
    bounds.txtLwrBnd.set_text(bounds.txtUprBnd.text());
  } else if (optR.value()) {
    model_->SetRowType(row_, "R");
  } else if (optLT.value()) {
    model_->SetRowType(row_, "L");
    BoundBoxes::Put(bounds.txtLwrBnd, BoundLimit);
  } else if (optGT.value()) {
    model_->SetRowType(row_, "G");
    BoundBoxes::Put(bounds.txtUprBnd, -BoundLimit);
  } else {
    model_->SetRowType(row_, "N");
  }
}

}  // namespace quarvel
