// A file that a command makes beside its model: a picture, a page.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::hosts {

// Whether both are names of one file.
bool IsSameFile(const std::string& a, const std::string& b);

// Writes the file whole or not at all (platform/file_replacement.h). Raises a CommandError.
void WriteMadeFile(const std::string& path, std::string_view bytes);

}  // namespace quarvel::hosts
