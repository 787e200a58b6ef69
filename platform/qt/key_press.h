// Qt's keys as the component knows them.
#pragma once

#include <QKeyEvent>

#include "platform/keys.h"

namespace quarvel::platform::qt {

// Key::kNone for a key that means nothing to the component, and with Alt or Meta.
KeyPress ToKeyPress(const QKeyEvent& event);

}  // namespace quarvel::platform::qt
