// The keyboard in a form: shortcuts, the tab order, access keys, Enter and Escape.
#pragma once

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// Before a message of the thread's queue is dispatched: true when it was a key that a form of this
// thread had a use for, and is done with.
bool TakeKey(const MSG& message);

}  // namespace quarvel::platform::win32
