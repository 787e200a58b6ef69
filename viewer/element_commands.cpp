#include "viewer/element_commands.h"

#include "platform/desktop.h"
#include "text/numbers.h"
#include "viewer/command_desk.h"
#include "viewer/element_value.h"

namespace quarvel::viewer {
namespace {

using text::RoundTripText;

constexpr std::string_view kNoElementOfRow =
    "Please first click on a row and an element in that row";
constexpr std::string_view kNoElementOfColumn =
    "Please first click on a column and a row that column is in";

}  // namespace

void ElementCommands::AddToRow() {
  const auto row = desk_.contents().rows.SelectedRecord();
  if (!row) return desk_.Say(NoneSelectedText(model::kRowKind));
  desk_.add_elements.Begin(row->number, desk_.model());
  desk_.Refill();
}

void ElementCommands::DeleteFromRow() { Delete(model::kRowKind, kNoElementOfRow); }

void ElementCommands::DeleteFromColumn() { Delete(model::kColumnKind, kNoElementOfColumn); }

void ElementCommands::Delete(const model::RecordKind& kind, std::string_view none_selected) {
  model::ModelInterface& model = desk_.model();
  const auto element = desk_.contents().PageOf(kind).SelectedElement();
  if (!element) return desk_.Say(none_selected);
  const NamedRecord& from = element->Of(kind);
  const NamedRecord& other = element->Of(kind.other);
  if (!desk_.ConfirmDeletion("element " + other.name + " from " + std::string(kind.noun) + ' ' +
                             from.name)) {
    return;
  }
  if (!element->IsIn(model)) return desk_.GiveUp(none_selected);
  model.DeleteElement(element->row.number, element->place);
  desk_.Refill();
}

std::string ElementCommands::AskValue(const NamedElement& element, std::string_view remark) const {
  const double value = desk_.model().RowElementValue(element.row.number, element.place);
  std::string entered =
      desk_.desktop().InputBox("Enter a new value for element " + element.column.name + " in row " +
                                   element.row.name + "?" + std::string(remark),
                               "Change Element Value", RoundTripText(value));
  return desk_.IsReady() ? entered : "";
}

void ElementCommands::ChangeInRow() {
  const auto element = desk_.contents().columns.SelectedElement();
  if (!element) return desk_.Say(kNoElementOfRow);
  const std::string entered =
      AskValue(*element, "  Entering 0 will delete this element from the row.");
  if (entered.empty()) return;
  const auto value = text::ParseNumber(entered);
  if (!value) return desk_.Say("Error: Please enter a numeric value");
  if (*value == 0) return DeleteFromColumn();
  WarnOfLongValue(desk_.desktop(), *value);
  Store(*element, *value);
}

void ElementCommands::ChangeInColumn() {
  const model::ModelInterface& model = desk_.model();
  const auto element = desk_.contents().columns.SelectedElement();
  if (!element) return desk_.Say(kNoElementOfRow);
  const std::string entered = AskValue(*element, "");
  if (entered.empty()) return;
  if (!element->IsIn(model)) return desk_.GiveUp(kNoElementOfRow);
  const double lower = model.ColLowerBound(element->column.number);
  const double upper = model.ColUpperBound(element->column.number);
  const auto value = text::ParseNumber(entered);
  if (!value || *value < lower || *value > upper) {
    return desk_.Say("Please enter a number between " + RoundTripText(lower) + " and " +
                     RoundTripText(upper) + ".");
  }
  Store(*element, *value);
}

void ElementCommands::Store(const NamedElement& element, double value) {
  if (!desk_.IsReady()) return;
  model::ModelInterface& model = desk_.model();
  if (!element.IsIn(model)) return desk_.GiveUp(kNoElementOfRow);
  model.SetRowElementValue(element.row.number, element.place, value);
  desk_.contents().Refill();
  desk_.contents().ShowEquation();
}

}  // namespace quarvel::viewer
