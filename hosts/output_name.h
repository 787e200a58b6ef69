// Whether a name is one for a file of the format that is written.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::hosts {

// What is wrong with `path` as the name of a written file: its suffix says another format than MPS.
// Empty when nothing is.
std::string ObjectionToOutput(std::string_view path);

}  // namespace quarvel::hosts
