#include "platform/basic_controls.h"

#include <algorithm>

namespace quarvel::platform {
namespace {

// NaN is no place on a bar; its lower end is.
float Within(float value, float min, float max) {
  return value >= min ? std::min(value, max) : min;
}

}  // namespace

void Button::Click() { RunForUser(on_click); }

void CheckBox::set_checked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Changed(Change::kValue);
}

void CheckBox::Click() {
  if (!enabled() || !visible()) return;
  set_checked(!checked_);
  RunForUser(on_click);
}

void OptionButton::set_value(bool value) {
  if (value_ == value) return;
  if (value) {
    for (Control* control : form().controls()) {
      if (control->kind() != ControlKind::kOptionButton) continue;
      auto& other = static_cast<OptionButton&>(*control);
      if (&other != this && other.group_ == group_) other.set_value(false);
    }
  }
  value_ = value;
  Changed(Change::kValue);
}

void OptionButton::Click() {
  if (enabled() && visible()) set_value(true);
}

double ProgressBar::Done() const {
  if (max_ <= min_) return 0;
  return std::clamp((double{value_} - min_) / (double{max_} - min_), 0.0, 1.0);
}

void ProgressBar::set_range(float min, float max) {
  max = std::max(min, max);
  if (min_ != min || max_ != max) {
    min_ = min;
    max_ = max;
    Changed(Change::kRange);
  }
  set_value(value_);
}

void ProgressBar::set_value(float value) {
  value = Within(value, min_, max_);
  if (value_ == value) return;
  value_ = value;
  Changed(Change::kValue);
}

}  // namespace quarvel::platform
