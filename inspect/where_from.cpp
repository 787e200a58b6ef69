#include "inspect/where_from.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "model/name_key.h"
#include "mps/line_source.h"
#include "mps/section.h"

namespace quarvel::inspect {
namespace {

using mps::Section;

// The type and bounds of a record when they were last looked at.
struct Seen {
  std::string type;
  model::Bounds bounds;
  std::int64_t range_line = 0;  // 0: it has no range
  mps::BoundsGiven range_sides = {};
};

// The right-hand sides of an N row, and the lines that give no more of the row: they are used when it is
// the objective, which is known at the end.
struct FreeRhs {
  History constants = {};
  std::int64_t last_line = 0;
  std::int64_t line_count = 0;
  std::vector<std::int64_t> lines = {};
};

class OriginWatch {
 public:
  OriginWatch(model::ModelStore& store, std::vector<RecordOrigin>& records, std::size_t kept)
      : fill_(store.fill()),
        records_(records),
        kept_(kept),
        seen_(records.size()),
        given_lines_(records.size()),
        free_rhs_(records.size()) {
    for (std::size_t i = 0; i < records.size(); ++i) {
      (records[i].is_row ? rows_ : columns_).emplace(records[i].name, i);
    }
  }

  void Hear(const mps::FileProblem& problem) {
    if (problem.line != 0 && !IsToldAtTheEnd(problem)) return of_this_line_.push_back(problem);
    for (std::size_t i = 0; i < records_.size(); ++i) {
      RecordOrigin& record = records_[i];
      if (record.name != problem.item || !MayBeAbout(record, problem)) continue;
      AddProblem(record, problem);
    }
  }

  // A value of a line that Use hears of next, or of a line that says the sense.
  void Take(const mps::SourceLine& line, const mps::GivenValue& given) {
    using Kind = mps::GivenValue::Kind;
    if (given.kind == Kind::kSense) {
      const bool maximize = given.sense == mps::ObjectiveSense::kMaximize;
      return sense_.Add({.line = line.number(), .type = maximize ? "maximize" : "minimize"}, kept_);
    }
    const Numbers& numbers = given.kind == Kind::kBounds ? column_numbers_ : row_numbers_;
    const auto found = numbers.find(given.number);
    if (found != numbers.end()) TakeOf(found->second, line.number(), given);
  }

  // A line that was used in that section.
  void Use(const mps::SourceLine& line, Section section, Section section_after) {
    const std::int32_t elements = fill_.data().NumberOfElements;
    added_ = elements - std::exchange(elements_, elements);
    if (line.is_split() && section == section_after && line.token_count() > 1) {
      UseTokens(line, section);
    }
    of_this_line_.clear();
  }

  // What the end of the read made: types of rows, the objective.
  void Finish(const mps::FileFacts& facts) {
    for (std::size_t i = 0; i < records_.size(); ++i) {
      RecordOrigin& record = records_[i];
      if (record.number == 0) continue;
      Compare(i, 0);
      if (!record.is_row) continue;
      if (record.name != facts.objective) {
        AddIdle(record, free_rhs_[i]);
        continue;
      }
      record.sense = sense_;
      record.constant = free_rhs_[i].constants;
    }
  }

 private:
  using Names = std::unordered_map<std::string_view, std::size_t>;
  using Numbers = std::unordered_map<std::int32_t, std::size_t>;

  void TakeOf(std::size_t i, std::int64_t line, const mps::GivenValue& given) {
    const bool is_free =
        records_[i].is_row && fill_.data().Rows[given.number].Type == model::RowType::kFree;
    if (!is_free) {
      Compare(i, line, SidesOf(i, given));
      given_lines_[i] = line;
      if (given.kind == mps::GivenValue::Kind::kRange) NoteRange(i, line, given);
    } else if (given.kind == mps::GivenValue::Kind::kRhs) {
      const double constant = given.value == 0 ? 0 : -given.value;
      free_rhs_[i].constants.Add({.line = line, .value = constant}, kept_);
      free_rhs_[i].last_line = line;
    }
  }

