#include "mps/mps_writer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "text/encoding.h"
#include "text/numbers.h"
#include "text/short_picture.h"

namespace quarvel::mps {
namespace {

constexpr std::int32_t kRowsPrefetchedAhead = 8;
// The largest number has 309 digits before its point.
constexpr std::size_t kLongestValue = 400;

constexpr std::string_view kName = "NAME          ";
constexpr std::string_view kIntegersBegin = "    INT       'MARKER'                 'INTORG'";
constexpr std::string_view kIntegersEnd = "    INTEND    'MARKER'                 'INTEND'";
constexpr std::string_view kRightHandSide = "    RHS       ";
constexpr std::string_view kRange = "    RANGE     ";
constexpr std::string_view kBoundSet = " BOUND     ";

bool FitsValueField(std::string_view value) { return value.size() <= kValueWidth; }

std::size_t CharactersOf(std::string_view name) {
  return text::IsAscii(name) ? name.size() : text::CharacterCount(name);
}

bool IsBlank(std::string_view lines) {
  return lines.find_first_not_of(" \r\n") == std::string_view::npos;
}

// The element lines of one column whose fields all fit: each begins as the line of its name without row
// and value, which are put into it. MpsWriter::WriteElement is the plain way and gives the same lines:
// MpsElementLine in tests/mps/mps_writer_test.cpp.
class ElementLine {
 public:
  static constexpr std::size_t kLength =
      kEntryIndent.size() + 2 * kNameWidth + kValueWidth + kNewLine.size();
  // What Put may write to.
  static constexpr std::size_t kRoom = kLength + text::kRoomBehindPicture;

  explicit ElementLine(std::string_view column) {
    std::memset(empty_, ' ', kLength);
    column.copy(empty_ + kEntryIndent.size(), column.size());
  }

  // Writes the line to `to`. `row` is the name with blanks up to the length of the longest that fits. False
  // when the value is none of those that are quick to write.
  template <std::size_t kSize>
  bool Put(const std::array<char, kSize>& row, double value, char* to) const {
    static_assert(kSize <= kNameWidth);
    std::memcpy(to, empty_, kLength);
    const std::size_t size = text::PutShortPicture(value, to + kValueEnd);
    if (size == 0 || size > kValueWidth) return false;
    std::memcpy(to + kRowAt, row.data(), kSize);
    EndLine(to);
    return true;
  }
  template <std::size_t kSize>
  void Put(const std::array<char, kSize>& row, std::string_view value, char* to) const {
    std::memcpy(to, empty_, kLength);
    std::memcpy(to + kRowAt, row.data(), kSize);
    std::memcpy(to + kValueEnd - value.size(), value.data(), value.size());
    EndLine(to);
  }

 private:
  static constexpr std::size_t kRowAt = kEntryIndent.size() + kNameWidth;
  static constexpr std::size_t kValueAt = kRowAt + kNameWidth;
  static constexpr std::size_t kValueEnd = kValueAt + kValueWidth;
  // In front of the value its room is part of the row's name, which is written behind it.
  static_assert(text::kRoomBeforePicture <= kValueWidth + kNameWidth);

  static void EndLine(char* to) { std::memcpy(to + kValueEnd, kNewLine.data(), kNewLine.size()); }

  char empty_[kLength];
};

}  // namespace

std::optional<double> RightHandSideOf(const model::RowRecord& row) {
  const model::RowTypeTraits& type = model::TraitsOf(row.Type);
  if (!type.has_lower && !type.has_upper) return std::nullopt;
  const double limit = type.has_lower ? row.LowerBound : row.UpperBound;
  return limit != 0 ? std::optional(limit) : std::nullopt;
}

MpsWriter::NameField::NameField(std::string_view text) : NameField(text, CharactersOf(text)) {}

MpsWriter::NameField::NameField(std::string_view text, std::size_t characters)
    : name(text),
      fits(characters <= kLongestFixedName),
      blanks(fits ? kNameWidth - characters : 0) {}

MpsWriter::MpsWriter(const model::ModelData& data)
    : data_(data), lines_(kHandOverSize + kHandOverSize / 4) {
  value_.reserve(kLongestValue);
  BuildRowLabels();
}

void MpsWriter::Write(const std::function<void(std::string_view)>& take) {
  take_ = &take;
  if (!data_.ModelName.empty()) WriteName();
  if (!data_.ModelDescription.empty()) WriteDescription();
  if (data_.NumberOfRows >= 1) WriteRows();
  if (data_.NumberOfColumns >= 1) WriteColumns();
  if (data_.NumberOfRows >= 1) WriteRightHandSides();
  WriteRanges();
  if (data_.NumberOfColumns >= 1) WriteBounds();
  WriteLine(kEndHeader);
  HandOver();
}

void MpsWriter::WriteName() { WriteLine(kName, data_.ModelName); }

void MpsWriter::WriteDescription() {
  std::string_view rest = data_.ModelDescription;
  do {
    const std::size_t end = rest.find(kNewLine);
    WriteLine(kCommentStart, rest.substr(0, end));
    if (end == std::string_view::npos) return;
    rest.remove_prefix(end + kNewLine.size());
  } while (!IsBlank(rest));
}

void MpsWriter::WriteRows() {
  WriteLine(kRowsHeader);
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    const model::RowRecord& row = data_.Rows[i];
    if (row.ElementCount() == 0) continue;
    lines_ += ' ';
    lines_ += model::TraitsOf(row.Type).file_letter;
    WriteLine(kWordGap, row.Name);
    if (!RowName(i).fits) NoteLong({LongFieldKind::kName, row.Name});
  }
}

