// The system's own editor of texts. A program that is named without its folder is looked for in the
// folder of the running program and in the current one first, where anybody may have put one of
// that name; so it is named with it.
#pragma once

#include <optional>
#include <string>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

struct EditorCommand {
  std::wstring program;  // with its folder
  std::wstring line;     // the program and the file, each in quotes
  std::wstring folder;   // the system's, to run in: not the user's, from where it might load things
};

// How the file is opened: by its full name, which the editor takes for nothing else (an option,
// say). Nothing when no command line can hold the name or the system does not tell its folder.
std::optional<EditorCommand> EditorOf(const std::string& path);

// Starts it in a normal window without waiting. False when it cannot be started.
bool StartEditor(const std::string& path);

}  // namespace quarvel::platform::win32
