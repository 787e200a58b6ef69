#include "inspect/dialects.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "inspect/byte_marks.h"
#include "inspect/like_fixed_columns.h"
#include "model/model_fill.h"
#include "mps/line_source.h"
#include "mps/section.h"
#include "mps/wide_headers.h"
#include "mps/wide_words.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using mps::Section;

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
    case kOtherLetters:
      return DialectPoint::kOtherLetters;
    case kInfiniteValue:
      return DialectPoint::kInfiniteBound;
    case kTab:
      return DialectPoint::kTab;
    case kEndComment:
      return DialectPoint::kEndComment;
    case kMoreRows:
      return DialectPoint::kMoreRows;
    default:
      return std::nullopt;
  }
}

class DialectWatch {
 public:
  DialectWatch(const mps::ReadOptions& options, model::ModelStore& store, std::size_t kept)
      : fill_(store.fill()),
        kept_(kept),
        always_fixed_(options.columns == mps::FileColumns::kFixed),
        reads_fixed_(always_fixed_) {
    for (const DialectTraits& traits : DialectTable()) found_.push_back({.point = traits.point});
    last_lines_.resize(found_.size());
  }

  void Use(const mps::SourceLine& line, Section section, Section next) {
    section_ = next;
    if (line.too_long()) return;
    number_ = line.number();
    if (IsBlank(line)) return Find(DialectPoint::kEmptyLine);
    if (!line.is_split()) return;
    NoteName(line);
    if (section != next) return UseHeader(section, next);
    UseColumnsOf(line, section);
    if (IsDataInFirstColumn(line, section)) Find(DialectPoint::kFirstColumn);
    if (section == Section::kRows) UseRow(line);
    if (section == Section::kColumns) UseColumn(line);
    if (section == Section::kRhs) UsePairs(line, rhs_set_, DialectPoint::kSecondRhsSet);
    if (section == Section::kRanges) UsePairs(line, ranges_set_, DialectPoint::kSecondRangesSet);
    if (section == Section::kBounds) UseBound(line);
  }

  // Of a line that is passed over.
  void Pass(const mps::SourceLine& line) {
    if (line.too_long()) return;
    number_ = line.number();
    if (IsBlank(line)) return Find(DialectPoint::kEmptyLine);
    const bool begins_blank = line.text()[0] == ' ' || line.text()[0] == '\t';
    if (begins_blank && number_ == comment_line_) Find(DialectPoint::kBlankComment);
    if (!line.is_split()) return;
    NoteName(line);
    const bool names_objective =
        !begins_blank && mps::FindWideHeader(line[1]) == mps::WideHeader::kObjectiveName;
    if (names_objective) Find(DialectPoint::kObjectiveName);
  }

  void Hear(const mps::FileProblem& problem) {
    if (problem.code == mps::FileProblemCode::kFixedColumns) reads_fixed_ = true;
    if (problem.code == mps::FileProblemCode::kComment) comment_line_ = problem.line;
    const std::optional<DialectPoint> point = PointOf(problem, section_);
    if (!point) return;
    number_ = problem.line;
    Find(*point);
  }

  std::vector<DialectFinding> Finish(const mps::FileFacts& facts, const ByteMarks& marks) {
    for (const ColumnSeen& column : columns_) {
      if (!column.is_integer || column.has_upper) continue;
      number_ = column.line;
      Find(column.has_lower ? DialectPoint::kIntegerWithLowerOnly
                            : DialectPoint::kIntegerWithoutBounds);
    }
    FindMissing(facts);
    FindMarks(facts, marks);
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
    bool has_upper = false;  // or what says to all readers that there is none
  };

  void Find(DialectPoint point) {
    // Two findings in one line are one.
    if (std::exchange(last_lines_[static_cast<std::size_t>(point)], number_) == number_) return;
    DialectFinding& finding = found_[static_cast<std::size_t>(point)];
    if (finding.lines.size() < kept_) finding.lines.push_back(number_);
    ++finding.count;
  }

  void FindMissing(const mps::FileFacts& facts) {
    number_ = facts.lines;
    if (!facts.has_endata) Find(DialectPoint::kMissingEndata);
    number_ = behind_columns_ != 0 ? behind_columns_ : facts.lines;
    if (!has_rhs_) Find(DialectPoint::kMissingRhs);
    number_ = first_header_;
    if (!has_name_) Find(DialectPoint::kMissingName);
  }

  void FindMarks(const mps::FileFacts& facts, const ByteMarks& marks) {
    number_ = 1;
    if (marks.has_byte_order_mark()) Find(DialectPoint::kByteOrderMark);
    // At the end of the last line it does no harm.
    number_ = marks.first_cr_line();
    if (number_ != 0 && number_ < facts.lines) Find(DialectPoint::kCrLineEnd);
  }

  static bool IsBlank(const mps::SourceLine& line) {
    return line.text().find_first_not_of(" \t") == std::string_view::npos;
  }

