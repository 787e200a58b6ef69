// Logs that are written beside a file of the user's, under a name that nobody has chosen: something
// else may stand there already, put there by chance or by somebody who hopes that it is written to.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace quarvel::platform {

struct LogPlace {
  std::string path;
  // Who may not read this file may not read the log; only the user may when there is none. On
  // Windows the folder alone decides.
  std::string model;
  // How a file begins that the log may take the place of; empty: any file may be replaced.
  std::string_view replaces;
};

// An empty file. One of that name is emptied, or replaced when it is not the user's alone: when it
// has a second name or another owner. Raises kPathFileAccessError, and touches nothing, where a
// link, a pipe, a device or a file that may not be replaced stands.
OutputFile OpenLog(const LogPlace& place);

// What it says then.
inline constexpr std::string_view kNoPlainFile =
    "Path/File access error: the name of the log is that of a link, a pipe, a folder or a device";
inline constexpr std::string_view kNoLog =
    "Path/File access error: the name of the log is that of another file";

}  // namespace quarvel::platform
