// The program `quarvel`: reads, queries, edits, simplifies and writes models from the command line.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "hosts/streams.h"

namespace quarvel::hosts {

// Runs the command line (without the program's name) and gives the exit status. Results go to
// `streams.out`, everything else to `streams.err`. Raises nothing: without memory, even for telling
// what failed, it says so and gives kProblem.
int RunProgram(std::span<const std::string> words, const Streams& streams);
// As above; the words are asked for in there, as they take memory too. `failure` is the status when there is
// none for them.
int RunProgram(const std::function<std::vector<std::string>()>& words, const Streams& streams,
               int failure);
// The status of a failure of the command that the words name. Takes no memory.
int FailureStatus(std::span<const char* const> words) noexcept;

}  // namespace quarvel::hosts
