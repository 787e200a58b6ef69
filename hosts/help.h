// The help texts, made from the tables of commands and options, and what they have in common with the
// manual.
#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/commands.h"

namespace quarvel::hosts {

std::string ProgramHelp();
std::string CommandHelp(const Command& command);
// Prints it, folded to the width of a terminal.
void PrintHelp(std::ostream& out, const Screen& screen, std::string_view help);

inline constexpr std::string_view kProgramSummary =
    "Reads, queries, edits and writes linear and mixed-integer models in MPS files.";
// How rows and columns are named on a command line.
std::string_view NamesHelp();

struct ExitStatus {
  std::string_view number;
  std::string_view meaning;
};
// Of a command, or of the whole program for null.
std::vector<ExitStatus> ExitStatuses(const Command* command);
// Whether it takes names of rows or columns.
bool TakesNames(const Command& command);

// Of the environment.
struct Variable {
  std::string_view name;
  std::string_view meaning;
};
std::span<const Variable> Variables();

}  // namespace quarvel::hosts