  void NoteRange(std::size_t i, std::int64_t line, const mps::GivenValue& given) {
    seen_[i].range_line = 0;
    seen_[i].range_sides = SidesOf(i, given);
    seen_[i].range_line = line;
  }

  // Which bounds of the record the line says, be they what they were.
  mps::BoundsGiven SidesOf(std::size_t i, const mps::GivenValue& given) const {
    if (given.kind == mps::GivenValue::Kind::kBounds) return given.bounds;
    const model::RowTypeTraits& type = model::TraitsOf(fill_.data().Rows[given.number].Type);
    if (given.kind == mps::GivenValue::Kind::kRhs) {
      return {.lower = type.right_hand_side.lower == model::BoundChange::kGiven,
              .upper = type.right_hand_side.upper == model::BoundChange::kGiven};
    }
    if (type.range != model::RangeEffect::kBySign) {
      return {.lower = type.range == model::RangeEffect::kSetsLower,
              .upper = type.range == model::RangeEffect::kSetsUpper};
    }
    // A second range also takes back what the first one made.
    const bool again = seen_[i].range_line != 0;
    return {.lower = again || given.value <= 0, .upper = again || given.value > 0};
  }

  void UseTokens(const mps::SourceLine& line, Section section) {
    if (section == Section::kColumns && line[2] == "'MARKER'") {
      marker_line_ = line.number();
      return;
    }
    const std::size_t kept = std::min(line.token_count(), mps::TokenList::kKept);
    for (std::size_t token = 1; token <= kept; ++token) {
      if (MayName(line, section, token, true)) Try(rows_, line, token);
      if (MayName(line, section, token, false)) Try(columns_, line, token);
    }
    for (const std::size_t i : touched_) Touch(i, line, section);
    touched_.clear();
  }

  // Whether a row's or column's name stands there. In a line of a wrong number of tokens it may stand
  // anywhere.
  static bool MayName(const mps::SourceLine& line, Section section, std::size_t token,
                      bool is_row) {
    const std::size_t count = line.token_count();
    const bool is_pair = token == 2 || token == 4;
    switch (section) {
      case Section::kStart:
        return false;
      case Section::kRows:
        return is_row && (count != 2 || token == 2);
      case Section::kColumns:
        if (count != 3 && count != 5) return true;
        return is_row ? is_pair : token == 1;
      case Section::kRhs:
      case Section::kRanges:
        return is_row && ((count != 3 && count != 5) || is_pair);
      case Section::kBounds:
        return !is_row && (count < 3 || count > 4 || token == 3);
    }
    return false;
  }

  void Try(const Names& names, const mps::SourceLine& line, std::size_t token) {
    const auto found = names.find(line[token]);
    if (found == names.end()) return;
    if (std::find(touched_.begin(), touched_.end(), found->second) == touched_.end()) {
      touched_.push_back(found->second);
    }
  }

  void Touch(std::size_t i, const mps::SourceLine& line, Section section) {
    RecordOrigin& record = records_[i];
    const bool is_new = record.number == 0 && FindNew(i);
    bool changes = is_new || (record.number != 0 && Compare(i, line.number())) ||
                   given_lines_[i] == line.number();
    if (is_new) Begin(i, line.number());
    if (section == Section::kColumns && AddCoefficients(record, line)) changes = true;
    for (const mps::FileProblem& problem : of_this_line_) {
      // What is said of one row in a line is not said of the other.
      const bool is_about_another =
          record.is_row && !problem.item.empty() && problem.item != record.name;
      if (is_about_another || problem.line != line.number()) continue;
      AddProblem(record, problem);
      if (problem.code == mps::FileProblemCode::kZeroCoefficient) {
        AddZero(record, line, problem);
        changes = true;
      }
    }
    if (changes) return;
    const bool is_free_rhs = free_rhs_[i].last_line == line.number();
    auto& lines = is_free_rhs ? free_rhs_[i].lines : record.idle_lines;
    if (lines.size() < kept_) lines.push_back(line.number());
    ++(is_free_rhs ? free_rhs_[i].line_count : record.idle_count);
  }

