#include "hosts/help.h"

#include "hosts/command_examples.h"
#include "hosts/folded_text.h"
#include "hosts/printing.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr ExitStatus kGoodStatus = {"0", "good"};
constexpr ExitStatus kProblemStatus = {
    "1", "a problem was found, a file was not read or written, an edit was refused"};
constexpr ExitStatus kUsageStatus = {"2", "the command line was not understood"};
constexpr ExitStatus kWarningsStatus = {"3", "check found warnings only"};
constexpr ExitStatus kInterruptedStatus = {"130", "stopped by Ctrl-C"};

// Of commands whose 1 is an answer.
constexpr ExitStatus kDifferenceStatuses[] = {
    {"0", "there is no difference"},
    {"1", "there is a difference"},
    {"2", "a file was not read, no edit commands do it, the command line was not understood"},
    kInterruptedStatus};

constexpr Variable kVariables[] = {
    {"QUARVEL_DEFAULT_BOUNDS", "0 or inf: what --default-bounds says where it is not given"},
    {"NO_COLOR", "not empty: no colors, unless --color always is given"},
    {"COLUMNS", "the width of the terminal"},
};

std::string StatusHelp(const Command* command) {
  constexpr std::size_t kIndent = 8;
  std::string text = "\nExit status:\n";
  for (const ExitStatus& status : ExitStatuses(command)) {
    AppendLeft(text, std::string("  ").append(status.number).append("  "), kIndent);
    text.append(status.meaning).append("\n");
  }
  return text;
}

}  // namespace

std::string_view NamesHelp() {
  return "Rows and columns are given by name, or by number from 0. Names are looked up as given, then "
         "in upper\ncase, as they are read from a file. #5 is number 5 also where a name looks like "
         "one.\n";
}

bool TakesNames(const Command& command) {
  const auto has = [&command](std::string_view word) {
    return command.operands.find(word) != std::string_view::npos;
  };
  return has("NAME") || has("ROW") || (command.options & kCommand) != 0;
}

std::vector<ExitStatus> ExitStatuses(const Command* command) {
  if (command != nullptr && command->failure != kProblem) {
    return {std::begin(kDifferenceStatuses), std::end(kDifferenceStatuses)};
  }
  std::vector<ExitStatus> statuses = {kGoodStatus, kProblemStatus, kUsageStatus};
  if (command == nullptr) {
    statuses[2].meaning = "the command line was not understood; of diff: a file was not read";
  }
  if (command == nullptr || command->name == "check") statuses.push_back(kWarningsStatus);
  statuses.push_back(kInterruptedStatus);
  return statuses;
}

std::span<const Variable> Variables() { return kVariables; }

std::string ProgramHelp() {
  constexpr std::size_t kIndent = 40;
  std::string help(kProgramSummary);
  help += "\n\nUsage: quarvel COMMAND FILE [OPTION ...]\n\nCommands:\n";
  for (const Command& command : Commands()) {
    std::string line = "  ";
    line.append(command.name).append(" ").append(command.operands).append("  ");
    AppendLeft(help, line, kIndent);
    help.append(command.summary).append("\n");
  }
  help += "\nOptions:\n" + DescribeOptions(0);
  help += "\n\"quarvel help COMMAND\" tells the options of a command, with examples.\n";
  return help.append(StatusHelp(nullptr));
}

std::string CommandHelp(const Command& command) {
  std::string help = "Usage: quarvel ";
  help.append(command.name).append(" ").append(command.operands).append(" [OPTION ...]\n\n");
  help.append(text::OneLine(command.summary)).append("\n");
  if (command.details != nullptr) help.append("\n").append(command.details());
  help += "\nExamples:\n";
  for (const CommandExample& example : ExamplesOf(command.name)) {
    help.append("  # ").append(example.purpose).append("\n  ").append(example.line).append("\n");
  }
  help += "\nOptions:\n" + DescribeOptions(command.options);
  if (TakesNames(command)) help.append("\n").append(NamesHelp());
  return help.append(StatusHelp(&command));
}

void PrintHelp(std::ostream& out, const Screen& screen, std::string_view help) {
  out << FoldedHelp(help, screen.is_terminal ? screen.width : 0);
}

int RunHelp(Session& session) {
  const auto& operands = session.arguments.operands;
  PrintHelp(session.streams.out, session.streams.screen,
            operands.empty() ? ProgramHelp() : CommandHelp(CommandOf(operands[0])));
  return kGood;
}

}  // namespace quarvel::hosts
