// quarvel explain: what made a row or column what it is, line by line.

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <utility>

#include "hosts/commands.h"
#include "hosts/file_reading.h"
#include "hosts/input_bytes.h"
#include "hosts/printing.h"
#include "inspect/quoted_lines.h"
#include "inspect/where_from.h"
#include "model/record_number.h"
#include "text/numbers.h"
#include "text/upper_case.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using inspect::RecordOrigin;
using inspect::Setting;

constexpr std::int64_t kUsualLimit = 10;  // of anything of a record that there may be many of
constexpr std::size_t kFactWidth = 10;

using Quotes = std::map<std::int64_t, std::string>;

std::string LineText(std::int64_t line) { return "line " + text::IntegerText(line); }

std::string ValueText(const Setting& setting) {
  return setting.type.empty() ? BoundText(setting.value) : setting.type;
}

// "9: line 13; line 12 had said 4"
std::string HistoryText(const inspect::History& history, const RecordOrigin& record) {
  if (history.last.empty()) return Counted(history.count, "setting");
  const Setting& now = history.last.back();
  const bool is_type = !now.type.empty();
  std::string text = ValueText(now) + ": ";
  if (now.line != 0) {
    text += LineText(now.line);
  } else {
    const std::string_view later = is_type ? "made of its bounds" : "given at the end of the file";
    text += is_type || history.count > 1 ? later : "default";
  }
  if (is_type && record.marker_line != 0) {
    text += ", under the marker of " + LineText(record.marker_line);
  }
  std::string_view gap = "; ";
  for (std::size_t i = history.last.size() - 1; i-- > 0;) {
    const Setting& before = history.last[i];
    if (before.line == 0) continue;
    text.append(gap).append(LineText(before.line)).append(" had said ").append(ValueText(before));
    gap = ", ";
  }
  const std::int64_t more = history.count - static_cast<std::int64_t>(history.last.size());
  if (more > 0) text += " (and " + text::IntegerText(more) + " before)";
  return text;
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

bool IsAny(const std::vector<RecordOrigin>& records) {
  return std::any_of(records.begin(), records.end(),
                     [](const RecordOrigin& record) { return record.number != 0; });
}

class Explanation {
 public:
  Explanation(Session& session, std::string file, std::vector<RecordOrigin> records,
              mps::FileFacts facts, Quotes quotes)
      : session_(session),
        file_(std::move(file)),
        records_(std::move(records)),
        facts_(std::move(facts)),
        quotes_(std::move(quotes)) {}

  bool finds_any() const { return IsAny(records_); }
  void PrintText() const;
  void PrintJson() const;

 private:
  void PrintRecord(const RecordOrigin& record) const;
  void PrintCoefficients(const RecordOrigin& record) const;
  void PrintRest(const RecordOrigin& record) const;
  void PrintLines() const;
  void PrintFact(std::string_view what, std::string_view fact) const;
  bool IsObjective(const RecordOrigin& record) const {
    return record.is_row && record.number != 0 && record.name == facts_.objective;
  }
  std::string ObjectiveText() const;
  void PrintRecordJson(const RecordOrigin& record) const;
  void PrintLinesJson() const;

  Session& session_;
  std::string file_;
  std::vector<RecordOrigin> records_;  // the row and the column of the name
  mps::FileFacts facts_;
  Quotes quotes_;
};

// Those that there is something to say of.
std::set<std::int64_t> LinesOf(const std::vector<RecordOrigin>& records) {
  std::set<std::int64_t> lines;
  for (const RecordOrigin& record : records) {
    for (const inspect::History* const history : {&record.type, &record.lower, &record.upper}) {
      for (const Setting& setting : history->last) lines.insert(setting.line);
    }
    for (const inspect::CoefficientOrigin& entry : record.coefficients) lines.insert(entry.line);
    for (const mps::FileProblem& problem : record.problems) lines.insert(problem.line);
    lines.insert(record.idle_lines.begin(), record.idle_lines.end());
    lines.insert(record.marker_line);
  }
  return lines;
}

void Explanation::PrintFact(std::string_view what, std::string_view fact) const {
  std::string line = "  ";
  AppendLeft(line, what, kFactWidth);
  session_.streams.out << line + text::VisibleText(fact) + '\n';
}

void Explanation::PrintText() const {
  for (const RecordOrigin& record : records_) {
    if (record.number != 0) PrintRecord(record);
    PrintRest(record);
  }
  PrintLines();
  session_.StopIfInterrupted();
}

void Explanation::PrintRecord(const RecordOrigin& record) const {
  const std::string noun = record.is_row ? "row " : "column ";
  session_.streams.out << text::VisibleText(noun + record.name) + " (number " +
                              text::IntegerText(model::Public(record.number)) + ")\n";
  PrintFact("type", HistoryText(record.type, record));
  PrintFact("lower", HistoryText(record.lower, record));
  PrintFact("upper", HistoryText(record.upper, record));
  if (IsObjective(record)) PrintFact("objective", ObjectiveText());
  PrintFact("elements", text::IntegerText(record.coefficient_count));
  PrintCoefficients(record);
}

// "maximized, 5 added to it"
std::string Explanation::ObjectiveText() const {
  std::string text(SenseWord(facts_.sense));
  if (facts_.objective_constant == 0) return text;
  return text + ", " + text::GeneralText(facts_.objective_constant) + " added to it";
}

void Explanation::PrintCoefficients(const RecordOrigin& record) const {
  for (const inspect::CoefficientOrigin& entry : record.coefficients) {
    if (!session_.KeepPrinting()) return;
    PrintFact("", entry.other + ' ' + text::GeneralText(entry.value) + ": " + LineText(entry.line));
  }
  const auto shown = static_cast<std::int64_t>(record.coefficients.size());
  if (shown < record.coefficient_count) {
    PrintFact("", "(the first " + text::IntegerText(shown) + "; --limit all lists them)");
  }
}

// What changed nothing, and what was wrong.
void Explanation::PrintRest(const RecordOrigin& record) const {
  for (const std::int64_t line : record.idle_lines) {
    PrintFact("unused", LineText(line) + " names it and changes none of this");
  }
  const auto unused = record.idle_count - static_cast<std::int64_t>(record.idle_lines.size());
  if (unused > 0) PrintFact("unused", Counted(unused, "more line"));
  for (const mps::FileProblem& problem : record.problems) {
    std::string fact(mps::TraitsOf(problem.code).id);
    if (problem.line != 0) fact += ", " + LineText(problem.line);
    PrintFact("problem", fact + ": " + mps::SentenceOf(problem));
  }
  const auto more = record.problem_count - static_cast<std::int64_t>(record.problems.size());
  if (more > 0) PrintFact("problem", Counted(more, "more problem"));
}

void Explanation::PrintLines() const {
  if (quotes_.empty()) return;
  const std::size_t width = text::IntegerText(quotes_.rbegin()->first).size();
  for (const auto& [number, quote] : quotes_) {
    if (!session_.KeepPrinting()) return;
    std::string line;
    AppendRight(line, text::IntegerText(number), width);
    session_.streams.out << line + " |" + text::VisibleText(quote) + '\n';
  }
}

void AppendSense(std::string& json, mps::ObjectiveSense sense) {
  using enum mps::ObjectiveSense;
  if (sense == kNotSaid) return AppendJsonObject(json, "objective", "null");
  AppendJsonMember(json, "objective", sense == kMaximize ? "maximize" : "minimize");
}

// The settings of one kind, the one that counts last.
void AppendHistory(std::string& json, std::string_view key, const inspect::History& history) {
  json += ',';
  AppendJson(json, key);
  json += ":{\"count\":" + text::IntegerText(history.count) + ",\"settings\":[";
  for (const Setting& setting : history.last) {
    json += json.back() == '[' ? "{" : ",{";
    if (setting.line != 0) json += "\"line\":" + text::IntegerText(setting.line);
    if (setting.type.empty()) {
      AppendJsonMember(json, "value", Bound{setting.value});
    } else {
      AppendJsonMember(json, "value", setting.type);
    }
    json += '}';
  }
  json += "]}";
}

std::string CoefficientsJson(const RecordOrigin& record) {
  std::string json = ",\"elements\":{\"count\":" + text::IntegerText(record.coefficient_count);
  json += ",\"first\":[";
  for (const inspect::CoefficientOrigin& entry : record.coefficients) {
    json += json.back() == '[' ? "\n{" : ",\n{";
    json += "\"line\":" + text::IntegerText(entry.line);
    AppendJsonMember(json, record.is_row ? "column" : "row", entry.other);
    AppendJsonMember(json, "value", entry.value);
    json += '}';
  }
  return json + "]}";
}

std::string UnusedJson(const RecordOrigin& record) {
  std::string json = ",\"unused\":{\"count\":" + text::IntegerText(record.idle_count);
  json += ",\"lines\":[";
  for (const std::int64_t line : record.idle_lines) {
    if (json.back() != '[') json += ',';
    json += text::IntegerText(line);
  }
  return json + "]}";
}

std::string ProblemsJson(const RecordOrigin& record) {
  std::string json = ",\"problems\":{\"count\":" + text::IntegerText(record.problem_count);
  json += ",\"first\":[";
  for (const mps::FileProblem& problem : record.problems) {
    json += json.back() == '[' ? "{" : ",{";
    AppendJsonMember(json, "code", mps::TraitsOf(problem.code).id);
    if (problem.line != 0) json += ",\"line\":" + text::IntegerText(problem.line);
    AppendJsonMember(json, "text", mps::SentenceOf(problem));
    json += '}';
  }
  return json + "]}";
}

void Explanation::PrintJson() const {
  std::string json = "{";
  AppendJsonMember(json, "file", file_);
  session_.streams.out << json;
  for (const RecordOrigin& record : records_) {
    session_.streams.out << (record.is_row ? ",\"row\":" : ",\"column\":");
    PrintRecordJson(record);
  }
  PrintLinesJson();
  session_.StopIfInterrupted();
  json = "{";
  AppendJsonMember(json, "hasEndata", facts_.has_endata);
  session_.streams.out << ',' + json.substr(1) + "}\n";
}

void Explanation::PrintRecordJson(const RecordOrigin& record) const {
  std::string json = "{";
  if (record.number != 0) {
    AppendJsonMember(json, "index", model::Public(record.number));
    AppendJsonMember(json, "name", record.name);
    AppendHistory(json, "type", record.type);
    if (record.marker_line != 0) json += ",\"marker\":" + text::IntegerText(record.marker_line);
    AppendHistory(json, "lowerBound", record.lower);
    AppendHistory(json, "upperBound", record.upper);
    if (IsObjective(record)) {
      AppendSense(json, facts_.sense);
      AppendJsonMember(json, "objectiveConstant", facts_.objective_constant);
    }
    json += CoefficientsJson(record);
  } else {
    AppendJsonMember(json, "name", record.name);
  }
  session_.streams.out << json + UnusedJson(record) + ProblemsJson(record) + '}';
}

void Explanation::PrintLinesJson() const {
  session_.streams.out << ",\"lines\":[";
  std::string_view gap = "\n";
  for (const auto& [number, quote] : quotes_) {
    if (!session_.KeepPrinting()) return;
    std::string json(gap);
    json += "{\"line\":" + text::IntegerText(number);
    AppendJsonMember(json, "text", quote);
    session_.streams.out << json + '}';
    gap = ",\n";
  }
  session_.streams.out << ']';
}

// The row and the column of that name.
std::vector<RecordOrigin> RecordsOf(const std::string& row, const std::string& column) {
  return {{.is_row = true, .name = row}, {.is_row = false, .name = column}};
}

// Those of that number, where there are some.
std::vector<RecordOrigin> RecordsOfNumber(const model::ModelStore& store, std::string_view text) {
  std::int32_t index = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  const bool is_row = model::InRange(index, store.NumberOfRows());
  const bool is_column = model::InRange(index, store.NumberOfColumns());
  if (!is_row && !is_column) return {};
  const std::int32_t number = model::Stored(index);
  return RecordsOf(is_row ? store.Row(number).Name : "",
                   is_column ? store.Column(number).Name : "");
}

class ExplainedRead {
 public:
  explicit ExplainedRead(Session& session)
      : session_(session), path_(session.arguments.operands[0]) {
    options_ = ReadOptionsOf(session.arguments);
    options_.open = InputOpener(path_, session.streams);
    options_.on_progress = [&session](std::uint64_t, std::uint64_t) {
      return session.KeepPrinting();
    };
  }

  Explanation Explain() {
    const std::string& text = session_.arguments.operands[1];
    const std::string name = text::UpperCase(text);
    std::vector<RecordOrigin> records = Find(RecordsOf(name, name));
    // Standard input is read once only.
    if (!IsAny(records) && path_ != kStandardInput) {
      std::vector<RecordOrigin> numbered = RecordsOfNumber(store_, text);
      if (!numbered.empty()) records = Find(std::move(numbered));
    }
    Quotes quotes = inspect::QuotedLines(options_.open, LinesOf(records));
    return {session_, file(), std::move(records), facts_, std::move(quotes)};
  }
  std::string file() const {
    return path_ == kStandardInput ? std::string(kStandardInputName) : path_;
  }

 private:
  std::vector<RecordOrigin> Find(std::vector<RecordOrigin> records) {
    const bool limited = (session_.arguments.used & kLimit) != 0;
    const std::int64_t limit = limited ? session_.arguments.limit : kUsualLimit;
    const mps::FileRead read =
        inspect::FindOrigins(path_, options_, store_, records, static_cast<std::size_t>(limit));
    session_.StopIfInterrupted();
    if (read.outcome != mps::ReadOutcome::kRead) RaiseNotRead(file(), read);
    facts_ = read.facts;
    return records;
  }

  Session& session_;
  const std::string& path_;
  mps::ReadOptions options_;
  model::ModelStore store_;
  mps::FileFacts facts_;
};

}  // namespace

int RunExplain(Session& session) {
  ExplainedRead read(session);
  const Explanation explanation = read.Explain();
  if (session.arguments.json) {
    explanation.PrintJson();
  } else {
    explanation.PrintText();
  }
  if (explanation.finds_any()) return kGood;
  session.Note(read.file() + ": there is no row or column " + session.arguments.operands[1]);
  return kProblem;
}

}  // namespace quarvel::hosts
