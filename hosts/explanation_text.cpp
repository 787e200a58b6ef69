// What made a record what it is, for people: fact by fact, and the lines that are spoken of below.

#include <cmath>

#include "hosts/explanation.h"
#include "hosts/printing.h"
#include "model/record_number.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using inspect::RecordOrigin;
using inspect::Setting;

constexpr std::size_t kFactWidth = 10;

std::string LineText(std::int64_t line) { return "line " + text::IntegerText(line); }

// Of a number that is no bound it is said which one.
std::string ValueText(const Setting& setting, Bound::Side side) {
  if (!setting.type.empty()) return setting.type;
  const Bound bound = {side, setting.value};
  std::string text = BoundText(bound);
  if (bound.IsNone() && std::fabs(bound.value) != model::BoundLimit) {
    text += " (" + text::GeneralText(bound.value) + " counts as none)";
  }
  return text;
}

// "; line 12 had said 4, line 9 had said 7 (and 3 before)"; nothing where nothing was overridden.
template <class TextOf>
std::string OverriddenText(const inspect::History& history, TextOf text_of) {
  std::string text;
  std::string_view gap = "; ";
  for (std::size_t i = history.last.size(); i-- > 0;) {
    const Setting& before = history.last[i];
    if (before.line == 0 || &before == &history.last.back()) continue;
    if (before.line == history.last.back().range_line) continue;  // in force
    text.append(gap).append(LineText(before.line)).append(" had said ").append(text_of(before));
    gap = ", ";
  }
  const std::int64_t more = history.count - static_cast<std::int64_t>(history.last.size());
  if (more > 0) text += " (and " + text::IntegerText(more) + " before)";
  return text;
}

// "9: line 13; line 12 had said 4"
std::string HistoryText(const inspect::History& history, const RecordOrigin& record,
                        Bound::Side side = {}) {
  if (history.last.empty()) return Counted(history.count, "setting");
  const Setting& now = history.last.back();
  const bool is_type = !now.type.empty();
  std::string text = ValueText(now, side) + ": ";
  if (now.line != 0) {
    text += LineText(now.line);
    if (now.range_line != 0) text += ", with the range of " + LineText(now.range_line);
  } else {
    const std::string_view later = is_type ? "made of its bounds" : "given at the end of the file";
    text += is_type || history.count > 1 ? later : "default";
  }
  if (is_type && record.marker_line != 0) {
    text += ", under the marker of " + LineText(record.marker_line);
  }
  return text +
         OverriddenText(history, [side](const Setting& before) { return ValueText(before, side); });
}

std::string_view SenseWord(mps::ObjectiveSense sense) {
  switch (sense) {
    case mps::ObjectiveSense::kNotSaid:
      return "the sense is not said";
    case mps::ObjectiveSense::kMinimize:
      return "minimized";
    case mps::ObjectiveSense::kMaximize:
      return "maximized";
  }
  return "";
}

// "maximized: line 7; line 1 had said minimize"
std::string SenseText(const mps::FileFacts& facts, const inspect::History& sense) {
  std::string text(SenseWord(facts.sense));
  if (sense.last.empty()) return text;
  text += ": " + LineText(sense.last.back().line);
  return text + OverriddenText(sense, [](const Setting& before) { return before.type; });
}

// "5 added to it: line 17; line 16 had said 3"
std::string ConstantText(const inspect::History& constant) {
  const Setting& now = constant.last.back();
  return text::GeneralText(now.value) + " added to it: " + LineText(now.line) +
         OverriddenText(constant,
                        [](const Setting& before) { return text::GeneralText(before.value); });
}

Pen PenOf(const Explanation& explanation) {
  return Pen(explanation.session.arguments.color, explanation.session.streams.screen);
}

void PrintFact(const Explanation& explanation, std::string_view what, std::string_view fact) {
  std::string line = "  ";
  AppendLeft(line, what, kFactWidth);
  explanation.session.streams.out << line + text::VisibleText(fact) + '\n';
}

