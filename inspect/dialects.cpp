#include "inspect/dialects.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "model/bound_code.h"
#include "model/model_fill.h"
#include "mps/line_source.h"
#include "mps/section.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using mps::Section;

constexpr std::array<ReaderReading, kReaders> Readings(std::string_view quarvel,
                                                       std::string_view glpsol,
                                                       std::string_view lp_solve,
                                                       std::string_view cbc) {
  return {{{"quarvel", quarvel}, {"glpsol", glpsol}, {"lp_solve", lp_solve}, {"cbc", cbc}}};
}

constexpr std::string_view kRefuses = "refuses the file";

constexpr std::array<DialectTraits, 21> kDialects = {{
    {DialectPoint::kObjectiveSense, "objective-sense", "OBJSENSE",
     Readings("a fact beside the model", kRefuses,
              "takes the sense from the line below, in free columns only",
              "minimizes whatever stands in the line below; refuses a sense in the same line")},
    {DialectPoint::kSecondFreeRow, "second-free-row", "N rows after the first",
     Readings("a row like any other", "left out of what is solved", "left out", "left out")},
    {DialectPoint::kIntegerWithoutBounds, "integer-without-bounds",
     "integer columns that BOUNDS does not name",
     Readings("no upper bound", "upper bound 1", "no upper bound", "upper bound 1")},
    {DialectPoint::kIntegerWithLowerOnly, "integer-with-lower-only",
     "integer columns that BOUNDS gives a lower bound alone",
     Readings("no upper bound", "upper bound 1", "no upper bound", "no upper bound")},
    {DialectPoint::kPairTwice, "pair-twice", "a row given twice by one column",
     Readings("two coefficients", kRefuses, kRefuses, kRefuses)},
    {DialectPoint::kObjectiveConstant, "objective-constant", "a right-hand side of the objective",
     Readings("taken off the objective", "added to the objective", "added to the objective",
              "taken off the objective")},
    {DialectPoint::kSetWithoutName, "set-without-name", "lines without the name of a set",
     Readings("reads them", "reads them in fixed columns with a warning, refuses them in free ones",
              "reads them", "reads them in fixed columns, refuses them in free ones")},
    {DialectPoint::kSecondRhsSet, "second-rhs-set", "a second set of right-hand sides",
     Readings("applies the first set alone", kRefuses, "applies every set",
              "applies the first set alone")},
    {DialectPoint::kSecondRangesSet, "second-ranges-set", "a second set of ranges",
     Readings("applies the first set alone", kRefuses, "applies every set",
              "applies the first set alone")},
    {DialectPoint::kSecondBoundsSet, "second-bounds-set", "a second set of bounds",
     Readings("applies the first set alone", kRefuses, "applies every set",
              "applies the first set alone")},
    {DialectPoint::kRangeOfFreeRow, "range-of-free-row", "a range of an N row",
     Readings("passes over it", "passes over it with a warning", "passes over it", kRefuses)},
    {DialectPoint::kNegativeUpper, "negative-upper",
     "a negative UP without a lower bound before it",
     Readings("the lower bound stays 0", "the lower bound stays 0", "the lower bound stays 0",
              "takes the lower bound away")},
    {DialectPoint::kSemiContinuous, "semi-continuous", "SC bounds",
     Readings("an upper bound alone", kRefuses, "a semi-continuous column", "reads it")},
    {DialectPoint::kLargeNumber, "large-number",
     "an upper bound or limit of 1E+10 or more, or a lower one of -1E+10 or less",
     Readings("no limit", "a number like any other", "a number like any other",
              "a number like any other")},
    {DialectPoint::kMissingEndata, "missing-endata", "no ENDATA line",
     Readings("reads what is there", kRefuses, kRefuses, kRefuses)},
    {DialectPoint::kGivenAgain, "given-again", "a right-hand side or bound given again",
     Readings("the last one counts", kRefuses, "the last one counts", kRefuses)},
    {DialectPoint::kRangeAgain, "range-again", "a range given again",
     Readings("the last one counts", kRefuses,
              "the first one of an L row counts, the last one of a G row", kRefuses)},
    {DialectPoint::kHeaderAgain, "header-again", "NAME or a section for a second time",
     Readings("reads both", kRefuses, "reads both, but no ROWS behind COLUMNS", kRefuses)},
    {DialectPoint::kSectionOrder, "section-order", "a section behind one that should follow it",
     Readings("reads them in any order", kRefuses,
              "reads RHS, RANGES and BOUNDS in any order, refuses another", kRefuses)},
    {DialectPoint::kColumnAgain, "column-again", "a column taken up again behind another",
     Readings("one column", kRefuses, kRefuses, "reads it")},
    {DialectPoint::kSmallHeader, "small-header", "a header in small letters",
     Readings("the same as in capitals", kRefuses, kRefuses, kRefuses)},
}};

