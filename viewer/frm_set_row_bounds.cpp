#include "viewer/frm_set_row_bounds.h"

#include "model/model_data.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::viewer {
namespace {

// The open side of an inequality gets the limit of the other sign; models have been written with
// these values and are to stay as they are.
constexpr SetBoundsForm::TypeOption kOptions[] = {
    {"N", "optN", "Non-Binding/Objective", 'N'},
    {"R", "optR", "Range", 'R'},
    {"E", "optE", "Equality", 'E',
     [](BoundBoxes& bounds) { bounds.txtLwrBnd.set_text(bounds.txtUprBnd.text()); }},
    {"G", "optGT", "Greater Than or Equal To", 'G',
     [](BoundBoxes& bounds) { BoundBoxes::Put(bounds.txtUprBnd, -BoundLimit); }},
    {"L", "optLT", "Less Than or Equal To", 'L',
     [](BoundBoxes& bounds) { BoundBoxes::Put(bounds.txtLwrBnd, BoundLimit); }},
};

const SetBoundsForm::Design kDesign = {
    kRowKind, "frmSetRowBounds", "lblRow", "Bound Type", "Invalid Bound Type specified", kOptions};

}  // namespace

frmSetRowBounds::frmSetRowBounds(platform::Desktop& desktop) : SetBoundsForm(desktop, kDesign) {}

void frmSetRowBounds::OrderBounds() {
  if (!Option("R")->value()) return;
  const double lower = BoundBoxes::Get(bounds.txtLwrBnd);
  const double upper = BoundBoxes::Get(bounds.txtUprBnd);
  if (lower > upper) {
    bounds.Reverse();
  } else if (lower == upper) {
    Option("E")->set_value(true);
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