void PrintCoefficients(const Explanation& explanation, const RecordOrigin& record) {
  for (const inspect::CoefficientOrigin& entry : record.coefficients) {
    if (!explanation.session.KeepPrinting()) return;
    PrintFact(explanation, "",
              entry.other + ' ' + text::GeneralText(entry.value) + ": " + LineText(entry.line));
  }
  const auto shown = static_cast<std::int64_t>(record.coefficients.size());
  if (shown < record.coefficient_count) {
    PrintFact(explanation, "",
              "(the first " + text::IntegerText(shown) + "; --limit all lists them)");
  }
}

void PrintZeros(const Explanation& explanation, const RecordOrigin& record) {
  for (const inspect::CoefficientOrigin& entry : record.zeros) {
    PrintFact(explanation, "",
              entry.other + " 0: " + LineText(entry.line) + ", of which no element is made");
  }
  const auto more = record.zero_count - static_cast<std::int64_t>(record.zeros.size());
  if (more > 0) PrintFact(explanation, "", Counted(more, "more coefficient") + " of 0");
}

void PrintHeading(const Explanation& explanation, const RecordOrigin& record,
                  const std::string& what) {
  const std::string noun = record.is_row ? "row " : "column ";
  const std::string heading = text::VisibleText(noun + record.name) + " (" + what + ")\n";
  explanation.session.streams.out << PenOf(explanation).Draw(Ink::kHeading, heading);
}

void PrintRecord(const Explanation& explanation, const RecordOrigin& record) {
  PrintHeading(explanation, record, "number " + text::IntegerText(model::Public(record.number)));
  PrintFact(explanation, "type", HistoryText(record.type, record));
  PrintFact(explanation, "lower", HistoryText(record.lower, record, Bound::Side::kLower));
  PrintFact(explanation, "upper", HistoryText(record.upper, record, Bound::Side::kUpper));
  if (explanation.IsObjective(record)) {
    PrintFact(explanation, "objective", SenseText(explanation.facts, record.sense));
    if (record.constant.count > 0) PrintFact(explanation, "", ConstantText(record.constant));
  }
  PrintFact(explanation, "elements", text::IntegerText(record.coefficient_count));
  PrintCoefficients(explanation, record);
  PrintZeros(explanation, record);
}

// What changed nothing, and what was wrong.
void PrintRest(const Explanation& explanation, const RecordOrigin& record) {
  for (const std::int64_t line : record.idle_lines) {
    PrintFact(explanation, "unused", LineText(line) + " names it and changes none of this");
  }
  const auto unused = record.idle_count - static_cast<std::int64_t>(record.idle_lines.size());
  if (unused > 0) PrintFact(explanation, "unused", Counted(unused, "more line"));
  for (const mps::FileProblem& problem : record.problems) {
    std::string fact(mps::TraitsOf(problem.code).id);
    if (problem.line != 0) fact += ", " + LineText(problem.line);
    PrintFact(explanation, "problem", fact + ": " + mps::SentenceOf(problem));
  }
  const auto more = record.problem_count - static_cast<std::int64_t>(record.problems.size());
  if (more > 0) PrintFact(explanation, "problem", Counted(more, "more problem"));
}

void PrintLines(const Explanation& explanation) {
  if (explanation.quotes.empty()) return;
  const Pen pen = PenOf(explanation);
  const std::size_t width = text::IntegerText(explanation.quotes.rbegin()->first).size();
  for (const auto& [number, quote] : explanation.quotes) {
    if (!explanation.session.KeepPrinting()) return;
    std::string line;
    AppendRight(line, text::IntegerText(number), width);
    explanation.session.streams.out
        << pen.Draw(Ink::kAside, line + " |") + text::VisibleText(quote) + '\n';
  }
}

}  // namespace

void PrintExplanationText(const Explanation& explanation) {
  for (const RecordOrigin& record : explanation.records) {
    if (record.number != 0) {
      PrintRecord(explanation, record);
    } else if (record.idle_count != 0 || record.problem_count != 0) {
      PrintHeading(explanation, record, "there is none");
    }
    PrintRest(explanation, record);
  }
  PrintLines(explanation);
  explanation.session.StopIfInterrupted();
}

}  // namespace quarvel::hosts
