#include "platform/control.h"

#include <utility>

#include "text/upper_case.h"

namespace quarvel::platform {
namespace {

int Moved(int edge, int percent, int growth) { return edge + growth * percent / 100; }

}  // namespace

Control::Control(Form& form, ControlKind kind, std::string name, Place place)
    : form_(form), kind_(kind), name_(std::move(name)), place_(place) {
  form_.Register(*this);
}

Place Control::PlaceIn(int width, int height) const {
  const int wider = width - form_.width();
  const int higher = height - form_.height();
  const Follow& follow = place_.follow;
  const int left = Moved(place_.x, follow.left, wider);
  const int top = Moved(place_.y, follow.top, higher);
  const int right = Moved(place_.x + place_.width, follow.right, wider);
  const int bottom = Moved(place_.y + place_.height, follow.bottom, higher);
  return {left, top, right - left, bottom - top, follow};
}

void Control::set_enabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed(Change::kEnabled);
}

void Control::set_visible(bool visible) {
  const bool seen = this->visible();
  visible_ = visible;
  if (this->visible() != seen) Changed(Change::kVisible);
}

void Control::ShowPage(bool shown) {
  const bool seen = visible();
  page_shown_ = shown;
  if (visible() != seen) Changed(Change::kVisible);
}

void Control::set_caption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Changed(Change::kCaption);
}

void Control::Focus() { form_.FocusOn(*this); }

void Control::RunForUser(const std::function<void()>& handler) {
  if (!handler || !enabled() || !visible()) return;
  const std::function<void()> copy = handler;
  form_.Dispatch(copy);
}

std::string MarkedCaption(const Control& control, char mark) {
  std::string marked;
  bool wanted = control.access_key != 0;
  for (const char c : control.caption()) {
    if (wanted && text::UpperCaseAscii(c) == text::UpperCaseAscii(control.access_key)) {
      marked += mark;
      wanted = false;
    }
    if (c == mark) marked += mark;
    marked += c;
  }
  return marked;
}

}  // namespace quarvel::platform