  // The right-hand sides of an N row that is not the objective.
  void AddIdle(RecordOrigin& record, const FreeRhs& rhs) const {
    std::vector<std::int64_t>& lines = record.idle_lines;
    lines.insert(lines.end(), rhs.lines.begin(), rhs.lines.end());
    std::sort(lines.begin(), lines.end());
    if (lines.size() > kept_) lines.resize(kept_);
    record.idle_count += rhs.line_count;
  }

  bool FindNew(std::size_t i) {
    RecordOrigin& record = records_[i];
    const model::NameKey key = model::NameKey::Of(record.name);
    record.number =
        record.is_row ? fill_.FindRow(key, record.name) : fill_.FindColumn(key, record.name);
    if (record.number == 0) return false;
    (record.is_row ? row_numbers_ : column_numbers_).emplace(record.number, i);
    return true;
  }

  Seen Look(const RecordOrigin& record) const {
    if (record.is_row) {
      const model::RowRecord& row = fill_.data().Rows[record.number];
      return {model::TypeText(row.Type), {row.LowerBound, row.UpperBound}};
    }
    const model::ColumnRecord& column = fill_.data().Columns[record.number];
    return {model::TypeText(column.Type), {column.LowerBound, column.UpperBound}};
  }

  void Begin(std::size_t i, std::int64_t line) {
    RecordOrigin& record = records_[i];
    seen_[i] = Look(record);
    record.type.Add({.line = line, .type = seen_[i].type}, kept_);
    const model::Bounds bounds = seen_[i].bounds;
    const model::Bounds usual = DefaultOf(record);
    const bool is_usual_lower = bounds.LowerBound == usual.LowerBound;
    const bool is_usual_upper = bounds.UpperBound == usual.UpperBound;
    record.lower.Add({.line = is_usual_lower ? 0 : line, .value = bounds.LowerBound}, kept_);
    record.upper.Add({.line = is_usual_upper ? 0 : line, .value = bounds.UpperBound}, kept_);
    if (!record.is_row) record.marker_line = marker_line_;
  }

  model::Bounds DefaultOf(const RecordOrigin& record) const {
    if (record.is_row) {
      const model::RowTypeTraits& type = model::TraitsOf(fill_.data().Rows[record.number].Type);
      return {type.FreshLower(), type.FreshUpper()};
    }
    const bool infinite = fill_.data().DefaultToPlusMinusInfinity;
    return {infinite ? -model::BoundLimit : 0, model::BoundLimit};
  }

  // True when the record is not what it was. Bounds that are given are settings, be they what they were.
  bool Compare(std::size_t i, std::int64_t line, mps::BoundsGiven given = {}) {
    RecordOrigin& record = records_[i];
    std::string type = Look(record).type;
    const bool changes = type != seen_[i].type;
    if (changes) {
      seen_[i].type = type;
      record.type.Add({.line = line, .type = std::move(type)}, kept_);
      record.marker_line = 0;
    }
    return CompareBounds(i, line, given) || changes;
  }

  bool CompareBounds(std::size_t i, std::int64_t line, mps::BoundsGiven given) {
    RecordOrigin& record = records_[i];
    const model::Bounds now = Look(record).bounds;
    const model::Bounds before = std::exchange(seen_[i].bounds, now);
    const bool lower = now.LowerBound != before.LowerBound;
    const bool upper = now.UpperBound != before.UpperBound;
    const mps::BoundsGiven ranged = seen_[i].range_sides;
    const auto add = [&](History& history, double value, bool is_ranged) {
      const bool is_by_both = is_ranged && line != 0 && line != seen_[i].range_line;
      const std::int64_t range_line = is_by_both ? seen_[i].range_line : 0;
      history.Add({.line = line, .value = value, .range_line = range_line}, kept_);
    };
    if (lower || given.lower) add(record.lower, now.LowerBound, ranged.lower);
    if (upper || given.upper) add(record.upper, now.UpperBound, ranged.upper);
    return lower || upper;
  }

