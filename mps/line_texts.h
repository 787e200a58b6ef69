// The lines of a file that problems are about, as they stand there: a read has them in upper case.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "mps/file_problem.h"
#include "platform/byte_source.h"

namespace quarvel::mps {

// So much of a line or token is shown: its first 400 bytes, or up to three fewer where they would end
// within a character.
std::string_view ShownOf(std::string_view line);

// Gives each kept problem of a line that line's text, and the token that it is about as it stands in
// there. A pass over the lines up to the last of them; `open` is not called when there is none. Null from
// `open`, or a failure, leaves the texts as they are.
void ShowLines(const std::function<std::unique_ptr<platform::ByteSource>()>& open,
               FileProblems& problems);

}  // namespace quarvel::mps
