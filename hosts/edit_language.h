// The commands of `quarvel edit`: one a line, in words (edit_words.h). Empty lines and lines that start
// with # do nothing.
#pragma once

#include <string>
#include <string_view>

#include "hosts/session.h"

namespace quarvel::hosts {

// What the help text of the program's command says about all this.
std::string EditHelp();

// Runs one line. Raises a CommandError, or the component's own error, when it is bad or refused;
// the model may then hold half of it.
void RunEditLine(Session& session, std::string_view line);

}  // namespace quarvel::hosts
