// What the data lines of each section do to the model.

#include <bit>
#include <cmath>
#include <optional>
#include <string>

#include "mps/mps_reader.h"
#include "text/byte_block.h"
#include "text/numbers.h"

namespace quarvel {
namespace {

struct BoundCode {
  std::string_view code;
  bool needs_value;
};
constexpr BoundCode kBoundCodes[] = {{"LO", true},  {"UP", true},  {"FX", true},
                                     {"FR", false}, {"MI", false}, {"PL", false}};

const BoundCode* FindBoundCode(std::string_view code) {
  for (const BoundCode& known : kBoundCodes) {
    if (known.code == code) return &known;
  }
  return nullptr;
}

}  // namespace

void MpsReader::UseRow() {
  if (tokens_.count() != 2) {
    Problem("MPS file read error: insufficent tokens in line " + text::IntegerText(line_number_));
    return;
  }
  const std::string_view type = tokens_[1];
  if (type != "E" && type != "G" && type != "L" && type != "N") {
    LineProblem("MPS file read error: improper row type");
    return;
  }
  if (FindRow(data_, tokens_[2]) != 0) {
    Problem("MPS file read error: row name appears for a second time (" +
            text::IntegerText(line_number_) + ")");
    return;
  }
  AppendRow(tokens_[2], type[0]);
}

void MpsReader::AppendRow(std::string_view name, TypeLetter type) {
  RowRecord row;
  row.Name = name;
  row.Type = type;
  row.LowerBound = type == 'L' || type == 'N' ? -BoundLimit : 0;
  row.UpperBound = type == 'G' || type == 'N' ? BoundLimit : 0;
  data_.Rows.Resize(data_.NumberOfRows + 1);
  data_.Rows.last() = std::move(row);
  ++data_.NumberOfRows;
  data_.row_names.Add(name, data_.NumberOfRows, [this](std::int32_t number) -> const std::string& {
    return data_.Rows[number].Name;
  });
}

bool MpsReader::CheckPairLine(std::string_view section_words) {
  if (tokens_.count() != 3 && tokens_.count() != 5) {
    LineProblem("MPS file read error: improper number of tokens");
    return false;
  }
  if (data_.NumberOfRows < 1) {
    LineProblem("MPS file read error: no rows yet, but reading " + std::string(section_words));
    return false;
  }
  return true;
}

MpsReader::Pair MpsReader::ReadPair(std::size_t first_token) {
  const std::optional<double> value = text::ParseNumber(tokens_[first_token + 1]);
  if (!value) {
    LineProblem("MPS file read error: needs numeric value");
    return {};
  }
  const std::int32_t row = FindRow(data_, tokens_[first_token]);
  if (row == 0) LineProblem("MPS file read error: no match for row name");
  return {row, *value};
}

void MpsReader::UseColumn() {
  if (!CheckPairLine("columns")) return;
  std::int32_t column = ColumnOfLine();
  for (std::size_t first = 2; first < tokens_.count() && column != 0; first += 2) {
    const Pair pair = ReadPair(first);
    if (state_ != State::kReading) return;
    // A question was asked: a host may have deleted columns meanwhile, this one too.
    if (pair.row == 0) column = FindColumn(data_, tokens_[1]);
    if (pair.row != 0 && pair.value != 0) AppendElement(pair.row, column, pair.value);
  }
}

// Rows come in any order, so that finding a row's name waits for memory longer than all else a line
// takes. The names of the next line are where they are looked at already: having their slots
// fetched now hides most of that. A wrong guess (a name in lower case, a line that is no data line)
// costs nothing but the fetch.
void MpsReader::PrefetchNames() {
  const std::string_view ahead = lines_->ahead();
  if (ahead.size() < 2 * text::kBlockSize) return;
  const std::uint32_t spaces = text::ByteBlock(ahead.data()).Equal(' ') |
                               text::ByteBlock(ahead.data() + text::kBlockSize).Equal(' ')
                                   << text::kBlockSize;
  // Two tokens, each from a first byte that is no space to the next space.
  std::size_t from[2];
  std::size_t to[2];
  std::uint32_t rest = ~spaces;
  for (int i = 0; i < 2; ++i) {
    from[i] = static_cast<std::size_t>(std::countr_zero(rest));
    if (from[i] == 32) return;
    const std::uint32_t after = spaces & (~std::uint32_t{0} << from[i]);
    to[i] = static_cast<std::size_t>(std::countr_zero(after));
    if (to[i] == 32) return;
    rest = ~spaces & (~std::uint32_t{0} << to[i]);
  }
  data_.row_names.Prefetch(ahead.substr(from[1], to[1] - from[1]));
  const std::string_view column = ahead.substr(from[0], to[0] - from[0]);
  if (column != tokens_[1]) data_.column_names.Prefetch(column);
}

// The number of the line's column, added when it is new; 0 for a marker line.
std::int32_t MpsReader::ColumnOfLine() {
  const std::string_view name = tokens_[1];
  // Most lines go on with the column of the line before.
  if (last_column_ >= 1 && last_column_ <= data_.NumberOfColumns &&
      data_.Columns[last_column_].Name == name) {
    return last_column_;
  }
  std::int32_t column = FindColumn(data_, name);
  if (column == 0) {
    if (tokens_[2] == "'MARKER'") {
      if (tokens_[3] == "'INTORG'") CurrentColumnType = 'I';
      if (tokens_[3] == "'INTEND'") CurrentColumnType = 'R';
      return 0;
    }
    column = AppendColumn(name);
  } else if (data_.row_lists_pending) {
    // Row lists keep the order of the file. Taking up an earlier column again ends the order in
    // which walking the columns would give it, so from here on they are kept up to date line by
    // line.
    Settle(data_);
  }
  last_column_ = column;
  return column;
}

std::int32_t MpsReader::AppendColumn(std::string_view name) {
  ColumnRecord column;
  column.Name = name;
  column.Type = CurrentColumnType;
  column.LowerBound = data_.DefaultToPlusMinusInfinity ? -BoundLimit : 0;
  column.UpperBound = BoundLimit;
  data_.Columns.Resize(data_.NumberOfColumns + 1);
  data_.Columns.last() = std::move(column);
  ++data_.NumberOfColumns;
  data_.column_names.Add(
      name, data_.NumberOfColumns,
      [this](std::int32_t number) -> const std::string& { return data_.Columns[number].Name; });
  return data_.NumberOfColumns;
}

void MpsReader::AppendElement(std::int32_t row, std::int32_t column, double value) {
  data_.column_arena.Append(data_.Columns[column].Elements.store(), {row, value});
  if (!data_.row_lists_pending) data_.Rows[row].Elements.Append({column, value});
  ++data_.NumberOfElements;
}

void MpsReader::UseRhs() {
  if (!CheckPairLine("RHSs")) return;
  for (std::size_t first = 2; first < tokens_.count() && state_ == State::kReading; first += 2) {
    const Pair pair = ReadPair(first);
    if (pair.row != 0) ApplyRhs(pair.row, pair.value);
  }
}

void MpsReader::ApplyRhs(std::int32_t row_number, double value) {
  RowRecord& row = data_.Rows[row_number];
  switch (row.Type) {
    case 'E':
      row.LowerBound = value;
      row.UpperBound = value;
      break;
    case 'L':
      row.LowerBound = -BoundLimit;
      row.UpperBound = value;
      break;
    case 'G':
      row.LowerBound = value;
      break;
    default:
      break;
  }
}

void MpsReader::UseRange() {
  if (!CheckPairLine("ranges")) return;
  for (std::size_t first = 2; first < tokens_.count() && state_ == State::kReading; first += 2) {
    const Pair pair = ReadPair(first);
    if (pair.row != 0) ApplyRange(pair.row, pair.value);
  }
}

void MpsReader::ApplyRange(std::int32_t row_number, double range) {
  RowRecord& row = data_.Rows[row_number];
  switch (row.Type) {
    case 'G':
      row.UpperBound = row.LowerBound + std::fabs(range);
      break;
    case 'L':
      row.LowerBound = row.UpperBound - std::fabs(range);
      break;
    case 'E':
      if (range > 0) {
        row.UpperBound = row.LowerBound + range;
      } else {
        row.LowerBound -= range;
      }
      break;
    default:
      break;
  }
}

void MpsReader::UseBound() {
  if (data_.NumberOfColumns < 1) {
    LineProblem("MPS file read error: no variables yet, but reading bounds");
    return;
  }
  if (tokens_.count() < 3) {
    LineProblem("MPS file read error: improper number of tokens");
    return;
  }
  const BoundCode* code = FindBoundCode(tokens_[1]);
  if (code == nullptr) {
    LineProblem("MPS file read error: improper bounds code");
    return;
  }
  double value = 0;
  if (code->needs_value) {
    if (tokens_.count() != 4) {
      LineProblem("MPS file error: too few tokens");
      return;
    }
    const std::optional<double> number = text::ParseNumber(tokens_[4]);
    if (!number) {
      LineProblem("MPS file read error: needs numeric value");
      return;
    }
    value = *number;
  }
  const std::int32_t column = FindColumn(data_, tokens_[3]);
  if (column == 0) {
    LineProblem("MPS file read error: no match for variable name");
    return;
  }
  ApplyBound(code->code, column, value);
}

void MpsReader::ApplyBound(std::string_view code, std::int32_t column_number, double value) {
  ColumnRecord& column = data_.Columns[column_number];
  if (code == "LO" || code == "FX") column.LowerBound = value;
  if (code == "UP" || code == "FX") column.UpperBound = value;
  if (code == "FR" || code == "MI") column.LowerBound = -BoundLimit;
  if (code == "FR" || code == "PL") column.UpperBound = BoundLimit;
}

}  // namespace quarvel
