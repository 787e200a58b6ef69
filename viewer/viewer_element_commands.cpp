// The viewer's commands on single coefficients.

#include "text/numbers.h"
#include "viewer/element_value.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

using text::RoundTripText;

constexpr std::string_view kNoElementOfRow =
    "Please first click on a row and an element in that row";
constexpr std::string_view kNoElementOfColumn =
    "Please first click on a column and a row that column is in";
constexpr std::string_view kChangeTitle = "Change Element Value";

}  // namespace

void frmViewEquations::RowDelEle() {
  ModelInterface& model = *parent_;
  const auto element = SelectedElementOfRow();
  if (!element) return Say(kNoElementOfRow);
  if (!ConfirmDeletion("element " + element->column.name + " from row " + element->row.name)) {
    return;
  }
  if (!IsStillThere(*element)) return GiveUp(kNoElementOfRow);
  model.DeleteElement(element->row.number, element->place);
  Refill();
}

void frmViewEquations::ColDelEle() {
  ModelInterface& model = *parent_;
  const auto element = SelectedElementOfColumn();
  if (!element) return Say(kNoElementOfColumn);
  if (!ConfirmDeletion("element " + element->row.name + " from column " + element->column.name)) {
    return;
  }
  if (!IsStillThere(*element)) return GiveUp(kNoElementOfColumn);
  model.DeleteElement(element->row.number, element->place);
  Refill();
}

// Although it stands in the menu of rows, it takes the element from the Columns tab; the question
// names it.
void frmViewEquations::RowChangeEle() {
  ModelInterface& model = *parent_;
  const auto element = SelectedElementOfColumn();
  if (!element) return Say(kNoElementOfRow);
  const std::string entered = desktop().InputBox(
      "Enter a new value for element " + element->column.name + " in row " + element->row.name +
          "?  Entering 0 will delete this element from the row.",
      kChangeTitle, RoundTripText(model.RowElementValue(element->row.number, element->place)));
  if (entered.empty() || !IsReady()) return;
  const auto value = text::ParseNumber(entered);
  if (!value) return Say("Error: Please enter a numeric value");
  if (*value == 0) return ColDelEle();
  WarnOfLongValue(desktop(), *value);
  StoreValue(*element, *value);
}

// The coefficient is held to the bounds of its column.
void frmViewEquations::ColChangeEle() {
  ModelInterface& model = *parent_;
  const auto element = SelectedElementOfColumn();
  if (!element) return Say(kNoElementOfRow);
  const std::string entered = desktop().InputBox(
      "Enter a new value for element " + element->column.name + " in row " + element->row.name +
          "?",
      kChangeTitle, RoundTripText(model.RowElementValue(element->row.number, element->place)));
  if (entered.empty() || !IsReady()) return;
  if (!IsStillThere(*element)) return GiveUp(kNoElementOfRow);
  const double lower = model.ColLowerBound(element->column.number);
  const double upper = model.ColUpperBound(element->column.number);
  const auto value = text::ParseNumber(entered);
  if (!value || *value < lower || *value > upper) {
    return Say("Please enter a number between " + RoundTripText(lower) + " and " +
               RoundTripText(upper) + ".");
  }
  StoreValue(*element, *value);
}

void frmViewEquations::StoreValue(const Element& element, double value) {
  if (!IsReady()) return;
  if (!IsStillThere(element)) return GiveUp(kNoElementOfRow);
  parent_->SetRowElementValue(element.row.number, element.place, value);
  Refill();
  ShowEquation();
}

}  // namespace quarvel
