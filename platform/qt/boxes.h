// Message boxes. Each is on top of `owner`, which may be null, until
// it is answered.
#pragma once

#include <QWidget>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/qt/event_pump.h"

namespace quarvel::platform::qt {

MsgBoxResult AskBox(EventPump& pump, const QWidget* owner, const Box& box);

}  // namespace quarvel::platform::qt
