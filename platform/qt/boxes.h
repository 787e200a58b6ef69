// Message boxes and file dialogs. Each is on top of `owner`, which may be null, until
// it is answered.
#pragma once

#include <QWidget>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/qt/event_pump.h"

namespace quarvel::platform::qt {

MsgBoxResult AskBox(EventPump& pump, const QWidget* owner, const Box& box);

// As Desktop::ShowFileDialog.
std::string AskFile(EventPump& pump, const QWidget* owner, const FileDialog& request);

}  // namespace quarvel::platform::qt
