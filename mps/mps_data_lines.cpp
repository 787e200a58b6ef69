// What the data lines of each section do to the model.

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "model/bound_code.h"
#include "model/line_names.h"
#include "mps/mps_reader.h"
#include "text/numbers.h"
#include "text/padded_number.h"

namespace quarvel {
namespace {

// A fresh record behind the counted ones; others that stand there give way.
template <class Record>
Record& AppendRecord(OneBased<Record>& records, std::int32_t& count) {
  if (records.size() != count) records.Resize(count);
  Record& record = records.AppendFresh();
  ++count;  // not before there is one
  return record;
}

}  // namespace

inline NameKey MpsReader::KeyOf(std::size_t token_number) const {
  const NameKey* const key = names_->Find(token_number);
  return key != nullptr ? *key : NameKey::Of(token(token_number));
}

inline std::int32_t MpsReader::FindRowOf(std::size_t token_number) const {
  return FindRow(data_, KeyOf(token_number), token(token_number));
}

inline std::int32_t MpsReader::FindColumnOf(std::size_t token_number) const {
  return FindColumn(data_, KeyOf(token_number), token(token_number));
}

void MpsReader::UseRow() {
  if (tokens_->count() != 2) {
    ProblemNamingLine("MPS file read error: insufficent tokens in line " +
                      text::IntegerText(line_number_));
    return;
  }
  const RowType type = RowTypeOf(token(1));
  if (!TraitsOf(type).in_files()) {
    LineProblem("MPS file read error: improper row type");
    return;
  }
  if (FindRowOf(2) != 0) {
    ProblemNamingLine("MPS file read error: row name appears for a second time (" +
                      text::IntegerText(line_number_) + ")");
    return;
  }
  AppendRow(type);
}

// The row of the line at hand, whose name no row has yet.
void MpsReader::AppendRow(RowType type) {
  if (data_.Rows.IsFull()) data_.Rows.Reserve(ExpectedCount(data_.NumberOfRows, sizeof(RowRecord)));
  RowRecord& row = AppendRecord(data_.Rows, data_.NumberOfRows);
  row.Name = std::string(token(2));
  row.Type = type;
  row.LowerBound = TraitsOf(type).FreshLower();
  row.UpperBound = TraitsOf(type).FreshUpper();
  data_.row_names.Add(KeyOf(2), token(2), data_.NumberOfRows, NamesOf(data_.Rows));
}

// How many rows or columns there will be if the section goes on to the end of the file as it began.
// An array that doubles its room when it is full is copied, and had from the system, twice. Too
// much room costs nothing as long as nothing is written to it; there is a limit to it all the same.
std::int32_t MpsReader::ExpectedCount(std::int32_t count, std::size_t bytes_each) const {
  constexpr std::int32_t kTooFewToTell = 1000;
  constexpr std::size_t kMostRoom = std::size_t{sizeof(void*) >= 8 ? 256 : 64} << 20;
  if (count < kTooFewToTell) return 0;
  const std::uint64_t section = BytesRead() - section_start_;
  const std::uint64_t rest = file_size_ - std::min(file_size_, BytesRead());
  const double more = static_cast<double>(count) * static_cast<double>(rest) /
                      static_cast<double>(std::max<std::uint64_t>(section, 1));
  const auto most =
      static_cast<double>(std::min(kMostRoom / bytes_each, 8 * static_cast<std::size_t>(count)));
  const auto enough = static_cast<double>(count) / 16;
  return count + static_cast<std::int32_t>(std::min(more + enough, most));
}

inline bool MpsReader::CheckPairLine(std::string_view section_words) {
  const std::size_t count = tokens_->count();
  if ((count == 3 || count == 5) && data_.NumberOfRows >= 1) return true;
  ReportPairLine(section_words);
  return false;
}

void MpsReader::ReportPairLine(std::string_view section_words) {
  if (tokens_->count() != 3 && tokens_->count() != 5) {
    LineProblem("MPS file read error: improper number of tokens");
  } else {
    LineProblem("MPS file read error: no rows yet, but reading " + std::string(section_words));
  }
}

inline MpsReader::Pair MpsReader::ReadPair(std::size_t first_token) {
  double value;
  if (!text::ParsePaddedNumber(token(first_token + 1), value)) {
    LineProblem("MPS file read error: needs numeric value");
    return {};
  }
  const std::int32_t row = FindRowOf(first_token);
  if (row == 0) LineProblem("MPS file read error: no match for row name");
  return {row, value};
}

void MpsReader::UseColumn() {
  if (!CheckPairLine("columns")) return;
  std::int32_t column = ColumnOfLine();
  for (std::size_t first = 2; first < tokens_->count() && column != 0; first += 2) {
    const Pair pair = ReadPair(first);
    if (state_ != State::kReading) return;
    // A question was asked: a host may have deleted columns meanwhile, this one too.
    if (pair.row == 0) column = FindColumnOf(1);
    if (pair.row != 0 && pair.value != 0) AppendElement(pair.row, column, pair.value);
  }
}

// The number of the line's column, added when it is new; 0 for a marker line.
std::int32_t MpsReader::ColumnOfLine() {
  const bool certain =
      last_column_line_ == line_number_ - 1 && last_column_line_ != 0 && names_->goes_on();
  if (!certain) {
    const std::int32_t column = FindOrAppendColumn();
    if (column == 0) return 0;
    last_column_ = column;
  }
  last_column_line_ = line_number_;
  return last_column_;
}

std::int32_t MpsReader::FindOrAppendColumn() {
  const std::string_view name = token(1);
  // Most lines go on with the column of the line before.
  if (last_column_ >= 1 && last_column_ <= data_.NumberOfColumns &&
      data_.Columns[last_column_].Name == name) {
    return last_column_;
  }
  const std::int32_t column = FindColumnOf(1);
  if (column == 0) {
    if (token(2) == "'MARKER'") {
      for (const ColumnTypeTraits& known : kColumnTypes) {
        if (known.marker == token(3)) CurrentColumnType = known.type;
      }
      return 0;
    }
    return AppendColumn();
  }
  // Row lists keep the order of the file. Taking up an earlier column again ends the order in which
  // walking the columns would give it, so from here on they are kept up to date line by line.
  if (data_.row_lists_pending) Settle(data_);
  return column;
}

// The column of the line at hand, whose name no column has yet.
std::int32_t MpsReader::AppendColumn() {
  if (data_.Columns.IsFull()) {
    const std::int32_t expected = ExpectedCount(data_.NumberOfColumns, sizeof(ColumnRecord));
    data_.Columns.Reserve(expected);
    data_.column_names.Reserve(static_cast<std::size_t>(expected));
  }
  ColumnRecord& column = AppendRecord(data_.Columns, data_.NumberOfColumns);
  column.Name = std::string(token(1));  // made anew, it has no more room than it needs
  column.Type = CurrentColumnType;
  column.LowerBound = data_.DefaultToPlusMinusInfinity ? -BoundLimit : 0;
  column.UpperBound = BoundLimit;
  data_.column_names.Add(KeyOf(1), token(1), data_.NumberOfColumns, NamesOf(data_.Columns));
  return data_.NumberOfColumns;
}

inline void MpsReader::AppendElement(std::int32_t row, std::int32_t column, double value) {
  data_.column_arena.Append(data_.Columns[column].Elements.store(), {row, value});
  if (!data_.row_lists_pending) data_.Rows[row].Elements.Append({column, value});
  ++data_.NumberOfElements;
}

void MpsReader::UseRhs() {
  if (!CheckPairLine("RHSs")) return;
  for (std::size_t first = 2; first < tokens_->count() && state_ == State::kReading; first += 2) {
    const Pair pair = ReadPair(first);
    if (pair.row != 0) ApplyRhs(pair.row, pair.value);
  }
}

void MpsReader::ApplyRhs(std::int32_t row_number, double value) {
  RowRecord& row = data_.Rows[row_number];
  TraitsOf(row.Type).right_hand_side.Apply(row, value);
}

void MpsReader::UseRange() {
  if (!CheckPairLine("ranges")) return;
  for (std::size_t first = 2; first < tokens_->count() && state_ == State::kReading; first += 2) {
    const Pair pair = ReadPair(first);
    if (pair.row != 0) ApplyRange(pair.row, pair.value);
  }
}

void MpsReader::ApplyRange(std::int32_t row_number, double range) {
  RowRecord& row = data_.Rows[row_number];
  switch (TraitsOf(row.Type).range) {
    case RangeEffect::kNothing:
      break;
    case RangeEffect::kSetsUpper:
      row.UpperBound = row.LowerBound + std::fabs(range);
      break;
    case RangeEffect::kSetsLower:
      row.LowerBound = row.UpperBound - std::fabs(range);
      break;
    case RangeEffect::kBySign:
      if (range > 0) {
        row.UpperBound = row.LowerBound + range;
      } else {
        row.LowerBound -= range;
      }
      break;
  }
}

void MpsReader::UseBound() {
  if (data_.NumberOfColumns < 1) {
    LineProblem("MPS file read error: no variables yet, but reading bounds");
    return;
  }
  if (tokens_->count() < 3) {
    LineProblem("MPS file read error: improper number of tokens");
    return;
  }
  const BoundCodeTraits* code = FindBoundCode(token(1));
  if (code == nullptr) {
    LineProblem("MPS file read error: improper bounds code");
    return;
  }
  double value = 0;
  if (code->needs_value) {
    if (tokens_->count() != 4) {
      LineProblem("MPS file error: too few tokens");
      return;
    }
    if (!text::ParsePaddedNumber(token(4), value)) {
      LineProblem("MPS file read error: needs numeric value");
      return;
    }
  }
  const std::int32_t column = FindColumnOf(3);
  if (column == 0) {
    LineProblem("MPS file read error: no match for variable name");
    return;
  }
  code->change.Apply(data_.Columns[column], value);
}

}  // namespace quarvel
