#include "inspect/problem_lines.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "inspect/where_from.h"
#include "model/bounds.h"
#include "mps/name_spellings.h"

namespace quarvel::inspect {
namespace {

using mps::FileProblem;
using mps::FileProblemCode;
using Lines = std::vector<std::int64_t>;

bool IsOfColumn(FileProblemCode code) {
  using enum FileProblemCode;
  return code == kColumnBoundsReversed || code == kPairTwice || code == kBeyondLimit ||
         code == kColumnAgain;
}
bool IsOfRow(FileProblemCode code) {
  using enum FileProblemCode;
  return code == kRowBoundsReversed || code == kRowTypeLost || code == kBeyondLimit ||
         code == kRowTwice;
}

// The one problem that says itself which of the two it is about.
bool IsOfRow(const FileProblem& problem) {
  if (problem.code == FileProblemCode::kOtherLetters) return problem.made == mps::kOneRow;
  return IsOfRow(problem.code);
}
bool IsOfColumn(const FileProblem& problem) {
  if (problem.code == FileProblemCode::kOtherLetters) return problem.made != mps::kOneRow;
  return IsOfColumn(problem.code);
}

// The records that problems are about, each once.
class WatchedRecords {
 public:
  explicit WatchedRecords(const std::vector<FileProblem>& problems) {
    for (const FileProblem& problem : problems) {
      if (IsOfRow(problem)) Watch(true, problem.item);
      if (IsOfColumn(problem)) Watch(false, problem.item);
    }
  }
  std::vector<RecordOrigin>& records() { return records_; }
  const RecordOrigin& Of(bool is_row, const std::string& name) const {
    return records_[places_.at({is_row, name})];
  }

 private:
  void Watch(bool is_row, const std::string& name) {
    if (!places_.emplace(std::pair(is_row, name), records_.size()).second) return;
    records_.push_back({.is_row = is_row, .name = name});
  }

  std::map<std::pair<bool, std::string>, std::size_t> places_;
  std::vector<RecordOrigin> records_;
};

void AddSetting(const History& history, FileProblemCode code, Lines& lines) {
  if (history.last.empty() || history.last.back().line == 0) return;
  const Setting& setting = history.last.back();
  const bool is_beyond = std::fabs(setting.value) >= model::BoundLimit;
  if (code != FileProblemCode::kBeyondLimit || is_beyond) lines.push_back(setting.line);
}

void AddSettings(const RecordOrigin& record, FileProblemCode code, Lines& lines) {
  AddSetting(record.lower, code, lines);
  AddSetting(record.upper, code, lines);
}

void AddCoefficients(const RecordOrigin& column, const std::string& row, Lines& lines) {
  for (const CoefficientOrigin& coefficient : column.coefficients) {
    if (coefficient.other == row) lines.push_back(coefficient.line);
  }
}

// The line that made the record.
void AddFirst(const RecordOrigin& record, Lines& lines) {
  const std::vector<Setting>& types = record.type.last;
  if (!types.empty() && types.front().line > 0) lines.push_back(types.front().line);
}

Lines LinesOf(const FileProblem& problem, const WatchedRecords& watched) {
  Lines lines;
  using enum FileProblemCode;
  if (problem.code == kRowTwice || problem.code == kOtherLetters || problem.code == kColumnAgain) {
    AddFirst(watched.Of(IsOfRow(problem), problem.item), lines);
    return lines;
  }
  if (problem.code == FileProblemCode::kPairTwice) {
    AddCoefficients(watched.Of(false, problem.item), problem.read, lines);
  } else {
    if (IsOfRow(problem.code)) AddSettings(watched.Of(true, problem.item), problem.code, lines);
    if (IsOfColumn(problem.code)) AddSettings(watched.Of(false, problem.item), problem.code, lines);
  }
  std::sort(lines.begin(), lines.end());
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  return lines;
}

}  // namespace

bool HasLinesOfItsRecord(FileProblemCode code) {
  return IsOfRow(code) || IsOfColumn(code) || code == FileProblemCode::kOtherLetters;
}

void FindProblemLines(const std::string& path, const mps::ReadOptions& options,
                      model::ModelStore& store, std::vector<FileProblem>& problems) {
  constexpr std::size_t kMostCoefficients = 1000;  // of a column
  if (problems.empty()) return;
  WatchedRecords watched(problems);
  FindOrigins(path, options, store, watched.records(), kMostCoefficients);
  for (FileProblem& problem : problems) problem.lines = LinesOf(problem, watched);
}

}  // namespace quarvel::inspect
