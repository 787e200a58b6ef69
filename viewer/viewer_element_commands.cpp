// The viewer's commands on single coefficients.

#include "text/numbers.h"
#include "viewer/element_value.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

using text::GeneralText;

constexpr std::string_view kNoElementOfRow =
    "Please first click on a row and an element in that row";
constexpr std::string_view kNoElementOfColumn =
    "Please first click on a column and a row that column is in";
constexpr std::string_view kChangeTitle = "Change Element Value";

}  // namespace

void frmViewEquations::RowDelEle() {
  LPModel& model = *parent_;
  const auto element = SelectedElementOfRow();
  if (!element) return Say(kNoElementOfRow);
  if (!ConfirmDeletion("element " + model.ColName(element->column) + " from row " +
                       model.RowName(element->row))) {
    return;
  }
  if (!IsStillThere(*element)) return Say(kNoElementOfRow);
  model.DeleteElement(element->row, element->row_element);
  Refill();
}

void frmViewEquations::ColDelEle() {
  LPModel& model = *parent_;
  const auto element = SelectedElementOfColumn();
  if (!element) return Say(kNoElementOfColumn);
  if (!ConfirmDeletion("element " + model.RowName(element->row) + " from column " +
                       model.ColName(element->column))) {
    return;
  }
  if (!IsStillThere(*element)) return Say(kNoElementOfColumn);
  model.DeleteElement(element->row, element->row_element);
  Refill();
}

// Although it stands in the menu of rows, it takes the element from the Columns tab; the question
// names it.
void frmViewEquations::RowChangeEle() {
  LPModel& model = *parent_;
  const auto element = SelectedElementOfColumn();
  if (!element) return Say(kNoElementOfRow);
  const std::string entered = desktop().InputBox(
      "Enter a new value for element " + model.ColName(element->column) + " in row " +
          model.RowName(element->row) + "?  Entering 0 will delete this element from the row.",
      kChangeTitle, GeneralText(model.RowElementValue(element->row, element->row_element)));
  if (entered.empty() || !IsReady()) return;
  const auto value = text::ParseNumber(entered);
  if (!value) return Say("Error: Please enter a numeric value");
  if (*value == 0) return ColDelEle();
  WarnOfLongValue(desktop(), *value);
  StoreValue(*element, *value);
}

// The coefficient is held to the bounds of its column.
void frmViewEquations::ColChangeEle() {
  LPModel& model = *parent_;
  const auto element = SelectedElementOfColumn();
  if (!element) return Say(kNoElementOfRow);
  const std::string entered =
      desktop().InputBox("Enter a new value for element " + model.ColName(element->column) +
                             " in row " + model.RowName(element->row) + "?",
                         kChangeTitle, "");
  if (entered.empty() || !IsReady()) return;
  if (!IsStillThere(*element)) return Say(kNoElementOfRow);
  const double lower = model.ColLowerBound(element->column);
  const double upper = model.ColUpperBound(element->column);
  const auto value = text::ParseNumber(entered);
  if (!value || *value < lower || *value > upper) {
    return Say("Please enter a number between " + GeneralText(lower) + " and " +
               GeneralText(upper) + ".");
  }
  StoreValue(*element, *value);
}

void frmViewEquations::StoreValue(const Element& element, double value) {
  if (!IsReady()) return;
  if (!IsStillThere(element)) return Say(kNoElementOfRow);
  parent_->SetRowElementValue(element.row, element.row_element, value);
  Refill();
  ShowEquation();
}

}  // namespace quarvel
