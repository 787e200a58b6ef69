// What a console does with the controls of a form, which it never draws.
#pragma once

#include <vector>

#include "platform/basic_controls.h"

namespace quarvel::platform::console {

// The enabled and visible controls of one kind.
template <typename Kind>
std::vector<Kind*> Usable(const Form& form, ControlKind kind) {
  std::vector<Kind*> usable;
  for (Control* control : form.controls()) {
    if (control->kind() == kind && control->enabled() && control->visible()) {
      usable.push_back(static_cast<Kind*>(control));
    }
  }
  return usable;
}

// The button that stops the form's work; null when there is none to press.
Button* StopButton(const Form& form);

// The button that ends a form whose options are chosen; null when none is the obvious one.
Button* ClosingButton(const Form& form);

// Null when the form shows none.
const ProgressBar* VisibleBar(const Form& form);

}  // namespace quarvel::platform::console