  // One behind the first header comes too late.
  void NoteName(const mps::SourceLine& line) {
    if (first_header_ != 0 || line.text()[0] == ' ' || line[1] != "NAME") return;
    has_name_ = true;
    const std::size_t kept = std::min(line.token_count(), mps::TokenList::kKept);
    for (std::size_t token = 3; token <= kept; ++token) {
      if (line[token] == "FREE" && line.SmallLettersOf(line[token]) == 0) like_fixed_.SayFree();
    }
  }

  // Where the words of a data line stand.
  void UseColumnsOf(const mps::SourceLine& line, Section section) {
    if (!reads_fixed_) {
      const bool is_marker =
          section == Section::kColumns && line.token_count() > 1 && line[2] == "'MARKER'";
      if (like_fixed_.Use(line.split_text(), section, is_marker)) {
        Find(DialectPoint::kLikeFixedColumns);
      }
      return;
    }
    const std::size_t kept = std::min(line.token_count(), mps::TokenList::kKept);
    for (std::size_t token = 1; token <= kept; ++token) {
      const bool has_blank = line[token].find(' ') != std::string_view::npos;
      if (has_blank) Find(DialectPoint::kNameWithBlanks);
    }
    const std::string_view text = line.split_text();
    for (const std::size_t field : {14U, 39U}) {
      if (section != Section::kRows && text.size() > field && text[field] == '$') {
        Find(DialectPoint::kEndComment);
      }
    }
  }

  void UseHeader(Section section, Section next) {
    if (next == Section::kColumns) reads_fixed_ = always_fixed_;
    if (first_header_ == 0) first_header_ = number_;
    if (section == Section::kColumns && behind_columns_ == 0) behind_columns_ = number_;
    has_rhs_ |= next == Section::kRhs;
  }

  // A header that stands in its own section is none, unless words behind it are a pair of the section.
  bool IsDataInFirstColumn(const mps::SourceLine& line, Section section) const {
    const char first = line.text()[0];
    if (section == Section::kStart || first == ' ' || first == '\t') return false;
    if (mps::FindWideHeader(line[1]) == mps::WideHeader::kUnknown) return true;
    return line.token_count() > 2 && fill_.FindRow(line.Key(2), line[2]) != 0;
  }

  void FindDExponent(std::string_view word) {
    if (word.find('D') != std::string_view::npos && text::ParseNumber(word)) {
      Find(DialectPoint::kDExponent);
    }
  }
  void FindDExponents(const mps::SourceLine& line) {
    if (line.token_count() != 3 && line.token_count() != 5) return;
    for (std::size_t token = 3; token <= line.token_count(); token += 2) FindDExponent(line[token]);
  }

  void UseRow(const mps::SourceLine& line) {
    if (line.token_count() != 2) return;
    if (!model::TraitsOf(model::RowTypeOf(line[1])).in_files()) return;
    if (line.SmallLettersOf(line[1]) != 0) Find(DialectPoint::kSmallCode);
    if (line[1] != "N") return;
    if (objective_ != 0) return Find(DialectPoint::kSecondFreeRow);
    objective_ = fill_.FindRow(line.Key(2), line[2]);
  }

  void UseColumn(const mps::SourceLine& line) {
    FindDExponents(line);
    FindSmallMarker(line);
    const std::int32_t elements = fill_.data().NumberOfElements;
    const std::int32_t added = elements - std::exchange(elements_, elements);
    const auto count = static_cast<std::size_t>(fill_.data().NumberOfColumns);
    if (columns_.size() < count) {
      const model::ColumnType type = fill_.data().Columns[fill_.data().NumberOfColumns].Type;
      columns_.push_back({.line = number_, .is_integer = type == model::ColumnType::kInteger});
    }
    if (added > 0) FindPairs(fill_.FindColumn(line.Key(1), line[1]), added);
  }

  void FindSmallMarker(const mps::SourceLine& line) {
    if (line.token_count() != 3 || line[2] != "'MARKER'") return;
    const bool is_small = (line.SmallLettersOf(line[2]) | line.SmallLettersOf(line[3])) != 0;
    if (is_small) Find(DialectPoint::kSmallMarker);
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
    FindDExponents(line);
    if (!line[1].empty() && !UseSet(line[1], first_set, second_set)) return;
    for (std::size_t token = 2; token < line.token_count(); token += 2) {
      const std::int32_t row = fill_.FindRow(line.Key(token), line[token]);
      const std::optional<double> value = text::ParseNumber(line[token + 1]);
      if (row != 0 && value) UsePair(row, *value, second_set == DialectPoint::kSecondRhsSet);
    }
  }

  void UsePair(std::int32_t row, double value, bool is_rhs) {
    const model::RowTypeTraits& type = model::TraitsOf(fill_.data().Rows[row].Type);
    if (!is_rhs) return UseRange(fill_.data().Rows[row], type, value);
    if (row == objective_ && value != 0) Find(DialectPoint::kObjectiveConstant);
    if (CountsAsNone(value, type.has_lower, type.has_upper)) Find(DialectPoint::kLargeNumber);
  }

