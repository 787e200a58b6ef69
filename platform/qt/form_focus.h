// Which control of a window gets the keyboard: when it opens, by the Tab key, and when the one that
// has it cannot have it any longer. None of it moves the keyboard itself.
//
// A stop is a control that Tab goes to. A group of option buttons is one stop: its selected button,
// the first where none is selected. So the keyboard never comes to an option by chance, where a
// space would choose it.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "platform/qt/control_view.h"

namespace quarvel::platform::qt {

using Views = std::vector<std::unique_ptr<ControlView>>;

// Whether the keyboard can be in the control at all.
bool TakesKeys(const Control& control);
// Whether it can be there now.
bool CanFocus(const Control& control);

// Each takes the views of a form that is on the screen, in tab order, and gives null when there is
// no such control.

// Where the keyboard begins: `wanted` or, for one of a group, the group's stop; the first stop when
// `wanted` is null or cannot have it.
ControlView* OpeningStop(const Views& views, const ControlView* wanted);
// The stop after the view that `focused` belongs to, or before it; the first or the last when it
// belongs to none.
ControlView* NextStop(const Views& views, const QWidget* focused, bool forward);
// Who gets the keyboard from a view that loses it: the tab strip around it, else the next stop that
// is no box to type in. What was meant for the old control is not to replace a text.
ControlView* Refuge(const Views& views, const ControlView& leaving);
// Whether `focused`, which may be null, belongs to the view.
bool Holds(const ControlView& view, const QWidget* focused);

}  // namespace quarvel::platform::qt
