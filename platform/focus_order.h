// Which control of a form gets the keyboard: when it opens, by the Tab key, and when the one that
// has it cannot have it any longer. For drawers; nothing here moves the keyboard itself.
//
// A stop is a control that Tab goes to. A group of option buttons is one stop: its selected button,
// the first where none is selected. So the keyboard never comes to an option by chance, where a
// space would choose it.
#pragma once

#include <vector>

#include "platform/basic_controls.h"
#include "platform/control.h"

namespace quarvel::platform {

// Whether the keyboard can be in the control at all.
bool TakesKeys(const Control& control);
// Whether it can be there now.
bool CanHaveFocus(const Control& control);

// The option buttons of a group that can have the keyboard now, in creation order.
std::vector<OptionButton*> UsableGroup(const Form& form, const OptionButton& member);

// Each gives null when there is no such control.

// Where the keyboard begins: `wanted` or, for one of a group, the group's stop; the first stop when
// `wanted` is null or cannot have it.
Control* OpeningStop(const Form& form, const Control* wanted);
// The stop after that control, or before it; the first or the last for null.
Control* NextStop(const Form& form, const Control* from, bool forward);
// Who gets the keyboard from a control that loses it: the tab strip around it, else the next stop
// that is no box to type in. What was meant for the old control is not to replace a text.
Control* Refuge(const Form& form, const Control& leaving);

// Which control the access key of these words leads to: the one itself where the keyboard can be in
// it, else (a label, a frame) the one that follows.
Control* LedTo(const Form& form, const Control& words);

// An arrow key in a group of option buttons: gives the keyboard to the one that many places further
// in the ring of those that can be used, and chooses it, as a user does. The form may be gone
// afterwards.
void GoInGroup(const OptionButton& option, int step);

// Ctrl+Tab: turns to the next page of the form's tab strip, or the one before, as a user does.
// False when there is none to turn. The form may be gone afterwards.
bool TurnPage(const Form& form, bool forward);

}  // namespace quarvel::platform