  // The row has it already.
  void UseRange(const model::RowRecord& row, const model::RowTypeTraits& type, double value) {
    constexpr double kInfinite = 1e30;
    const bool by_sign = type.range == model::RangeEffect::kBySign;
    const bool sets_upper = by_sign ? value > 0 : type.range == model::RangeEffect::kSetsUpper;
    if (type.range == model::RangeEffect::kNothing) return Find(DialectPoint::kRangeOfFreeRow);
    if (by_sign && std::fabs(value) >= kInfinite) return Find(DialectPoint::kInfiniteRange);
    const bool has_limit =
        sets_upper ? model::HasUpper(row.UpperBound) : model::HasLower(row.LowerBound);
    if (!has_limit) Find(DialectPoint::kLargeNumber);
  }

  // Whether it is the first set.
  bool UseSet(std::string_view set, std::optional<std::string>& first_set,
              DialectPoint second_set) {
    if (!first_set) first_set = set;
    const bool is_first = *first_set == set;
    if (!is_first) Find(second_set);
    return is_first;
  }

  void UseBound(const mps::SourceLine& line) {
    if (line.token_count() < 3) return;
    const std::string_view code = line[1];
    const std::optional<mps::BoundValue> use = mps::ValueOfBound(code);
    if (!use) return;
    const bool needs_value = use != mps::BoundValue::kIgnored;
    if (needs_value && line.token_count() > 3) FindDExponent(line[4]);
    if (line.SmallLettersOf(code) != 0) Find(DialectPoint::kSmallCode);
    if (!line[2].empty()) UseSet(line[2], bounds_set_, DialectPoint::kSecondBoundsSet);
    if (code == "SC") Find(DialectPoint::kSemiContinuous);
    if (code == "SI") Find(DialectPoint::kSemiInteger);
    const std::int32_t column = fill_.FindColumn(line.Key(3), line[3]);
    if (column == 0) return;
    const std::optional<double> value =
        needs_value && line.token_count() > 3 ? text::ParseNumber(line[4]) : std::nullopt;
    SetBound(columns_[static_cast<std::size_t>(column) - 1], code, value.value_or(0));
  }

  // A code without a value gives 0, of which there is nothing to find.
  void SetBound(ColumnSeen& column, std::string_view code, double value) {
    const bool is_upper = code == "UP" || code == "UI";
    if (is_upper && value < 0 && !column.has_lower) Find(DialectPoint::kNegativeUpper);
    const bool is_rounded = code != "UP" && code != "LO" && code != "FX";
    if (column.is_integer && !is_rounded && value != std::floor(value)) {
      Find(DialectPoint::kFractionalBound);
    }
    const bool is_lower = code == "LO" || code == "LI";
    if (CountsAsNone(value, !is_upper && code[0] != 'S', !is_lower)) {
      Find(DialectPoint::kLargeNumber);
    }
    column.has_lower |= !is_upper && code != "PL";
    // LI gives none either, and to no reader one of 1.
    column.has_upper |= code != "LO" && code != "MI";
  }

  // Of what is made the lower bound, the upper one, or both.
  static bool CountsAsNone(double value, bool is_lower, bool is_upper) {
    return (is_lower && !model::HasLower(value)) || (is_upper && !model::HasUpper(value));
  }

  model::ModelFill fill_;
  std::size_t kept_;
  std::vector<DialectFinding> found_;
  std::vector<std::int64_t> last_lines_;  // of each point
  LikeFixedColumns like_fixed_;
  bool always_fixed_;
  bool reads_fixed_;                   // the lines, by columns
  std::int64_t comment_line_ = 0;      // the last that is a comment
  Section section_ = Section::kStart;  // of the next line
  bool has_name_ = false;
  bool has_rhs_ = false;
  std::int64_t first_header_ = 0;    // the line of the first section; 0 for none, as in the next
  std::int64_t behind_columns_ = 0;  // of the first one behind COLUMNS
  std::int64_t number_ = 0;          // of the line
  std::int32_t objective_ = 0;       // the first row of type N
  std::int32_t elements_ = 0;        // of the model after the last line of COLUMNS
  std::vector<ColumnSeen> columns_;
  std::vector<std::int32_t> columns_of_rows_;  // that named the row last
  std::optional<std::string> rhs_set_;
  std::optional<std::string> ranges_set_;
  std::optional<std::string> bounds_set_;
};

}  // namespace

DialectFindings FindDialects(const std::string& path, const mps::ReadOptions& options,
                             model::ModelStore& store, std::size_t kept) {
  DialectWatch watch(options, store, kept);
  ByteMarks marks;
  mps::ReadOptions watched = options;
  watched.open = MarkedOpening(path, options.open, marks);
  watched.on_problem = [&](const mps::FileProblem& problem) {
    watch.Hear(problem);
    return !options.on_problem || options.on_problem(problem);
  };
  watched.on_line = [&](const mps::SourceLine& line, Section section, Section next) {
    watch.Use(line, section, next);
  };
  watched.on_passed_line = [&](const mps::SourceLine& line, Section) { watch.Pass(line); };
  DialectFindings findings;
  findings.read = mps::ReadFile(path, watched, store);
  if (findings.read.outcome == mps::ReadOutcome::kRead) {
    findings.found = watch.Finish(findings.read.facts, marks);
  }
  return findings;
}

}  // namespace quarvel::inspect
