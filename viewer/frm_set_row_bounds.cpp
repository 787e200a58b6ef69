#include "viewer/frm_set_row_bounds.h"

#include "model/record_types.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::viewer {
namespace {

constexpr std::string_view RowLetter(model::RowType type) { return model::TraitsOf(type).letter; }

// The open side of an inequality gets the limit of the other sign; models have been written with
// these values and are to stay as they are.
constexpr SetBoundsForm::TypeOption kRowOptions[] = {
    {RowLetter(model::RowType::kFree), "optN", "Non-Binding/Objective", 'N'},
    {RowLetter(model::RowType::kRanged), "optR", "Range", 'R'},
    {RowLetter(model::RowType::kEqual), "optE", "Equality", 'E',
     [](BoundBoxes& bounds) { bounds.txtLwrBnd.set_text(bounds.txtUprBnd.text()); }},
    {RowLetter(model::RowType::kGreater), "optGT", "Greater Than or Equal To", 'G',
     [](BoundBoxes& bounds) { BoundBoxes::Put(bounds.txtUprBnd, -model::BoundLimit); }},
    {RowLetter(model::RowType::kLess), "optLT", "Less Than or Equal To", 'L',
     [](BoundBoxes& bounds) { BoundBoxes::Put(bounds.txtLwrBnd, model::BoundLimit); }},
};

const SetBoundsForm::Design kRowDesign = {
    model::kRowKind, "frmSetRowBounds", "lblRow", "Bound Type", "Invalid Bound Type specified",
    kRowOptions};

}  // namespace

frmSetRowBounds::frmSetRowBounds(platform::Desktop& desktop) : SetBoundsForm(desktop, kRowDesign) {}

void frmSetRowBounds::OrderBounds() {
  if (!Option(RowLetter(model::RowType::kRanged))->value()) return;
  const double lower = BoundBoxes::Get(bounds.txtLwrBnd);
  const double upper = BoundBoxes::Get(bounds.txtUprBnd);
  if (lower > upper) {
    bounds.Reverse();
  } else if (lower == upper) {
    Option(RowLetter(model::RowType::kEqual))->set_value(true);
    desktop().MsgBox(platform::Note("Bounds were identical.  Bound type changed to equality"));
  }
}

// An equality takes its value over before it is held within the limit.
bool frmSetRowBounds::StoreType() {
  if (!HasRecord()) return false;
  StoreChosenType();
  bounds.HoldWithinLimit();
  return HasRecord();
}

}  // namespace quarvel::viewer
