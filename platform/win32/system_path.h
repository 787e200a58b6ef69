// Names of files as the system takes them.
#pragma once

#include <string>

namespace quarvel::platform {

// The name in UTF-16: absolute, with backslashes, in the long form when it is long.
std::wstring SystemPath(const std::string& path);

}  // namespace quarvel::platform
