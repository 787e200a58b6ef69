// The commands of `quarvel edit`: one a line, words separated by blanks. A word in double quotes
// may hold blanks and be empty; in it \" \\ and \n stand for a quote, a backslash and a new line.
// Empty lines and lines that start with # do nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/session.h"

namespace quarvel::hosts {

// What the help text of the program's command says about all this.
std::string EditHelp();

// The words of a line; none for a line that does nothing. Raises a CommandError for a quote that is
// not closed.
std::vector<std::string> SplitWords(std::string_view line);

// Runs one line. Raises a CommandError, or the component's own error, when it is bad or refused;
// the model may then hold half of it.
void RunEditLine(Session& session, std::string_view line);

}  // namespace quarvel::hosts
