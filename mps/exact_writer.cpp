#include "mps/exact_writer.h"

#include <cmath>

#include "mps/exact_limits.h"
#include "mps/file_words.h"
#include "text/encoding.h"
#include "text/numbers.h"
#include "text/shortest_text.h"

namespace quarvel::mps {
namespace {

using model::BoundCode;
using model::BoundLimit;
using model::ColumnRecord;
using model::ColumnType;
using model::RowRecord;

// Of a value and, in a text, of what it is gathered in.
constexpr std::size_t kLongestValue = 32;

constexpr std::string_view kName = "NAME";
constexpr std::string_view kBeforeName = "          ";
constexpr std::string_view kSense = "OBJSENSE";
constexpr std::string_view kMinimize = "    MIN";
constexpr std::string_view kMaximize = "    MAX";
constexpr std::string_view kMarker = "MARKER";
constexpr std::string_view kMarkerField = "'MARKER'";
constexpr std::string_view kBeforeMarkerType = "                 ";

template <class Records>
bool HasBlank(const Records& records, std::int32_t count) {
  for (std::int32_t number = 1; number <= count; ++number) {
    if (records[number].Name.view().find(' ') != std::string_view::npos) return true;
  }
  return false;
}

std::string SetName(const std::string& own, std::string_view usual, bool may_have_blanks) {
  const bool is_kept = !own.empty() && (may_have_blanks || own.find(' ') == own.npos);
  return is_kept ? own : std::string(usual);
}

std::string FreeMarkerName(const model::ModelStore& store) {
  std::string name(kMarker);
  for (int number = 1; store.FindColumn(name) != 0; ++number) {
    name = std::string(kMarker).append(text::IntegerText(number));
  }
  return name;
}

bool IsNegative(double value) { return value < 0 || (value == 0 && std::signbit(value)); }

}  // namespace

void DropConstantNote(std::string& description) {
  std::size_t begin = description.rfind(kConstantNote);
  if (begin == std::string::npos || begin + kConstantNote.size() != description.size()) return;
  const bool is_first = begin == 0;
  const bool is_line =
      is_first || std::string_view(description).substr(0, begin).ends_with(kNewLine);
  if (!is_line) return;
  description.resize(is_first ? 0 : begin - kNewLine.size());
}

bool NeedsFixedColumns(const model::ModelData& data) {
  return HasBlank(data.Rows, data.NumberOfRows) || HasBlank(data.Columns, data.NumberOfColumns);
}

ExactWriter::ExactWriter(const model::ModelStore& store, const FileFacts& facts)
    : data_(store.data()),
      facts_(facts),
      objective_(ObjectiveOf(data_, facts)),
      marker_(FreeMarkerName(store)) {
  const bool blanks = NeedsFixedColumns(data_);
  rhs_set_ = SetName(facts.rhs_set, kRhsSet, blanks);
  ranges_set_ = SetName(facts.ranges_set, kRangesSet, blanks);
  bounds_set_ = SetName(facts.bounds_set, kBoundsSet, blanks);
  lines_.reserve(kHandOverSize + kHandOverSize / 4);
  value_.reserve(kLongestValue);
}

void ExactWriter::Write(const std::function<void(std::string_view)>& take) {
  take_ = &take;
  long_field_.reset();
  bounds_due_ = true;
  WriteTexts();
  WriteSense();
  WriteRows();
  WriteColumns();
  WriteRightHandSides();
  WriteRanges();
  WriteBounds();
  WriteLine(kEndHeader);
  HandOver();
}

void ExactWriter::WriteTexts() {
  lines_ += kName;
  if (!data_.ModelName.empty()) lines_.append(kBeforeName).append(data_.ModelName);
  EndLine();
  std::string_view rest = data_.ModelDescription;
  while (!rest.empty()) {
    const std::size_t end = rest.find(kNewLine);
    WriteLine(kCommentStart, rest.substr(0, end));
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + kNewLine.size());
    if (rest.empty()) WriteLine(kCommentStart);
  }
  if (facts_.objective_constant != 0) WriteLine(kCommentStart, kConstantNote);
}

void ExactWriter::WriteSense() {
  if (facts_.sense == ObjectiveSense::kNotSaid) return;
  WriteLine(kSense);
  WriteLine(facts_.sense == ObjectiveSense::kMaximize ? kMaximize : kMinimize);
}

void ExactWriter::WriteRows() {
  WriteLine(kRowsHeader);
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    const RowLines lines = RowLinesOf(data_, facts_, objective_, i);
    lines_ += ' ';
    lines_ += model::TraitsOf(lines.type).file_letter;
    WriteLine(kWordGap, data_.Rows[i].Name);
    if (text::CharacterCount(data_.Rows[i].Name) > kLongestFixedName) {
      NoteLong({LongFieldKind::kName, data_.Rows[i].Name});
    }
  }
}

void ExactWriter::WriteColumns() {
  WriteLine(kColumnsHeader);
  bool integers = false;
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
    const ColumnRecord& column = data_.Columns[j];
    if ((column.Type == ColumnType::kInteger) != integers) WriteMarker(integers = !integers);
    WriteColumn(column);
  }
  if (integers) WriteMarker(false);
}

void ExactWriter::WriteMarker(bool integers) {
  lines_ += kEntryIndent;
  AppendName(marker_);
  const ColumnType type = integers ? ColumnType::kInteger : ColumnType::kContinuous;
  lines_.append(kMarkerField).append(kBeforeMarkerType).append(model::TraitsOf(type).marker);
  EndLine();
}

