// The help texts, made from the tables of commands and options.
#pragma once

#include <string>

#include "hosts/commands.h"

namespace quarvel::hosts {

std::string ProgramHelp();
std::string CommandHelp(const Command& command);

}  // namespace quarvel::hosts