void MpsWriter::WriteColumns() {
  WriteLine(kColumnsHeader);
  std::int32_t integers = 0;
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data_.Columns[j];
    if (column.Type == model::ColumnType::kInteger) {
      ++integers;
    } else {
      WriteElements(column);
    }
  }
  if (integers == 0) return;
  WriteLine(kIntegersBegin);
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data_.Columns[j];
    if (column.Type == model::ColumnType::kInteger) WriteElements(column);
  }
  WriteLine(kIntegersEnd);
}

void MpsWriter::BuildRowLabels() {
  row_labels_.Resize(data_.Rows.size());
  for (std::int32_t i = 1; i <= data_.Rows.size(); ++i) {
    const std::string_view name = data_.Rows[i].Name;
    RowLabel& label = row_labels_[i];
    const bool plain = name.size() <= kLongestFixedName && text::IsAscii(name);
    label.length = plain ? static_cast<std::uint8_t>(name.size()) : kOnlyInRow;
    label.padded.fill(' ');
    if (plain) std::copy(name.begin(), name.end(), label.padded.begin());
  }
}

void MpsWriter::PrefetchRow(std::int32_t number) const {
  if (number < 1 || number > row_labels_.size()) return;  // raised when it is used
  __builtin_prefetch(&row_labels_[number]);
}

MpsWriter::NameField MpsWriter::RowName(std::int32_t number) const {
  const RowLabel& label = row_labels_[number];
  if (label.length == kOnlyInRow) return NameField(data_.Rows[number].Name);
  return {std::string_view(label.padded.data(), label.length), label.length};
}

void MpsWriter::WriteElements(const model::ColumnRecord& column) {
  const std::int32_t count = column.ElementCount();
  for (std::int32_t k = 1; k <= std::min(count, kRowsPrefetchedAhead); ++k) {
    PrefetchRow(column.Elements[k].Index);
  }
  const NameField name(column.Name);
  const bool plain = name.fits && text::IsAscii(column.Name);
  ElementLine line(plain ? name.name : std::string_view());
  for (std::int32_t k = 1; k <= count; ++k) {
    if (k <= count - kRowsPrefetchedAhead) {
      PrefetchRow(column.Elements[k + kRowsPrefetchedAhead].Index);
    }
    const model::ElementEntry& element = column.Elements[k];
    const RowLabel& row = row_labels_[element.Index];
    const bool is_plain = plain && row.length != kOnlyInRow;
    if (is_plain && line.Put(row.padded, element.Value, lines_.Room(ElementLine::kRoom)))
        [[likely]] {
      TakeLine(ElementLine::kLength);
      continue;
    }
    const std::string_view value = Format(element.Value, text::Picture::kElement);
    if (is_plain && FitsValueField(value)) {
      line.Put(row.padded, value, lines_.Room(ElementLine::kRoom));
      TakeLine(ElementLine::kLength);
    } else {
      WriteElement(name, element.Index, value);
    }
  }
}

void MpsWriter::WriteElement(const NameField& column, std::int32_t row_number,
                             std::string_view value) {
  const NameField row = RowName(row_number);
  lines_ += kEntryIndent;
  if (column.fits && row.fits && FitsValueField(value)) {
    AppendPadded(column);
    AppendPadded(row);
    AppendRightAligned(value);
  } else {
    standard_ = false;
    const std::string_view row_name = data_.Rows[row_number].Name;
    if (!column.fits) NoteLong({LongFieldKind::kName, column.name});
    if (!row.fits) NoteLong({LongFieldKind::kName, row_name});
    NoteLong({LongFieldKind::kCoefficient, column.name, row_name});
    lines_ += column.name;
    lines_ += kWordGap;
    lines_ += row.name;
    lines_ += kWordGap;
    lines_ += value;
  }
  EndLine();
}

void MpsWriter::WriteRightHandSides() {
  WriteLine(kRhsHeader);
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    const model::RowRecord& row = data_.Rows[i];
    const NameField name(row.Name);
    if (!name.fits) standard_ = false;
    const auto value = RightHandSideOf(row);
    if (value) WriteRowEntry(LongFieldKind::kRightHandSide, name, *value);
  }
}

