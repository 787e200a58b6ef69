// The commands of `quarvel edit`: one a line, in words (edit_words.h). Empty lines and lines that start
// with # do nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/session.h"

namespace quarvel::hosts {

// The commands, each with what it takes.
struct EditCommandUse {
  std::string_view name;
  std::string_view operands;
};
std::vector<EditCommandUse> EditCommandUses();

// What the help text of the program's command says about all this.
std::string EditHelp();

// Runs one line. Raises a CommandError, or the component's own error, when it is bad or refused;
// the model may then hold half of it.
void RunEditLine(Session& session, std::string_view line);

}  // namespace quarvel::hosts
