// quarvel edit: every command, or nothing.

#include <cstdint>
#include <optional>
#include <string>

#include "hosts/commands.h"
#include "hosts/edit_language.h"
#include "hosts/input_bytes.h"
#include "platform/automation_error.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

// At the start of what some editors save.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Names the line in what is wrong with it. Ctrl-C is nothing of the line's.
void RunNamed(Session& session, std::string_view what, std::int64_t number,
              const std::string& line) {
  const auto raise = [&](const std::string& text) {
    session.Note(std::string(what) + ' ' + text::IntegerText(number) + " (" + line + "): " + text);
    throw CommandError(kProblem, session.output() + " was not written");
  };
  try {
    RunEditLine(session, line);
  } catch (const CommandError& error) {
    if (error.status() == kInterrupted) throw;
    raise(error.text());
  } catch (const AutomationError& error) {
    raise(error.description());
  }
}

// Commands that could not be read are not taken for the last ones.
std::optional<std::string> NextLine(const Session& session) {
  try {
    return session.streams.read_line();
  } catch (const AutomationError& error) {
    throw CommandError(kProblem,
                       std::string(kStandardInputName).append(": ").append(error.description()));
  }
}

void RunStandardInput(Session& session) {
  std::int64_t number = 0;
  while (std::optional<std::string> line = NextLine(session)) {
    session.StopIfInterrupted();
    if (number == 0 && line->starts_with(kByteOrderMark)) line->erase(0, kByteOrderMark.size());
    RunNamed(session, "line", ++number, *line);
  }
}

}  // namespace

int RunEdit(Session& session) {
  const Arguments& arguments = session.arguments;
  if (arguments.operands[0] == kStandardInput && arguments.edit_commands.empty()) {
    throw CommandError(kUsage,
                       "edit reads its commands from standard input: give the model as a file, or "
                       "the commands by -c");
  }
  session.ReadToWrite(arguments.operands[0]);
  if (arguments.edit_commands.empty()) {
    RunStandardInput(session);
  } else {
    std::int64_t number = 0;
    for (const std::string& command : arguments.edit_commands) {
      RunNamed(session, "command", ++number, command);
    }
  }
  session.RefuseUnusedLog();
  session.Write(arguments.operands[1], mps::FileLayout::kFixed);
  return kGood;
}

}  // namespace quarvel::hosts
