// What must hold of any form on the screen: where the keyboard goes, and where controls stand. Each
// gives what is wrong, an empty text when nothing is.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/focus_order.h"
#include "platform/form.h"
#include "platform/menu.h"

namespace quarvel::fuzz {

// The stops that Tab leads to, from the first one on until one comes again.
inline std::vector<platform::Control*> StopsOf(const platform::Form& form, bool forward) {
  std::vector<platform::Control*> stops;
  platform::Control* stop = platform::NextStop(form, nullptr, forward);
  while (stop != nullptr && stops.size() <= form.controls().size()) {
    stops.push_back(stop);
    stop = platform::NextStop(form, stop, forward);
    if (stop == stops.front()) break;
  }
  return stops;
}

inline std::string FaultOfKeyboard(const platform::Form& form) {
  using namespace platform;
  const std::vector<Control*> forth = StopsOf(form, true);
  const std::vector<Control*> back = StopsOf(form, false);
  if (forth.size() > form.controls().size()) return "Tab does not come around";
  if (forth.size() != back.size()) return "Tab has other stops backwards";
  for (std::size_t i = 0; i < forth.size(); ++i) {
    if (forth[i] != back[back.size() - 1 - i]) return "Tab has another order backwards";
    if (!CanHaveFocus(*forth[i])) return "Tab leads to " + forth[i]->name();
  }
  const Control* const opening = OpeningStop(form, form.focus());
  if (opening != nullptr && !CanHaveFocus(*opening)) return "it opens at " + opening->name();
  for (const Control* const control : form.controls()) {
    const Control* const refuge = Refuge(form, *control);
    if (refuge != nullptr && !CanHaveFocus(*refuge)) return "no refuge for " + control->name();
    const Control* const led = LedTo(form, *control);
    if (led != nullptr && !TakesKeys(*led)) return "the words of " + control->name();
  }
  return "";
}

// In a window of that size, which is at least the smallest, everything is inside.
inline std::string FaultOfLayout(const platform::Form& form, int width, int height) {
  for (const platform::Control* const control : form.controls()) {
    const platform::Place place = control->PlaceIn(width, height);
    const bool inside = place.x >= 0 && place.y >= 0 && place.width >= 0 && place.height >= 0 &&
                        place.x + place.width <= width && place.y + place.height <= height;
    if (!inside) return control->name() + " is not inside its window";
  }
  return "";
}

// Every word that the user sees can be drawn, also with a mark before its access key.
inline std::string FaultOfMenus(const platform::Form& form) {
  for (const platform::MenuItem* const item : platform::MenuBar(form)) {
    if (platform::MenuText(*item, '&').empty()) return "no words on " + item->name();
    for (const platform::MenuItem* const child : item->children()) {
      const bool empty = platform::MenuText(*child, '&').empty();
      if (empty != child->is_separator) return "the words on " + child->name();
    }
  }
  return "";
}

inline std::string FaultOfForm(const platform::Form& form, int width, int height) {
  std::string fault = FaultOfLayout(form, width, height);
  if (fault.empty()) fault = FaultOfKeyboard(form);
  if (fault.empty()) fault = FaultOfMenus(form);
  return fault.empty() ? "" : form.name() + ": " + fault;
}

}  // namespace quarvel::fuzz
