#include "platform/control.h"

#include <utility>

namespace quarvel::platform {

Control::Control(Form& form, ControlKind kind, std::string name, Place place)
    : form_(form), kind_(kind), name_(std::move(name)), place_(place) {
  form_.Register(*this);
}

void Control::set_enabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed(Change::kEnabled);
}

void Control::set_visible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed(Change::kVisible);
}

void Control::set_caption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Changed(Change::kCaption);
}

}  // namespace quarvel::platform
