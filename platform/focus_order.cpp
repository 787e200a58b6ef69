#include "platform/focus_order.h"

#include <algorithm>
#include <cstddef>

#include "platform/form.h"
#include "platform/input_controls.h"

namespace quarvel::platform {
namespace {

const OptionButton* AsOption(const Control& control) {
  if (control.kind() != ControlKind::kOptionButton) return nullptr;
  return static_cast<const OptionButton*>(&control);
}

bool IsStop(const Form& form, const Control& control) {
  if (!CanHaveFocus(control)) return false;
  const OptionButton* const option = AsOption(control);
  if (option == nullptr || option->value()) return true;
  const std::vector<OptionButton*> group = UsableGroup(form, *option);
  const bool chosen = std::any_of(group.begin(), group.end(),
                                  [](const OptionButton* other) { return other->value(); });
  return !chosen && group.front() == option;
}

bool AreOneStop(const Control& one, const Control& other) {
  if (&one == &other) return true;
  const OptionButton* const option = AsOption(one);
  const OptionButton* const second = AsOption(other);
  return option != nullptr && second != nullptr && option->group() == second->group();
}

// The nearest stop from the control at `place`, in the ring of all, that `suits`. The place behind
// the last control is before the first, too.
template <typename Suits>
Control* Nearest(const Form& form, std::size_t place, bool forward, Suits suits) {
  const std::vector<Control*>& controls = form.controls();
  const std::size_t ring = controls.size() + 1;
  for (std::size_t step = 1; step < ring; ++step) {
    const std::size_t next = (place + (forward ? step : ring - step)) % ring;
    if (next == controls.size()) continue;
    Control* const control = controls[next];
    if (IsStop(form, *control) && suits(*control)) return control;
  }
  return nullptr;
}

std::size_t PlaceOf(const Form& form, const Control* control) {
  const std::vector<Control*>& controls = form.controls();
  return static_cast<std::size_t>(std::find(controls.begin(), controls.end(), control) -
                                  controls.begin());
}

bool TakesText(const Control& control) {
  return control.kind() == ControlKind::kTextBox && !static_cast<const TextBox&>(control).read_only;
}

bool StandsAround(const Place& outer, const Place& inner) {
  return outer.x <= inner.x && outer.y <= inner.y &&
         outer.x + outer.width >= inner.x + inner.width &&
         outer.y + outer.height >= inner.y + inner.height;
}

}  // namespace

bool TakesKeys(const Control& control) {
  return control.kind() != ControlKind::kLabel && control.kind() != ControlKind::kFrame &&
         control.kind() != ControlKind::kProgressBar && control.kind() != ControlKind::kMenuItem;
}

bool CanHaveFocus(const Control& control) {
  return TakesKeys(control) && control.enabled() && control.visible();
}

std::vector<OptionButton*> UsableGroup(const Form& form, const OptionButton& member) {
  std::vector<OptionButton*> group;
  for (Control* control : form.controls()) {
    const OptionButton* const option = AsOption(*control);
    if (option == nullptr || option->group() != member.group()) continue;
    if (CanHaveFocus(*control)) group.push_back(static_cast<OptionButton*>(control));
  }
  return group;
}

Control* OpeningStop(const Form& form, const Control* wanted) {
  if (wanted == nullptr || !CanHaveFocus(*wanted)) return NextStop(form, nullptr, true);
  const std::vector<Control*>& controls = form.controls();
  const auto stop = std::find_if(controls.begin(), controls.end(), [&](const Control* control) {
    return AreOneStop(*wanted, *control) && IsStop(form, *control);
  });
  return stop == controls.end() ? nullptr : *stop;
}

Control* NextStop(const Form& form, const Control* from, bool forward) {
  return Nearest(form, PlaceOf(form, from), forward, [&](const Control& control) {
    return from == nullptr || !AreOneStop(*from, control);
  });
}

Control* Refuge(const Form& form, const Control& leaving) {
  for (Control* control : form.controls()) {
    if (leaving.visible() || control->kind() != ControlKind::kTabStrip) continue;
    if (control == &leaving || !CanHaveFocus(*control)) continue;
    if (StandsAround(control->place(), leaving.place())) return control;
  }
  return Nearest(form, PlaceOf(form, &leaving), true,
                 [](const Control& control) { return !TakesText(control); });
}

Control* LedTo(const Form& form, const Control& words) {
  const std::vector<Control*>& controls = form.controls();
  const auto from = controls.begin() + static_cast<std::ptrdiff_t>(PlaceOf(form, &words));
  const auto found = std::find_if(from, controls.end(),
                                  [](const Control* control) { return TakesKeys(*control); });
  return found == controls.end() ? nullptr : *found;
}

void GoInGroup(const OptionButton& option, int step) {
  const std::vector<OptionButton*> group = UsableGroup(option.form(), option);
  const auto here = std::find(group.begin(), group.end(), &option);
  if (here == group.end()) return;
  const auto count = static_cast<std::ptrdiff_t>(group.size());
  const std::ptrdiff_t next = (here - group.begin() + step + count) % count;
  OptionButton& other = *group[static_cast<std::size_t>(next)];
  other.Focus();
  other.Click();
}

bool TurnPage(const Form& form, bool forward) {
  const std::vector<Control*>& controls = form.controls();
  const auto found = std::find_if(controls.begin(), controls.end(), [](const Control* control) {
    return control->kind() == ControlKind::kTabStrip && CanHaveFocus(*control);
  });
  if (found == controls.end()) return false;
  auto& tabs = static_cast<TabStrip&>(**found);
  const auto count = static_cast<int>(tabs.captions().size());
  if (count > 0) tabs.Select((tabs.current() + (forward ? 1 : count - 1)) % count);
  return true;
}

}  // namespace quarvel::platform
