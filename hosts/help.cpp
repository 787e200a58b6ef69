#include "hosts/help.h"

#include "hosts/printing.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::string_view kStatuses =
    "\nExit status: 0 good; 1 a problem was found, a file was not read or written, an edit was "
    "refused;\n2 the command line was not understood; 3 check found warnings only; 130 stopped by "
    "Ctrl-C.\n";

constexpr std::string_view kNames =
    "\nRows and columns are given by name, or by number from 0. Names are looked up as given, then "
    "in upper\ncase, as they are read from a file. #5 is number 5 also where a name looks like "
    "one.\n";

}  // namespace

std::string ProgramHelp() {
  constexpr std::size_t kIndent = 40;
  std::string help =
      "Reads, queries, edits and writes linear and mixed-integer models in MPS files.\n\n"
      "Usage: quarvel COMMAND FILE [OPTION ...]\n\nCommands:\n";
  for (const Command& command : Commands()) {
    std::string line = "  ";
    line.append(command.name).append(" ").append(command.operands).append("  ");
    AppendLeft(help, line, kIndent);
    help.append(command.summary).append("\n");
  }
  help += "\nOptions:\n" + DescribeOptions(0);
  help += "\n\"quarvel COMMAND --help\" tells the options of a command.\n";
  return help.append(kStatuses);
}

std::string CommandHelp(const Command& command) {
  std::string help = "Usage: quarvel ";
  help.append(command.name).append(" ").append(command.operands).append(" [OPTION ...]\n\n");
  help.append(text::OneLine(command.summary)).append("\n");
  if (command.details != nullptr) help.append("\n").append(command.details());
  help += "\nOptions:\n" + DescribeOptions(command.options);
  return help.append(kNames).append(kStatuses);
}

}  // namespace quarvel::hosts
