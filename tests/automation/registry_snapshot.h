// What a part of the registry holds, as lines to compare.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

namespace quarvel::automation {

// One line for every key below `path` ("A\B") and for every value with its type and text, sorted. A
// key that cannot be opened has none.
std::vector<std::string> RegistrySnapshot(HKEY root, const std::wstring& path);

}  // namespace quarvel::automation
