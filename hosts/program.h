// The program `quarvel`: reads, queries, edits, simplifies and writes models from the command line.
#pragma once

#include <span>
#include <string>

#include "hosts/streams.h"

namespace quarvel::hosts {

// Runs the command line (without the program's name) and gives the exit status. Results go to
// `streams.out`, everything else to `streams.err`. Raises nothing.
int RunProgram(std::span<const std::string> words, const Streams& streams);

}  // namespace quarvel::hosts
