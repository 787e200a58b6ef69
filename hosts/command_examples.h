// The examples in the help of each command.
#pragma once

#include <span>
#include <string_view>

namespace quarvel::hosts {

struct CommandExample {
  std::string_view command;  // whose help shows it
  std::string_view line;     // as it is typed into a shell
  std::string_view purpose;
};

// Those of that command, in the order of its help. The files are those of the folder examples/ and
// what the examples before write, so that all of them run there.
std::span<const CommandExample> ExamplesOf(std::string_view command);

}  // namespace quarvel::hosts
