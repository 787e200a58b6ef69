// quarvel explain: what made a row or column what it is, line by line.

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "hosts/commands.h"
#include "hosts/explanation.h"
#include "hosts/file_reading.h"
#include "hosts/input_bytes.h"
#include "inspect/quoted_lines.h"
#include "inspect/where_from.h"
#include "model/record_number.h"
#include "mps/line_texts.h"
#include "text/edit_distance.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

using inspect::RecordOrigin;
using inspect::Setting;

constexpr std::int64_t kExplainLimit = 10;  // of anything of a record that there may be many of

bool IsAny(const std::vector<RecordOrigin>& records) {
  return std::any_of(records.begin(), records.end(),
                     [](const RecordOrigin& record) { return record.number != 0; });
}

// Those that there is something to say of.
std::set<std::int64_t> LinesOf(const std::vector<RecordOrigin>& records) {
  std::set<std::int64_t> lines;
  for (const RecordOrigin& record : records) {
    for (const inspect::History* const history :
         {&record.type, &record.lower, &record.upper, &record.sense, &record.constant}) {
      for (const Setting& setting : history->last) lines.insert(setting.line);
    }
    for (const inspect::CoefficientOrigin& entry : record.coefficients) lines.insert(entry.line);
    for (const inspect::CoefficientOrigin& entry : record.zeros) lines.insert(entry.line);
    for (const mps::FileProblem& problem : record.problems) lines.insert(problem.line);
    lines.insert(record.idle_lines.begin(), record.idle_lines.end());
    lines.insert(record.marker_line);
  }
  return lines;
}

bool IsSaidOf(const RecordOrigin& record, const mps::FileProblem& problem) {
  return std::any_of(record.problems.begin(), record.problems.end(),
                     [&problem](const mps::FileProblem& other) {
                       return other.code == problem.code && other.line == problem.line &&
                              other.column == problem.column;
                     });
}

// A line in error may be about the row or the column of its name. Of one that there is none of, only that
// is left which is not said of the other one.
void DropRepeated(const RecordOrigin& other, RecordOrigin& missing) {
  if (missing.number != 0) return;
  const auto problems = std::erase_if(missing.problems, [&other](const mps::FileProblem& problem) {
    return IsSaidOf(other, problem);
  });
  missing.problem_count -= static_cast<std::int64_t>(problems);
  const auto lines = std::erase_if(missing.idle_lines, [&other](std::int64_t line) {
    return LinesOf({other}).count(line) != 0;
  });
  missing.idle_count -= static_cast<std::int64_t>(lines);
}

// The file makes none, and no line names it.
bool IsUnheardOf(const RecordOrigin& record) {
  return record.number == 0 && record.idle_count == 0 && record.problem_count == 0;
}

// The row and the column of that name.
std::vector<RecordOrigin> RecordsOf(std::string_view row, std::string_view column) {
  return {{.is_row = true, .name = std::string(row)},
          {.is_row = false, .name = std::string(column)}};
}

// "#5" is a number whatever the names are.
bool IsForcedNumber(std::string_view text) { return text.starts_with('#'); }

