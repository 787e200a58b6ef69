// Shows one of Qt's dialogs and waits for its end.
#pragma once

#include <QDialog>

#include "platform/qt/event_pump.h"

namespace quarvel::platform::qt {

// Modal over `owner`, which may be null and may go away meanwhile. True when it was accepted.
bool RunDialog(EventPump& pump, QDialog& dialog, const QWidget* owner);

}  // namespace quarvel::platform::qt