void MpsWriter::WriteRanges() {
  bool header_due = true;
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    const model::RowRecord& row = data_.Rows[i];
    if (row.Type != model::RowType::kRanged) continue;
    if (header_due) WriteLine(kRangesHeader);
    header_due = false;
    WriteRowEntry(LongFieldKind::kRange, NameField(row.Name), row.UpperBound - row.LowerBound);
  }
}

void MpsWriter::WriteRowEntry(LongFieldKind kind, const NameField& row, double value) {
  lines_ += kind == LongFieldKind::kRange ? kRange : kRightHandSide;
  if (row.fits) {
    AppendPadded(row);
  } else {
    standard_ = false;
    NoteLong({LongFieldKind::kName, row.name});
    lines_ += row.name;
    lines_ += kWordGap;
  }
  const std::string_view text = Format(value, text::Picture::kElement);
  if (FitsValueField(text)) {
    AppendRightAligned(text);
  } else {
    standard_ = false;
    NoteLong({kind, row.name});
    lines_ += kWordGap;
    lines_ += text;
  }
  EndLine();
}

void MpsWriter::WriteBounds() {
  WriteLine(kBoundsHeader);
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data_.Columns[j];
    const NameField name(column.Name);
    WriteLowerBound(column, name);
    WriteUpperBound(column, name);
  }
}

void MpsWriter::WriteLowerBound(const model::ColumnRecord& column, const NameField& name) {
  const double lower = column.LowerBound;
  const bool due = lower != 0 && lower != column.UpperBound && lower != -model::BoundLimit;
  const std::string_view value = Format(lower, text::Picture::kBound);
  if (name.fits && FitsValueField(value)) {
    if (due) WriteFixedBound(model::BoundCode::kLower, name, value);
  } else {
    standard_ = false;
    if (due) WriteFreeBound(model::BoundCode::kLower, name, FormatGeneral(lower));
  }
}

void MpsWriter::WriteUpperBound(const model::ColumnRecord& column, const NameField& name) {
  const double upper = column.UpperBound;
  const bool fixed = upper == column.LowerBound;
  if (!fixed && upper == model::BoundLimit) {
    if (column.LowerBound != -model::BoundLimit) return;
    standard_ = false;
    AppendBoundCode(model::BoundCode::kFree);
    WriteLine(name.name);
    if (!name.fits) NoteLong({LongFieldKind::kName, name.name});
    return;
  }
  const model::BoundCode code = fixed ? model::BoundCode::kFixed : model::BoundCode::kUpper;
  const std::string_view value = Format(upper, text::Picture::kBound);
  if (name.fits && FitsValueField(value)) {
    WriteFixedBound(code, name, value);
  } else if (fixed) {
    WriteFreeBound(code, name, FormatGeneral(upper));
  } else {
    WriteFreeBound(code, name, Format(upper, text::Picture::kWideBound));
  }
}

void MpsWriter::AppendBoundCode(model::BoundCode code) {
  lines_ += ' ';
  lines_ += model::TraitsOf(code).letters;
  lines_ += kBoundSet;
}

void MpsWriter::WriteFixedBound(model::BoundCode code, const NameField& column,
                                std::string_view value) {
  AppendBoundCode(code);
  AppendPadded(column);
  AppendRightAligned(value);
  EndLine();
}

void MpsWriter::WriteFreeBound(model::BoundCode code, const NameField& column,
                               std::string_view value) {
  NoteLong({column.fits ? LongFieldKind::kBound : LongFieldKind::kName, column.name});
  AppendBoundCode(code);
  lines_ += column.name;
  lines_ += kWordGap;
  lines_ += value;
  EndLine();
}

void MpsWriter::NoteLong(const LongField& field) {
  if (!long_field_) long_field_ = field;
}

std::string_view MpsWriter::Format(double value, text::Picture picture) {
  char* const end = short_value_.data() + text::kRoomBeforePicture;
  const std::size_t size = text::PutShortPicture(value, end);  // the same for each picture
  if (size != 0) return {end - size, size};
  value_.clear();
  text::AppendPictureText(value_, value, picture);
  return value_;
}

std::string_view MpsWriter::FormatGeneral(double value) {
  value_.clear();
  text::AppendGeneralText(value_, value);
  return value_;
}

void MpsWriter::WriteLine(std::string_view prefix, std::string_view rest) {
  lines_ += prefix;
  lines_ += rest;
  EndLine();
}

void MpsWriter::AppendPadded(const NameField& field) {
  lines_ += field.name;
  lines_.append(field.blanks, ' ');
}

void MpsWriter::AppendRightAligned(std::string_view value) {
  lines_.append(kValueWidth - value.size(), ' ');
  lines_ += value;
}

void MpsWriter::EndLine() {
  lines_ += kNewLine;
  TakeLine(0);
}

void MpsWriter::TakeLine(std::size_t size) {
  lines_.Take(size);
  if (lines_.size() >= kHandOverSize) HandOver();
}

void MpsWriter::HandOver() {
  (*take_)(lines_.view());
  lines_.clear();
}

}  // namespace quarvel::mps
