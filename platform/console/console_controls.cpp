#include "platform/console/console_controls.h"

namespace quarvel::platform::console {

Button* StopButton(const Form& form) {
  for (Button* button : Usable<Button>(form, ControlKind::kButton)) {
    if (button->is_stop) return button;
  }
  return nullptr;
}

Button* ClosingButton(const Form& form) {
  const auto buttons = Usable<Button>(form, ControlKind::kButton);
  for (Button* button : buttons) {
    if (button->is_default) return button;
  }
  if (buttons.size() == 1) return buttons.front();
  for (Button* button : buttons) {
    if (button->is_cancel) return button;
  }
  return nullptr;
}

const ProgressBar* VisibleBar(const Form& form) {
  for (const Control* control : form.controls()) {
    if (control->kind() == ControlKind::kProgressBar && control->visible()) {
      return static_cast<const ProgressBar*>(control);
    }
  }
  return nullptr;
}

}  // namespace quarvel::platform::console
