// The manual: pages of man(7), one for the program and one for each command, made from the same tables as
// the help texts.
#pragma once

#include <string>

#include "hosts/commands.h"

namespace quarvel::hosts {

// Null: of the program.
std::string ManualPage(const Command* command);

}  // namespace quarvel::hosts
