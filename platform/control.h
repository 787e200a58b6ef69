// What all controls share: a name that tests and UI-automation tools see, a place, and whether they
// are enabled and visible. Controls hold their own state; a drawer mirrors it. Setting state from
// code tells the drawer and runs no handler, unless a control's header says so.
#pragma once

#include <string>
#include <string_view>

#include "platform/form.h"

namespace quarvel::platform {

enum class ControlKind { kLabel, kButton, kOptionButton, kProgressBar };

// Which sides of the form a control keeps its distance to when the window is resized.
enum Anchor : unsigned {
  kAnchorLeft = 1,
  kAnchorTop = 2,
  kAnchorRight = 4,
  kAnchorBottom = 8,
  kAnchorTopLeft = kAnchorLeft | kAnchorTop,
};

// In form units: pixels at 96 a logical inch, from the inner area's top left corner.
struct Place {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  unsigned anchors = kAnchorTopLeft;
};

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
  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled);
  bool visible() const { return visible_; }
  void set_visible(bool visible);
  // The words on the control. "&" before a letter makes it the access key.
  const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption);

 protected:
  void Changed(Change change) { form_.NotifyChanged(*this, change); }

 private:
  Form& form_;
  ControlKind kind_;
  std::string name_;
  Place place_;
  std::string caption_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace quarvel::platform
