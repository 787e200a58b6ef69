// The system's own dialogs for choosing a file.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_dialog.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// A filter as the system wants it: words and patterns each ended by a zero, and one more at the
// end.
std::wstring SystemFilter(std::string_view filter);
// An extension without its point; empty for none.
std::wstring SystemExtension(std::string_view extension);

// As Desktop::ShowFileDialog, over `owner`, which may be null.
std::string ChooseFile(const FileDialog& dialog, HWND owner);

}  // namespace quarvel::platform::win32
