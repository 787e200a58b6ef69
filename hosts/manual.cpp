#include "hosts/manual.h"

#include <algorithm>
#include <string_view>

#include "hosts/command_examples.h"
#include "hosts/help.h"
#include "hosts/option.h"
#include "model/about.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

// When the words of the manual last changed in more than a detail.
constexpr std::string_view kDate = "2026-11-22";

// Text in which nothing is a request or an escape, and hyphens are those that are typed.
std::string Roff(std::string_view text) {
  std::string roff;
  bool starts_line = true;
  for (const char c : text) {
    if (starts_line && c == ' ') continue;  // breaks the line
    if (starts_line && (c == '.' || c == '\'')) roff += "\\&";
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else {
      roff += c;
    }
    starts_line = c == '\n';
  }
  if (!roff.ends_with('\n')) roff += '\n';
  return roff;
}

// The same of a help text, whose lines that stand further in are a list: one below the other, as they are.
std::string RoffOfHelp(std::string_view text) {
  std::string roff;
  bool is_list = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    if (line.starts_with("  ") != is_list) {
      is_list = !is_list;
      roff += is_list ? ".RS 2\n.nf\n" : ".fi\n.RE\n.PP\n";
    }
    roff += Roff(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return is_list ? roff + ".fi\n.RE\n" : roff;
}

std::string Line(std::string_view text) {
  std::string line = Roff(text);
  line.pop_back();
  return line;
}

std::string Bold(std::string_view text) { return "\\fB" + Line(text) + "\\fR"; }

std::string Italic(std::string_view text) { return "\\fI" + Line(text) + "\\fR"; }

std::string TitleOf(const Command* command) {
  return command == nullptr ? "quarvel" : "quarvel-" + std::string(command->name);
}

std::string Entry(const std::string& term, std::string_view text) {
  return ".TP\n" + term + '\n' + Roff(text);
}

std::string OptionEntries(OptionSet taken) {
  std::string text;
  for (const Option& option : AllOptions()) {
    if ((option.id & taken) != option.id) continue;
    std::string term;
    if (!option.short_name.empty()) term = Bold(option.short_name) + ", ";
    term += Bold(option.name);
    if (!option.value.empty()) term += ' ' + Italic(option.value);
    text += Entry(term, option.help);
  }
  return text;
}

std::string CommandEntries() {
  std::string text;
  for (const Command& command : Commands()) {
    text += Entry(Bold(command.name) + ' ' + Italic(command.operands), command.summary);
  }
  return text;
}

std::string Environment() {
  std::string text = ".SH ENVIRONMENT\n";
  for (const Variable& variable : Variables()) text += Entry(Bold(variable.name), variable.meaning);
  return text;
}

std::string Statuses(const Command* command) {
  std::string text = ".SH EXIT STATUS\n";
  for (const ExitStatus& status : ExitStatuses(command)) {
    text += Entry(Bold(status.number), status.meaning);
  }
  return text;
}

std::string Examples(std::string_view command) {
  std::string text = ".SH EXAMPLES\n";
  for (const CommandExample& example : ExamplesOf(command)) {
    text += Entry(Bold(example.line), example.purpose);
  }
  return text;
}

std::string SeeAlso(const Command* command) {
  if (command != nullptr) return ".SH SEE ALSO\n.BR quarvel (1)\n";
  std::string text = ".SH SEE ALSO\n";
  for (const Command& each : Commands()) {
    text += ".BR " + Line(TitleOf(&each)) + " (1)";
    text += &each == &Commands().back() ? "\n" : ",\n";
  }
  return text;
}

std::string Description(const Command& command) {
  std::string text = ".SH DESCRIPTION\n";
  text += RoffOfHelp(command.details == nullptr ? std::string(command.summary) : command.details());
  if (TakesNames(command)) text += ".PP\n" + Roff(NamesHelp());
  return text + Examples(command.name) + ".SH OPTIONS\n" + OptionEntries(command.options);
}

std::string ProgramDescription() {
  return ".SH DESCRIPTION\n" + Roff(kProgramSummary) + ".SH COMMANDS\n" + CommandEntries() +
         ".SH OPTIONS\n" + OptionEntries(0);
}

}  // namespace

std::string ManualPage(const Command* command) {
  const std::string title = TitleOf(command);
  std::string page = ".TH " + Line(text::UpperCase(title)) + " 1 " + std::string(kDate) +
                     " \"quarvel " + std::string(model::ProductVersion()) +
                     "\" \"Quarvel manual\"\n";
  page +=
      ".SH NAME\n" + Line(title) + " \\- " +
      Roff(command == nullptr ? "linear and mixed-integer models in MPS files" : command->summary);
  page += ".SH SYNOPSIS\n";
  page += command == nullptr
              ? Bold("quarvel") + ' ' + Italic("COMMAND FILE")
              : Bold("quarvel " + std::string(command->name)) + ' ' + Italic(command->operands);
  page += " [" + Italic("OPTION") + " ...]\n";
  page += command == nullptr ? ProgramDescription() : Description(*command);
  return page + Environment() + Statuses(command) + SeeAlso(command);
}

int RunMan(Session& session) {
  const auto& operands = session.arguments.operands;
  session.streams.out << ManualPage(operands.empty() ? nullptr : &CommandOf(operands[0]));
  return kGood;
}

}  // namespace quarvel::hosts