// Of a line whose problem is all there is to find; nothing for most.
std::optional<DialectPoint> PointOf(const mps::FileProblem& problem, Section section) {
  using enum mps::FileProblemCode;
  switch (problem.code) {
    case kObjectiveSense:
    case kSenseUnknown:
      return DialectPoint::kObjectiveSense;
    case kNamelessSet:
      return DialectPoint::kSetWithoutName;
    case kGivenAgain:
      return section == Section::kRanges ? DialectPoint::kRangeAgain : DialectPoint::kGivenAgain;
    case kHeaderAgain:
      if (problem.item.starts_with("OBJ")) return std::nullopt;
      return DialectPoint::kHeaderAgain;
    case kSectionOrder:
      return DialectPoint::kSectionOrder;
    case kColumnAgain:
      return DialectPoint::kColumnAgain;
    case kSmallHeader:
      return DialectPoint::kSmallHeader;
    default:
      return std::nullopt;
  }
}

class DialectWatch {
 public:
  DialectWatch(model::ModelStore& store, std::size_t kept) : fill_(store.fill()), kept_(kept) {
    for (const DialectTraits& traits : kDialects) found_.push_back({.point = traits.point});
  }

  void Use(const mps::SourceLine& line, Section section, Section next) {
    section_ = next;
    if (line.too_long() || line.text().empty() || section != next || !line.is_split()) return;
    number_ = line.number();
    if (section == Section::kRows) UseRow(line);
    if (section == Section::kColumns) UseColumn(line);
    if (section == Section::kRhs) UsePairs(line, rhs_set_, DialectPoint::kSecondRhsSet);
    if (section == Section::kRanges) UsePairs(line, ranges_set_, DialectPoint::kSecondRangesSet);
    if (section == Section::kBounds) UseBound(line);
  }

  void Hear(const mps::FileProblem& problem) {
    const std::optional<DialectPoint> point = PointOf(problem, section_);
    if (!point) return;
    number_ = problem.line;
    Find(*point);
  }

  std::vector<DialectFinding> Finish(const mps::FileFacts& facts) {
    for (const ColumnSeen& column : columns_) {
      if (!column.is_integer || column.has_upper) continue;
      number_ = column.line;
      Find(column.has_lower ? DialectPoint::kIntegerWithLowerOnly
                            : DialectPoint::kIntegerWithoutBounds);
    }
    number_ = facts.lines;
    if (!facts.has_endata) Find(DialectPoint::kMissingEndata);
    // The sense that counts is told behind those that do not.
    for (DialectFinding& finding : found_) std::sort(finding.lines.begin(), finding.lines.end());
    std::erase_if(found_, [](const DialectFinding& finding) { return finding.count == 0; });
    return std::move(found_);
  }

 private:
  struct ColumnSeen {
    std::int64_t line = 0;  // its first
    bool is_integer = false;
    bool has_lower = false;  // in BOUNDS
    bool has_upper = false;
  };

  void Find(DialectPoint point) {
    // Two findings in one line are one.
    if (std::exchange(last_lines_[static_cast<std::size_t>(point)], number_) == number_) return;
    DialectFinding& finding = found_[static_cast<std::size_t>(point)];
    if (finding.lines.size() < kept_) finding.lines.push_back(number_);
    ++finding.count;
  }

  void UseRow(const mps::SourceLine& line) {
    if (line.token_count() != 2 || line[1] != "N") return;
    if (objective_ != 0) return Find(DialectPoint::kSecondFreeRow);
    objective_ = fill_.FindRow(line.Key(2), line[2]);
  }

  void UseColumn(const mps::SourceLine& line) {
    const std::int32_t elements = fill_.data().NumberOfElements;
    const std::int32_t added = elements - std::exchange(elements_, elements);
    const auto count = static_cast<std::size_t>(fill_.data().NumberOfColumns);
    if (columns_.size() < count) {
      const model::ColumnType type = fill_.data().Columns[fill_.data().NumberOfColumns].Type;
      columns_.push_back({.line = number_, .is_integer = type == model::ColumnType::kInteger});
    }
    if (added > 0) FindPairs(fill_.FindColumn(line.Key(1), line[1]), added);
  }

  // Rows that the last column of a name has had before.
  void FindPairs(std::int32_t column, std::int32_t added) {
    if (column == 0) return;
    columns_of_rows_.resize(static_cast<std::size_t>(fill_.data().NumberOfRows) + 1);
    const model::ElementList& elements = fill_.data().Columns[column].Elements;
    for (std::int32_t k = elements.size() - added + 1; k <= elements.size(); ++k) {
      std::int32_t& last = columns_of_rows_[static_cast<std::size_t>(elements[k].Index)];
      if (last == column) Find(DialectPoint::kPairTwice);
      last = column;
    }
  }