void ExactWriter::WriteColumn(const ColumnRecord& column) {
  for (const model::ElementEntry& element : column.Elements) {
    WriteEntry(LongFieldKind::kCoefficient, column.Name, data_.Rows[element.Index].Name,
               element.Value);
  }
  if (column.ElementCount() != 0 || data_.NumberOfRows == 0) return;
  const std::int32_t row = objective_ != 0 ? objective_ : 1;
  WriteEntry(LongFieldKind::kCoefficient, column.Name, data_.Rows[row].Name, 0);
}

void ExactWriter::WriteRightHandSides() {
  const double constant = facts_.objective_constant;
  WriteLine(kRhsHeader);
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    RowLines lines = RowLinesOf(data_, facts_, objective_, i);
    if (i == objective_ && constant != 0) lines.right_hand_side = -constant;
    if (!lines.right_hand_side) continue;
    WriteEntry(LongFieldKind::kRightHandSide, rhs_set_, data_.Rows[i].Name, *lines.right_hand_side);
  }
}

void ExactWriter::WriteRanges() {
  bool is_due = true;
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    const RowLines lines = RowLinesOf(data_, facts_, objective_, i);
    if (!lines.range) continue;
    Header(kRangesHeader, is_due);
    WriteEntry(LongFieldKind::kRange, ranges_set_, data_.Rows[i].Name, *lines.range);
  }
}

void ExactWriter::WriteBounds() {
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) WriteBoundsOf(data_.Columns[j]);
}

void ExactWriter::WriteBoundsOf(const ColumnRecord& column) {
  const double lower = column.LowerBound;
  const double upper = column.UpperBound;
  // Bounds that are equal because one of them is absent are not fixed. Beyond the limit a file has said so.
  const bool is_fixed = lower == upper && std::fabs(lower) != BoundLimit;
  if (is_fixed && std::signbit(lower) == std::signbit(upper)) {
    return WriteBound(BoundCode::kFixed, column, upper);
  }
  if (lower == -BoundLimit && upper == BoundLimit) return WriteBound(BoundCode::kFree, column);
  if (lower == -BoundLimit) {
    WriteBound(BoundCode::kNoLower, column);
  } else if (lower != 0) {
    WriteBound(BoundCode::kLower, column, lower);
  }
  WriteUpperBound(column);
  if (lower == 0 && (std::signbit(lower) || IsNegative(upper))) {
    WriteBound(BoundCode::kLower, column, lower);
  }
}

void ExactWriter::WriteUpperBound(const ColumnRecord& column) {
  if (column.UpperBound != BoundLimit) {
    WriteBound(BoundCode::kUpper, column, column.UpperBound);
  } else if (column.Type == ColumnType::kInteger) {
    WriteBound(BoundCode::kNoUpper, column);
  }
}

void ExactWriter::WriteEntry(LongFieldKind kind, std::string_view name, std::string_view row,
                             double value) {
  lines_ += kEntryIndent;
  AppendName(name);
  AppendName(row);
  const bool is_coefficient = kind == LongFieldKind::kCoefficient;
  AppendValue(value, is_coefficient ? LongField{kind, name, row} : LongField{kind, row});
  EndLine();
}

void ExactWriter::WriteBound(BoundCode code, const ColumnRecord& column) {
  BeginBound(code);
  WriteLine({}, column.Name);
  if (text::CharacterCount(column.Name) > kLongestFixedName) {
    NoteLong({LongFieldKind::kName, column.Name});
  }
}

void ExactWriter::WriteBound(BoundCode code, const ColumnRecord& column, double value) {
  BeginBound(code);
  AppendName(column.Name);
  AppendValue(value, {LongFieldKind::kBound, column.Name});
  EndLine();
}

void ExactWriter::BeginBound(BoundCode code) {
  Header(kBoundsHeader, bounds_due_);
  lines_ += ' ';
  lines_ += model::TraitsOf(code).letters;
  lines_ += ' ';
  AppendName(bounds_set_);
}

void ExactWriter::Header(std::string_view header, bool& is_due) {
  if (is_due) WriteLine(header);
  is_due = false;
}

void ExactWriter::AppendName(std::string_view name) {
  lines_ += name;
  const std::size_t size = text::IsAscii(name) ? name.size() : text::CharacterCount(name);
  if (size <= kLongestFixedName) {
    lines_.append(kNameWidth - size, ' ');
  } else {
    lines_ += kWordGap;
    NoteLong({LongFieldKind::kName, name});
  }
}

void ExactWriter::AppendValue(double value, const LongField& field) {
  value_.clear();
  text::AppendShortestText(value_, value, kValueWidth);
  if (value_.size() <= kValueWidth) {
    lines_.append(kValueWidth - value_.size(), ' ');
  } else {
    NoteLong(field);
  }
  lines_ += value_;
}

void ExactWriter::NoteLong(const LongField& field) {
  if (!long_field_) long_field_ = field;
}

void ExactWriter::WriteLine(std::string_view prefix, std::string_view rest) {
  lines_ += prefix;
  lines_ += rest;
  EndLine();
}

void ExactWriter::EndLine() {
  lines_ += kNewLine;
  if (lines_.size() >= kHandOverSize) HandOver();
}

void ExactWriter::HandOver() {
  (*take_)(lines_);
  lines_.clear();
}

}  // namespace quarvel::mps
