// The lines of a file that problems are about, as they stand there: a read has them in upper case.
#pragma once

#include <string>
#include <string_view>

#include "mps/file_problem.h"

namespace quarvel::mps {

// So much of a line or token is shown: its first 400 bytes, or up to three fewer where they would end
// within a character.
std::string_view ShownOf(std::string_view line);

// Gives each kept problem of a line that line's text, and the token that it is about as it stands in
// there. A pass over the lines up to the last of them; nothing when there is none. A file that cannot be
// read a second time, as a pipe, leaves the texts as they are.
void ShowLines(const std::string& path, FileProblems& problems);

}  // namespace quarvel::mps