bool IsNumber(std::string_view text) {
  if (IsForcedNumber(text)) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Those of that number, where there are some.
std::vector<RecordOrigin> RecordsOfNumber(const model::ModelStore& store, std::string_view text) {
  if (IsForcedNumber(text)) text.remove_prefix(1);
  std::int32_t index = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  const bool is_row = model::InRange(index, store.NumberOfRows());
  const bool is_column = model::InRange(index, store.NumberOfColumns());
  if (!is_row && !is_column) return {};
  const std::int32_t number = model::Stored(index);
  return RecordsOf(is_row ? store.Row(number).Name.view() : "",
                   is_column ? store.Column(number).Name.view() : "");
}

// "row COST and column BREAD".
std::string NamesOf(const std::vector<RecordOrigin>& records) {
  std::string names;
  for (const RecordOrigin& record : records) {
    if (record.name.empty()) continue;
    if (!names.empty()) names += " and ";
    names.append(record.is_row ? "row " : "column ").append(record.name);
  }
  return names;
}

std::string NumbersOf(const std::vector<RecordOrigin>& records) {
  std::string numbers;
  for (const RecordOrigin& record : records) {
    if (record.number == 0) continue;
    if (!numbers.empty()) numbers += " and ";
    numbers.append(record.is_row ? "row #" : "column #");
    numbers += text::IntegerText(model::Public(record.number));
  }
  return numbers;
}

// Whether the name that was found is that of every record of the number.
bool AreSame(const std::vector<RecordOrigin>& named, const std::vector<RecordOrigin>& numbered) {
  return std::equal(named.begin(), named.end(), numbered.begin(),
                    [](const RecordOrigin& a, const RecordOrigin& b) {
                      return b.name == (a.number == 0 ? "" : a.name);
                    });
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
    std::vector<RecordOrigin> numbered = RecordsOfNumber(store_, text);
    const bool is_named = IsAny(records);
    if (!numbered.empty() && is_named) NoteBoth(text, records, numbered);
    if (!numbered.empty() && (!is_named || IsForcedNumber(text))) {
      if (path_ == kStandardInput) {
        throw CommandError(kProblem, file() + ": " + text +
                                         " is a number, which takes reading twice: give the file, "
                                         "or the name of " +
                                         NamesOf(numbered));
      }
      records = Find(std::move(numbered));
    }
    DropRepeated(records[0], records[1]);
    if (records[1].number != 0) DropRepeated(records[1], records[0]);
    std::erase_if(records, IsUnheardOf);
    ShowTokens(records);
    auto quotes = inspect::QuotedLines(options_.open, LinesOf(records));
    return {session_, path_, std::move(records), facts_, std::move(quotes)};
  }
  // "; did you mean ...": rows and columns of like names, or which numbers there are.
  std::string Likely() const {
    if (IsNumber(session_.arguments.operands[1])) return Numbers();
    text::NearestWords nearest(text::UpperCase(session_.arguments.operands[1]));
    for (std::int32_t r = 1; r <= store_.NumberOfRows(); ++r) nearest.Offer(store_.Row(r).Name);
    for (std::int32_t c = 1; c <= store_.NumberOfColumns(); ++c) {
      nearest.Offer(store_.Column(c).Name);
    }
    return text::DidYouMean(nearest.words());
  }
  std::string file() const { return NameOfInput(path_); }

 private:
  // Gives the problems what they are about as it stands in the file; what is read once keeps upper case.
  void ShowTokens(std::vector<RecordOrigin>& records) const {
    if (path_ == kStandardInput) return;
    mps::LineTexts texts(options_.open);
    for (RecordOrigin& record : records) {
      for (mps::FileProblem& problem : record.problems) texts.Show(problem);
    }
  }
  // Tells which was taken of two things that the word could be.
  void NoteBoth(const std::string& text, const std::vector<RecordOrigin>& named,
                const std::vector<RecordOrigin>& numbered) {
    if (AreSame(named, numbered)) return;
    const std::string name = text::UpperCase(text);
    if (IsForcedNumber(text)) {
      return session_.Note(text + " is taken as a number; the name " + name + " is that of " +
                           NumbersOf(named));
    }
    session_.Note(text + " is taken as a name; #" + text + " is " + NamesOf(numbered));
  }
  std::string Numbers() const {
    const auto last = [](std::int32_t count) { return text::IntegerText(count - 1); };
    std::string text;
    if (store_.NumberOfRows() > 0) {
      text += "; rows are numbered from 0 to " + last(store_.NumberOfRows());
    }
    if (store_.NumberOfColumns() > 0) {
      text += "; columns are numbered from 0 to " + last(store_.NumberOfColumns());
    }
    return text;
  }
  std::vector<RecordOrigin> Find(std::vector<RecordOrigin> records) {
    const bool limited = (session_.arguments.used & kLimit) != 0;
    const std::int64_t limit = limited ? session_.arguments.limit : kExplainLimit;
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
    PrintExplanationJson(explanation);
  } else {
    PrintExplanationText(explanation);
  }
  if (IsAny(explanation.records)) return kGood;
  session.Note(read.file() + ": there is no row or column " + session.arguments.operands[1] +
               read.Likely());
  return kProblem;
}

}  // namespace quarvel::hosts
