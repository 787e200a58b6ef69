// The simple controls: label, frame, button, option button, check box and progress bar.
#pragma once

#include <functional>
#include <string>

#include "platform/control.h"

namespace quarvel::platform {

class Label : public Control {
 public:
  Label(Form& form, std::string name, Place place)
      : Control(form, ControlKind::kLabel, std::move(name), place) {}
};

// A line around other controls with a caption on it. It stands behind them, owns none of them, and
// is created before them.
class Frame : public Control {
 public:
  Frame(Form& form, std::string name, Place place)
      : Control(form, ControlKind::kFrame, std::move(name), place) {}
};

class Button : public Control {
 public:
  Button(Form& form, std::string name, Place place)
      : Control(form, ControlKind::kButton, std::move(name), place) {}

  // Enter presses the default button, Escape the cancel button.
  bool is_default = false;
  bool is_cancel = false;
  // Ends the work that the form shows; what it asks before is a BoxKind::kConfirmStop.
  bool is_stop = false;
  std::function<void()> on_click;

  // For drawers and tests: the user presses the button. Nothing when it is disabled or hidden.
  void Click();
};

// One of a group: setting one clears the others of its group on the same form.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, Place place, int group = 0)
      : Control(form, ControlKind::kOptionButton, std::move(name), place), group_(group) {}

  int group() const { return group_; }
  bool value() const { return value_; }
  void set_value(bool value);

  // For drawers and tests: the user selects it. Nothing when it is disabled or hidden.
  void Click();

 private:
  int group_;
  bool value_ = false;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, Place place)
      : Control(form, ControlKind::kCheckBox, std::move(name), place) {}

  std::function<void()> on_click;

  bool checked() const { return checked_; }
  void set_checked(bool checked);

  // For drawers and tests: the user changes it. Nothing when it is disabled or hidden.
  void Click();

 private:
  bool checked_ = false;
};

// A bar between two bounds; min may equal max (an empty bar). Single precision, as its users have
// it.
class ProgressBar : public Control {
 public:
  ProgressBar(Form& form, std::string name, Place place)
      : Control(form, ControlKind::kProgressBar, std::move(name), place) {}

  float min() const { return min_; }
  float max() const { return max_; }
  float value() const { return value_; }
  // How much of the range is done: 0 to 1, 0 in an empty range.
  double Done() const;
  void set_range(float min, float max);
  // Held within the range.
  void set_value(float value);

 private:
  float min_ = 0;
  float max_ = 100;
  float value_ = 0;
};

}  // namespace quarvel::platform
