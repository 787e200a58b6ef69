#include "viewer/bound_boxes.h"

#include <string>

#include "model/model_data.h"
#include "platform/desktop.h"
#include "text/numbers.h"

namespace quarvel::viewer {

using platform::Note;
using platform::TextBox;

BoundBoxes::BoundBoxes(platform::Form& form, int top)
    : fraValues(form, "fraValues", {12, top, 276, 92, {}}),
      lblLower(form, "lblLower", {26, top + 26, 60, 20, {}}),
      txtLwrBnd(form, "txtLwrBnd", {90, top + 22, 184, 24, {}}),
      lblUpper(form, "lblUpper", {26, top + 58, 60, 20, {}}),
      txtUprBnd(form, "txtUprBnd", {90, top + 54, 184, 24, {}}),
      form_(form) {
  fraValues.set_caption("Bound Values");
  lblLower.set_caption("Lower:");
  lblLower.access_key = 'w';
  lblUpper.set_caption("Upper:");
  lblUpper.access_key = 'U';
}

void BoundBoxes::Put(TextBox& box, double bound) { box.set_text(text::RoundTripText(bound)); }

double BoundBoxes::Get(const TextBox& box) { return text::ParseNumber(box.text()).value_or(0); }

void BoundBoxes::Say(const platform::Box& box) { form_.desktop().MsgBox(box); }

bool BoundBoxes::BothAreNumbers() {
  const bool upper = text::ParseNumber(txtUprBnd.text()).has_value();
  const bool lower = text::ParseNumber(txtLwrBnd.text()).has_value();
  if (upper && lower) return true;
  Say(platform::Refusal("Invalid Input"));
  if (!upper) txtUprBnd.set_text("");
  if (!lower) txtLwrBnd.set_text("");
  (lower ? txtUprBnd : txtLwrBnd).Focus();
  return false;
}

void BoundBoxes::Reverse() {
  const std::string lower = txtLwrBnd.text();
  txtLwrBnd.set_text(txtUprBnd.text());
  txtUprBnd.set_text(lower);
  Say(Note("Bounds were reversed"));
}

void BoundBoxes::HoldWithinLimit() {
  if (Get(txtUprBnd) > model::BoundLimit) {
    Put(txtUprBnd, model::BoundLimit);
    Say(Note("Upper Bound set to limit of 1E+10"));
  }
  if (Get(txtLwrBnd) < -model::BoundLimit) {
    Put(txtLwrBnd, -model::BoundLimit);
    Say(Note("Lower Bound set to limit of -1E+10"));
  }
}

}  // namespace quarvel::viewer
