#include "hosts/program.h"

#include <algorithm>

#include "hosts/arguments.h"
#include "hosts/commands.h"
#include "hosts/completion.h"
#include "hosts/environment.h"
#include "hosts/help.h"
#include "hosts/log_option.h"
#include "hosts/output_target.h"
#include "hosts/session.h"
#include "model/about.h"
#include "platform/automation_error.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

bool MaySimplify(const Command& command, const Arguments& arguments) {
  const bool is_edit = (command.options & kCommand) != 0;
  const bool is_simplify = (command.options & kSimplify) == 0;
  return is_edit || is_simplify || arguments.ask || (arguments.used & kSimplify) != 0;
}

// What is wrong with the command line as a whole; empty when nothing is.
std::string Objection(const Command& command, const Arguments& arguments) {
  const OptionSet foreign = arguments.used & ~command.options;
  if (foreign != 0) return "takes no " + OptionName(foreign);
  const bool is_wide = (arguments.used & kDialect) != 0 && !arguments.component_dialect;
  if (arguments.ask && is_wide)
    return "takes --ask or --dialect wide: the questions are the component's";
  const auto& operands = arguments.operands;
  if (operands.size() < command.fewest_operands || operands.size() > command.most_operands) {
    std::string taken = "takes " + std::string(command.operands);
    if (operands.size() < command.fewest_operands) return taken;
    return taken + ", and not \"" + operands[command.most_operands] + "\" as well";
  }
  const bool empty = std::any_of(operands.begin(), operands.end(),
                                 [](const std::string& operand) { return operand.empty(); });
  if (empty) return "takes no empty words";
  if (arguments.log.empty()) return "";
  if (!MaySimplify(command, arguments)) return "takes --log with --simplify, whose doings it lists";
  const bool is_data = arguments.json || arguments.list.csv ||
                       (operands.size() > 1 && operands.back() == kStandardOutput);
  if (arguments.log == kStandardOutput && is_data) {
    return "takes a file for --log where standard output has data";
  }
  return ObjectionToLog(arguments.log, operands);
}

// The command among those words, known before anything can fail; null for none.
template <class Word>
const Command* CommandAmong(std::span<const Word> words) noexcept {
  for (const std::string_view word : words) {
    if (const Command* const command = FindCommand(word)) return command;
  }
  return nullptr;
}

int RunCommand(Arguments& arguments, const Streams& streams) {
  if (arguments.command.empty()) {
    PrintHelp(arguments.help ? streams.out : streams.err, streams.screen, ProgramHelp());
    return arguments.help ? kGood : kUsage;
  }
  const Command* const command = &CommandOf(arguments.command);
  if (arguments.help) {
    PrintHelp(streams.out, streams.screen, CommandHelp(*command));
    return kGood;
  }
  const std::string objection = Objection(*command, arguments);
  if (!objection.empty()) {
    throw CommandError(kUsage, std::string(command->name) + ' ' + objection);
  }
  if ((command->options & kDefaultBounds) != 0) TakeEnvironment(arguments);
  Session session(arguments, streams);
  const int status = command->run(session);
  session.StopIfUnanswered();
  return status;
}

int Run(std::span<const std::string> words, const Streams& streams, std::string& command,
        int& failure) {
  if (!words.empty() && words.front() == kCompleteWord) {
    streams.out << CompletionText(Complete(words.subspan(1), streams));
    return kGood;
  }
  if (const Command* const named = CommandAmong(words)) {
    failure = named->failure;
    command = named->name;
  }
  Arguments arguments = ParseArguments(words);
  command = arguments.command;
  if (arguments.version) {
    streams.out << "quarvel " << model::ProductVersion() << '\n';
    return kGood;
  }
  return RunCommand(arguments, streams);
}

void Complain(const Streams& streams, std::string_view text) {
  streams.err << "quarvel: " + text::OneLine(text) + '\n';
}

// Whatever fails is told in words of its own, which take memory. `failure` becomes the status of a
// failure of the command.
int RunOrComplain(std::span<const std::string> words, const Streams& streams, int& failure) {
  std::string command;
  try {
    return Run(words, streams, command, failure);
  } catch (const CommandError& error) {
    Complain(streams, error.text());
    if (error.status() == kUsage) {
      const bool is_about_others = command == "help" || command == "man";
      const std::string known =
          is_about_others || FindCommand(command) == nullptr ? "" : command + ' ';
      Complain(streams, "\"quarvel " + known + "--help\" tells more");
    }
    return error.status() == kProblem ? failure : error.status();
  } catch (...) {
    Complain(streams, CurrentError().description());
    return failure;
  }
}

}  // namespace

int FailureStatus(std::span<const char* const> words) noexcept {
  const Command* const command = CommandAmong(words);
  return command == nullptr ? kProblem : command->failure;
}

int RunProgram(std::span<const std::string> words, const Streams& streams) {
  return RunProgram([words] { return std::vector<std::string>(words.begin(), words.end()); },
                    streams, kProblem);
}

int RunProgram(const std::function<std::vector<std::string>()>& words, const Streams& streams,
               int failure) {
  try {
    return RunOrComplain(words(), streams, failure);
  } catch (const std::exception&) {
    // In one piece, and without memory.
    streams.err << "quarvel: Out of memory\n";
    return failure;
  }
}

}  // namespace quarvel::hosts
