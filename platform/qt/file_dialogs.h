// Qt's own dialog for choosing a file.
#pragma once

#include <QWidget>
#include <string>

#include "platform/file_dialog.h"
#include "platform/qt/event_pump.h"

namespace quarvel::platform::qt {

// As Desktop::ShowFileDialog, over `owner`, which may be null.
std::string ChooseFile(EventPump& pump, const QWidget* owner, const FileDialog& dialog);

}  // namespace quarvel::platform::qt
