// What all controls share: a name that tests and UI-automation tools see, a place, and whether they
// are enabled and visible. Controls hold their own state; a drawer mirrors it. Setting state from
// code tells the drawer and runs no handler, unless a control's header says so.
//
// Captions and texts are literal: an ampersand is an ampersand. The letter that a drawer underlines
// is `access_key`.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/form.h"

namespace quarvel::platform {

enum class ControlKind {
  kLabel,
  kButton,
  kOptionButton,
  kCheckBox,
  kTextBox,
  kComboBox,
  kFrame,
  kGrid,
  kTabStrip,
  kProgressBar,
  kMenuItem,
};

// By how many hundredths of the form's growth each edge of a control moves when the window is
// resized: right = 100 keeps its distance to the window's right edge, left = right = 50 keeps a
// control of fixed width in the middle.
struct Follow {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const Follow&) const = default;
};

// In form units: pixels at 96 a logical inch, from the inner area's top left corner, while the form
// has the size it is designed with.
struct Place {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  Follow follow = {};
  bool operator==(const Place&) const = default;
};

// Kinds that stand behind the other controls, the hindmost last.
inline constexpr ControlKind kBehindOthers[] = {ControlKind::kFrame, ControlKind::kTabStrip};

class Control {
 public:
  Control(Form& form, ControlKind kind, std::string name, Place place);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& form() const { return form_; }
  ControlKind kind() const { return kind_; }
  const std::string& name() const { return name_; }
  const Place& place() const { return place_; }
  // Where it stands in a form whose inner area is that large, in form units.
  Place PlaceIn(int width, int height) const;
  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled);
  // Whether it is seen: set visible, and not on a page of a tab strip that is not shown.
  bool visible() const { return visible_ && page_shown_; }
  void set_visible(bool visible);
  // The words on the control.
  const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption);
  // Gives it the keyboard, now or, when its form is not showing, as soon as it is.
  void Focus();

  // A letter of the caption (a label's leads to the control after it), 0 for none; either case.
  char access_key = 0;

 protected:
  void Changed(Change change) { form_.NotifyChanged(*this, change); }
  // Runs a handler for the user: nothing without one or while the control cannot be used. The
  // handler may destroy the form and this control with it.
  void RunForUser(const std::function<void()>& handler);

 private:
  friend class TabStrip;
  void ShowPage(bool shown);

  Form& form_;
  ControlKind kind_;
  std::string name_;
  Place place_;
  std::string caption_;
  bool enabled_ = true;
  bool visible_ = true;
  bool page_shown_ = true;
};

// The caption with `mark` before its access key and every `mark` in it doubled, as toolkits want
// it.
std::string MarkedCaption(const Control& control, char mark);

}  // namespace quarvel::platform
