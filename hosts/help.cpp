#include "hosts/help.h"

#include "hosts/command_examples.h"
#include "hosts/folded_text.h"
#include "hosts/printing.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr ExitStatus kStatuses[] = {
    {"0", "good"},
    {"1", "a problem was found, a file was not read or written, an edit was refused"},
    {"2", "the command line was not understood"},
    {"3", "check found warnings only"},
    {"130", "stopped by Ctrl-C"},
};

constexpr Variable kVariables[] = {
    {"QUARVEL_DEFAULT_BOUNDS", "0 or inf: what --default-bounds says where it is not given"},
    {"NO_COLOR", "not empty: no colors, unless --color always is given"},
    {"COLUMNS", "the width of the terminal"},
};

std::string StatusHelp() {
  constexpr std::size_t kIndent = 8;
  std::string text = "\nExit status:\n";
  for (const ExitStatus& status : kStatuses) {
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

std::span<const ExitStatus> ExitStatuses() { return kStatuses; }

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
  return help.append(StatusHelp());
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
  return help.append("\n").append(NamesHelp()).append(StatusHelp());
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
