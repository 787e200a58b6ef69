// Programs of the system, found in the folders that PATH names. Only folders by their full name
// count: an empty entry, or a relative one, means the current folder, where anybody may have put a
// program of that name. Of POSIX systems alone.
#pragma once

#include <string>

namespace quarvel::platform {

// The folders of PATH that count, separated by colons as there; the system's own where it has none.
std::string SearchedFolders();

// The full name of the first program of that name; empty when there is none.
std::string FindProgram(const std::string& name);

}  // namespace quarvel::platform