  void UsePairs(const mps::SourceLine& line, std::optional<std::string>& first_set,
                DialectPoint second_set) {
    if (line.token_count() != 3 && line.token_count() != 5) return;
    if (!line[1].empty()) UseSet(line[1], first_set, second_set);
    for (std::size_t token = 2; token < line.token_count(); token += 2) {
      const std::int32_t row = fill_.FindRow(line.Key(token), line[token]);
      const std::optional<double> value = text::ParseNumber(line[token + 1]);
      if (row != 0 && value) UsePair(row, *value, second_set == DialectPoint::kSecondRhsSet);
    }
  }

  void UsePair(std::int32_t row, double value, bool is_rhs) {
    const model::RowTypeTraits& type = model::TraitsOf(fill_.data().Rows[row].Type);
    const bool is_free = type.type == model::RowType::kFree;
    if (is_free && !is_rhs) Find(DialectPoint::kRangeOfFreeRow);
    if (is_rhs && row == objective_ && value != 0) Find(DialectPoint::kObjectiveConstant);
    if (is_rhs && CountsAsNone(value, type.has_lower, type.has_upper)) {
      Find(DialectPoint::kLargeNumber);
    }
  }

  void UseSet(std::string_view set, std::optional<std::string>& first_set,
              DialectPoint second_set) {
    if (!first_set) {
      first_set = set;
    } else if (*first_set != set) {
      Find(second_set);
    }
  }

  void UseBound(const mps::SourceLine& line) {
    if (line.token_count() < 3) return;
    const std::string_view code = line[1];
    const model::BoundCodeTraits* const known = model::FindBoundCode(code);
    const bool needs_value =
        known != nullptr ? known->needs_value : code == "LI" || code == "UI" || code == "SC";
    if (!line[2].empty()) UseSet(line[2], bounds_set_, DialectPoint::kSecondBoundsSet);
    if (code == "SC") Find(DialectPoint::kSemiContinuous);
    const std::int32_t column = fill_.FindColumn(line.Key(3), line[3]);
    if (column == 0) return;
    const std::optional<double> value =
        needs_value && line.token_count() > 3 ? text::ParseNumber(line[4]) : std::nullopt;
    SetBound(columns_[static_cast<std::size_t>(column) - 1], code, value);
  }

  void SetBound(ColumnSeen& column, std::string_view code, const std::optional<double>& value) {
    const bool is_upper = code == "UP" || code == "UI";
    if (is_upper && value && *value < 0 && !column.has_lower) Find(DialectPoint::kNegativeUpper);
    const bool is_lower = code == "LO" || code == "LI";
    if (value && CountsAsNone(*value, !is_upper && code != "SC", !is_lower)) {
      Find(DialectPoint::kLargeNumber);
    }
    column.has_lower |= !is_upper && code != "PL";
    column.has_upper |= !is_lower;
  }

  // Of what is made the lower bound, the upper one, or both.
  static bool CountsAsNone(double value, bool is_lower, bool is_upper) {
    return (is_lower && !model::HasLower(value)) || (is_upper && !model::HasUpper(value));
  }

  model::ModelFill fill_;
  std::size_t kept_;
  std::vector<DialectFinding> found_;
  std::array<std::int64_t, kDialects.size()> last_lines_{};  // of each point
  Section section_ = Section::kStart;                        // of the next line
  std::int64_t number_ = 0;                                  // of the line
  std::int32_t objective_ = 0;                               // the first row of type N
  std::int32_t elements_ = 0;  // of the model after the last line of COLUMNS
  std::vector<ColumnSeen> columns_;
  std::vector<std::int32_t> columns_of_rows_;  // that named the row last
  std::optional<std::string> rhs_set_;
  std::optional<std::string> ranges_set_;
  std::optional<std::string> bounds_set_;
};

}  // namespace

std::span<const DialectTraits> DialectTable() { return kDialects; }

const DialectTraits& TraitsOf(DialectPoint point) {
  return kDialects[static_cast<std::size_t>(point)];
}

DialectFindings FindDialects(const std::string& path, const mps::ReadOptions& options,
                             model::ModelStore& store, std::size_t kept) {
  DialectWatch watch(store, kept);
  mps::ReadOptions watched = options;
  watched.on_problem = [&](const mps::FileProblem& problem) {
    watch.Hear(problem);
    return !options.on_problem || options.on_problem(problem);
  };
  watched.on_line = [&](const mps::SourceLine& line, Section section, Section next) {
    watch.Use(line, section, next);
  };
  watched.on_passed_line = [&](const mps::SourceLine& line, Section section) {
    watch.Use(line, section, section);
  };
  DialectFindings findings;
  findings.read = mps::ReadFile(path, watched, store);
  if (findings.read.outcome == mps::ReadOutcome::kRead) {
    findings.found = watch.Finish(findings.read.facts);
  }
  return findings;
}

}  // namespace quarvel::inspect
