#include "platform/qt/form_focus.h"

#include <algorithm>

#include "platform/basic_controls.h"
#include "platform/input_controls.h"

namespace quarvel::platform::qt {
namespace {

const OptionButton* AsOption(const Control& control) {
  if (control.kind() != ControlKind::kOptionButton) return nullptr;
  return static_cast<const OptionButton*>(&control);
}

// The stop of an option's group; null when none of the group can be used.
ControlView* GroupStop(const Views& views, const OptionButton& member) {
  ControlView* first = nullptr;
  for (const auto& view : views) {
    const OptionButton* const option = AsOption(*view->control());
    if (option == nullptr || option->group() != member.group() || !CanFocus(*option)) continue;
    if (option->value()) return view.get();
    if (first == nullptr) first = view.get();
  }
  return first;
}

bool IsStop(const Views& views, const ControlView& view) {
  if (!CanFocus(*view.control())) return false;
  const OptionButton* const option = AsOption(*view.control());
  return option == nullptr || GroupStop(views, *option) == &view;
}

bool AreOneStop(const ControlView& one, const ControlView& other) {
  if (&one == &other) return true;
  const OptionButton* const option = AsOption(*one.control());
  const OptionButton* const second = AsOption(*other.control());
  return option != nullptr && second != nullptr && option->group() == second->group();
}

// The nearest stop from the view at `place` in a ring of all views that `suits`.
template <typename Suits>
ControlView* Nearest(const Views& views, std::size_t place, bool forward, Suits suits) {
  const std::size_t count = views.size();
  for (std::size_t step = 1; step < count; ++step) {
    ControlView& view = *views[(place + (forward ? step : count - step)) % count];
    if (IsStop(views, view) && suits(view)) return &view;
  }
  return nullptr;
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

bool CanFocus(const Control& control) {
  return TakesKeys(control) && control.enabled() && control.visible();
}

bool Holds(const ControlView& view, const QWidget* focused) {
  return focused != nullptr && (&view.widget() == focused || view.widget().isAncestorOf(focused));
}

ControlView* OpeningStop(const Views& views, const ControlView* wanted) {
  const auto first = std::find_if(views.begin(), views.end(), [&](const auto& view) {
    if (wanted == nullptr || !CanFocus(*wanted->control())) return IsStop(views, *view);
    return AreOneStop(*wanted, *view) && IsStop(views, *view);
  });
  return first == views.end() ? nullptr : first->get();
}

ControlView* NextStop(const Views& views, const QWidget* focused, bool forward) {
  const auto from = std::find_if(views.begin(), views.end(),
                                 [&](const auto& view) { return Holds(*view, focused); });
  if (from != views.end()) {
    const auto place = static_cast<std::size_t>(from - views.begin());
    return Nearest(views, place, forward,
                   [&](const ControlView& view) { return !AreOneStop(**from, view); });
  }
  const auto is_stop = [&](const auto& view) { return IsStop(views, *view); };
  if (forward) {
    const auto first = std::find_if(views.begin(), views.end(), is_stop);
    return first == views.end() ? nullptr : first->get();
  }
  const auto last = std::find_if(views.rbegin(), views.rend(), is_stop);
  return last == views.rend() ? nullptr : last->get();
}

ControlView* Refuge(const Views& views, const ControlView& leaving) {
  const Place& place = leaving.control()->place();
  const auto tabs = std::find_if(views.begin(), views.end(), [&](const auto& view) {
    const Control& control = *view->control();
    return control.kind() == ControlKind::kTabStrip && CanFocus(control) &&
           StandsAround(control.place(), place);
  });
  const bool hidden = !leaving.control()->visible();
  if (hidden && tabs != views.end() && tabs->get() != &leaving) return tabs->get();
  const auto here = std::find_if(views.begin(), views.end(),
                                 [&](const auto& view) { return view.get() == &leaving; });
  return Nearest(views, static_cast<std::size_t>(here - views.begin()), true,
                 [](const ControlView& view) { return !TakesText(*view.control()); });
}

}  // namespace quarvel::platform::qt
