#include "viewer/frm_add_elements_to_row.h"

#include <cstddef>

#include "model/model_interface.h"
#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "text/numbers.h"
#include "viewer/element_value.h"

namespace quarvel::viewer {

using platform::Refusal;

frmAddElementsToRow::frmAddElementsToRow(platform::Desktop& desktop)
    : Form(desktop, "frmAddElementsToRow"),
      lblSelect(*this, "lblSelect", {12, 12, 316, 20, {0, 0, 100, 0}}),
      fgrdCols(*this, "fgrdCols", {12, 36, 316, 300, {0, 0, 100, 100}}, {80, 212}, 1),
      cmdOK(*this, "cmdOK", {132, 348, 92, 28, {100, 100, 100, 100}}),
      cmdCancel(*this, "cmdCancel", {236, 348, 92, 28, {100, 100, 100, 100}}) {
  SetSize(340, 388, true);
  SetSmallestSize(280, 200);
  SurviveFailures();
  set_caption("Add Elements to Row XXXXXXXX");
  lblSelect.set_caption("Select a Column to Add:");
  lblSelect.access_key = 'S';
  fgrdCols.cell = [this](int line, int column) { return Cell(line, column); };
  fgrdCols.search_column = 1;
  fgrdCols.on_double_click = [this] { Accept(); };
  cmdOK.set_caption("OK");
  cmdOK.is_default = true;
  cmdOK.on_click = [this] { Accept(); };
  cmdCancel.set_caption("Cancel");
  cmdCancel.is_cancel = true;
  cmdCancel.on_click = [this] { Unload(); };
}

void frmAddElementsToRow::Begin(std::int32_t row, model::ModelInterface& model) {
  if (IsShowing()) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  if (model.NumberOfColumns() == 0) {
    desktop().MsgBox(Refusal("Error: No column has been added yet. Please add columns first"));
    return;
  }
  model_ = &model;
  row_ = NamedRecord::Of(model, model::kRowKind, row);
  FindAbsentColumns();
  fgrdCols.set_rows(static_cast<int>(absent_.size()) + 1);
  set_caption("Add Elements to Row " + row_.name);
  fgrdCols.set_current_row(0);
  ShowModal();
}

void frmAddElementsToRow::FindAbsentColumns() {
  const std::int32_t count = model_->NumberOfColumns();
  std::vector<bool> present(static_cast<std::size_t>(count), false);
  const std::int32_t elements = model_->RowNumberElements(row_.number);
  for (std::int32_t k = 0; k < elements; ++k) {
    present[static_cast<std::size_t>(model_->RowElementCol(row_.number, k))] = true;
  }
  absent_.clear();
  for (std::int32_t j = 0; j < count; ++j) {
    if (!present[static_cast<std::size_t>(j)]) absent_.push_back(j);
  }
}

void frmAddElementsToRow::OnUnload() {
  model_ = nullptr;
  fgrdCols.set_rows(0);
  absent_.clear();
}

std::string frmAddElementsToRow::Cell(int line, int column) const {
  if (line == 0) return column == 0 ? "i.d." : "name";
  const std::int32_t number = absent_[static_cast<std::size_t>(line) - 1];
  return column == 0 ? text::IntegerText(number) : model_->ColName(number);
}

std::optional<std::int32_t> frmAddElementsToRow::ChosenColumn() const {
  const int line = fgrdCols.current_row();
  if (line < 1 || !HasRecord(*model_, model::kRowKind, row_.number)) return std::nullopt;
  const std::int32_t column = absent_[static_cast<std::size_t>(line) - 1];
  if (!HasRecord(*model_, model::kColumnKind, column)) return std::nullopt;
  return column;
}

void frmAddElementsToRow::Accept() {
  if (model_ == nullptr) return;
  model::ModelInterface& model = *model_;
  const auto column = ChosenColumn();
  if (!column) {
    desktop().MsgBox(Refusal("Please select a column"));
    return;
  }
  const NamedRecord named = NamedRecord::Of(model, model::kColumnKind, *column);
  const auto value = AskValue(named);
  if (!value || model_ == nullptr) return;
  WarnOfLongValue(desktop(), *value);
  if (model_ == nullptr) return;
  if (AreStillFree(named)) {
    model.AddElement(row_.number, named.number, *value);
  } else {
    desktop().MsgBox(Refusal("Please select a column"));
  }
  Unload();
}

bool frmAddElementsToRow::AreStillFree(const NamedRecord& column) const {
  return row_.IsIn(*model_) && column.IsIn(*model_) &&
         !PlaceInRow(*model_, row_.number, column.number);
}

std::optional<double> frmAddElementsToRow::AskValue(const NamedRecord& column) {
  const std::string entered =
      desktop().InputBox("Enter a coefficient value for the element at column " + column.name +
                             ", row " + model_->RowName(row_.number),
                         platform::kDefaultTitle, "");
  if (entered.empty()) return std::nullopt;
  const auto value = text::ParseNumber(entered);
  if (!value) {
    desktop().MsgBox(Refusal("Invalid input"));
  } else if (*value == 0) {
    desktop().MsgBox(Refusal("Cannot have an element with coefficient 0"));
  } else {
    return value;
  }
  return std::nullopt;
}

}  // namespace quarvel::viewer