  // Those that the line has added to the last column of a name.
  bool AddCoefficients(RecordOrigin& record, const mps::SourceLine& line) {
    if (added_ == 0) return false;
    const std::int32_t c = fill_.FindColumn(line.Key(1), line[1]);
    if (c == 0 || (!record.is_row && c != record.number)) return false;
    const model::ElementList& elements = fill_.data().Columns[c].Elements;
    bool any = false;
    for (std::int32_t k = std::max(elements.size() - added_, 0) + 1; k <= elements.size(); ++k) {
      const model::ElementEntry& entry = elements[k];
      if (record.is_row && entry.Index != record.number) continue;
      any = true;
      if (++record.coefficient_count > static_cast<std::int64_t>(kept_)) continue;
      const model::ModelData& data = fill_.data();
      const std::string_view other =
          record.is_row ? data.Columns[c].Name : data.Rows[entry.Index].Name;
      record.coefficients.push_back({line.number(), std::string(other), entry.Value});
    }
    return any;
  }

  void AddZero(RecordOrigin& record, const mps::SourceLine& line,
               const mps::FileProblem& problem) const {
    if (++record.zero_count > static_cast<std::int64_t>(kept_)) return;
    const std::string other = record.is_row ? std::string(line[1]) : problem.item;
    record.zeros.push_back({line.number(), other, 0});
  }

  // Of an N row, once it is known which of them is the objective.
  static bool IsToldAtTheEnd(const mps::FileProblem& problem) {
    using enum mps::FileProblemCode;
    return problem.code == kFurtherFreeRow || problem.code == kObjectiveConstant ||
           problem.code == kFreeRowRhs || problem.code == kObjectiveName ||
           problem.code == kNoSuchObjective;
  }

  // Of a problem of no line or one told at the end: whether it is one of such a record.
  static bool MayBeAbout(const RecordOrigin& record, const mps::FileProblem& problem) {
    using enum mps::FileProblemCode;
    const mps::FileProblemCode code = problem.code;
    if (code == kRowBoundsReversed || code == kEmptyRow || code == kRowTypeLost ||
        IsToldAtTheEnd(problem)) {
      return record.is_row;
    }
    if (code == kColumnBoundsReversed || code == kEmptyColumn) return !record.is_row;
    return true;
  }

  void AddProblem(RecordOrigin& record, const mps::FileProblem& problem) const {
    ++record.problem_count;
    if (record.problems.size() < kept_) record.problems.push_back(problem);
  }

  model::ModelFill fill_;
  std::vector<RecordOrigin>& records_;
  std::size_t kept_;
  std::vector<Seen> seen_;
  std::vector<std::int64_t> given_lines_;  // the last that gave it a bound
  std::vector<FreeRhs> free_rhs_;
  Names rows_;
  Names columns_;
  Numbers row_numbers_;  // of those that the file has made
  Numbers column_numbers_;
  std::vector<mps::FileProblem> of_this_line_;
  std::vector<std::size_t> touched_;  // by this line
  std::int32_t elements_ = 0;         // of the model after the last line
  std::int32_t added_ = 0;            // by this line
  std::int64_t marker_line_ = 0;
  History sense_;
};

}  // namespace

void History::Add(Setting setting, std::size_t kept) {
  ++count;
  if (!last.empty() && last.size() >= kept) last.erase(last.begin());
  last.push_back(std::move(setting));
}

mps::FileRead FindOrigins(const std::string& path, const mps::ReadOptions& options,
                          model::ModelStore& store, std::vector<RecordOrigin>& records,
                          std::size_t kept) {
  OriginWatch watch(store, records, kept);
  mps::ReadOptions watched = options;
  watched.on_problem = [&](const mps::FileProblem& problem) {
    watch.Hear(problem);
    return !options.on_problem || options.on_problem(problem);
  };
  watched.on_line = [&](const mps::SourceLine& line, Section section, Section section_after) {
    watch.Use(line, section, section_after);
  };
  watched.on_value = [&](const mps::SourceLine& line, const mps::GivenValue& given) {
    watch.Take(line, given);
  };
  mps::FileRead read = mps::ReadFile(path, watched, store);
  if (read.outcome == mps::ReadOutcome::kRead) watch.Finish(read.facts);
  return read;
}

}  // namespace quarvel::inspect
