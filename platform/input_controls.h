// Controls that take the user's words and choices: text box, combo box, tab strip.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/control.h"

namespace quarvel::platform {

// Text that the user may change. A box of several lines separates them by CR LF, whatever the
// toolkit does; a box of one line holds no line end.
class TextBox : public Control {
 public:
  enum class Lines { kOne, kMany };
  TextBox(Form& form, std::string name, Place place, Lines lines = Lines::kOne)
      : Control(form, ControlKind::kTextBox, std::move(name), place), lines_(lines) {}

  Lines lines() const { return lines_; }
  const std::string& text() const { return text_; }
  void set_text(std::string_view text);

  // May be read, selected and copied, not changed. Fixed before the form is shown. With nothing
  // selected in it, the copy key takes the whole text.
  bool read_only = false;
  std::function<void()> on_change;

  // For drawers and tests: the user has changed the text to this. Lines may end in CR LF, LF or CR.
  // Nothing when the box is disabled, hidden or read-only.
  void Type(std::string_view text);

 private:
  Lines lines_;
  std::string text_;
};

// A list that shows its chosen entry and drops down to choose another; nothing can be typed in.
class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string name, Place place)
      : Control(form, ControlKind::kComboBox, std::move(name), place) {}

  std::function<void()> on_click;

  const std::vector<std::string>& items() const { return items_; }
  // The entries; none is chosen afterwards. Runs no handler.
  void set_items(std::vector<std::string> items);
  // From 0; -1 while none is chosen.
  int list_index() const { return list_index_; }
  // Chooses from code and runs on_click, also for the entry that is chosen already. A number
  // outside -1..count-1 is ignored.
  void set_list_index(int index);

  // For drawers and tests: the user chooses an entry. Nothing when the box is disabled or hidden.
  void Select(int index);

 private:
  bool Choose(int index);

  std::vector<std::string> items_;
  int list_index_ = -1;
};

// A row of tabs over pages of controls; only the current page's controls are visible.
class TabStrip : public Control {
 public:
  TabStrip(Form& form, std::string name, Place place, std::vector<std::string> captions);

  std::function<void()> on_change;

  const std::vector<std::string>& captions() const { return captions_; }
  int current() const { return current_; }
  // Puts a control on a page, numbered from 0. For the form's constructor.
  void Hold(int page, Control& control);
  // Turns to a page from code and runs on_change when it is another one. A number outside the tabs
  // is ignored.
  void set_current(int page);

  // For drawers and tests: the user turns to a page.
  void Select(int page);

 private:
  struct Held {
    int page;
    Control* control;
  };
  bool TurnTo(int page);

  std::vector<std::string> captions_;
  std::vector<Held> held_;
  int current_ = 0;
};

}  // namespace quarvel::platform
