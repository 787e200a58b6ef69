// The commands of the program, as a table: what each is called, takes and does.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "hosts/arguments.h"
#include "hosts/session.h"

namespace quarvel::hosts {

inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

struct Command {
  std::string_view name;
  std::string_view operands;  // as a help text shows them
  std::size_t fewest_operands;
  std::size_t most_operands;
  OptionSet options;
  std::string_view summary;
  std::string (*details)();      // more lines for its own help; null for none
  int (*run)(Session& session);  // gives the exit status; may raise what Session raises
  // The status of what raises, when 1 tells something else.
  int failure = kProblem;
};

std::span<const Command> Commands();
// Null when there is none of that name.
const Command* FindCommand(std::string_view name);
// Raises a CommandError when there is none, with those of like names.
const Command& CommandOf(std::string_view name);

// Each stands in a source of its own name, or of what it prints.
int RunInfo(Session& session);
int RunStats(Session& session);
int RunSpy(Session& session);
int RunReport(Session& session);
int RunRows(Session& session);
int RunColumns(Session& session);
int RunRow(Session& session);
int RunColumn(Session& session);
int RunEvaluate(Session& session);
int RunDialects(Session& session);
int RunExplain(Session& session);
int RunWhy(Session& session);
int RunCheck(Session& session);
int RunConvert(Session& session);
int RunSimplify(Session& session);
int RunEdit(Session& session);
int RunDiff(Session& session);
int RunView(Session& session);
int RunHelp(Session& session);
int RunCompletion(Session& session);
int RunMan(Session& session);

}  // namespace quarvel::hosts
