#include "mps/model_sink.h"

#include <algorithm>
#include <string>

#include "model/line_names.h"

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

void ModelSink::DropRecords() {
  ReleaseRowsAndColumns(data_);
  data_.NumberOfBindingRows = 0;
  data_.NumberOfNonBindingRows = 0;
  data_.BindingRows.Release();
  data_.NonBindingRows.Release();
  data_.row_lists_pending = true;
}

void ModelSink::DropTexts() {
  data_.ModelName.clear();
  data_.ModelDescription.clear();
}

void ModelSink::AfterCallback() {
  last_column_line_ = 0;
  if (!data_.removals.empty()) Settle(data_);
}

void ModelSink::AddDescription(std::string_view line) {
  std::string& description = data_.ModelDescription;
  if (!description.empty()) description += "\r\n";
  description += line;
}

std::int32_t ModelSink::FindRow(const SourceLine& line, std::size_t token) const {
  return quarvel::FindRow(data_, line.Key(token), line[token]);
}

std::int32_t ModelSink::FindColumn(const SourceLine& line, std::size_t token) const {
  return quarvel::FindColumn(data_, line.Key(token), line[token]);
}

void ModelSink::AddRow(const SourceLine& line, std::size_t token, RowType type) {
  if (data_.Rows.IsFull()) data_.Rows.Reserve(ExpectedCount(data_.NumberOfRows, sizeof(RowRecord)));
  RowRecord& row = AppendRecord(data_.Rows, data_.NumberOfRows);
  row.Name = std::string(line[token]);
  row.Type = type;
  row.LowerBound = TraitsOf(type).FreshLower();
  row.UpperBound = TraitsOf(type).FreshUpper();
  data_.row_names.Add(line.Key(token), line[token], data_.NumberOfRows, NamesOf(data_.Rows));
}

std::int32_t ModelSink::FindColumnToTakeUp(const SourceLine& line) {
  // Most lines go on with the column of the line before.
  if (last_column_ >= 1 && last_column_ <= data_.NumberOfColumns &&
      data_.Columns[last_column_].Name == line[1]) {
    return last_column_;
  }
  const std::int32_t column = FindColumn(line, 1);
  // Row lists keep the order of the file. Taking up an earlier column again ends the order in which
  // walking the columns would give it, so from here on they are kept up to date line by line.
  if (column != 0 && data_.row_lists_pending) Settle(data_);
  return column;
}

std::int32_t ModelSink::AddColumn(const SourceLine& line, ColumnType type) {
  if (data_.Columns.IsFull()) {
    const std::int32_t expected = ExpectedCount(data_.NumberOfColumns, sizeof(ColumnRecord));
    data_.Columns.Reserve(expected);
    data_.column_names.Reserve(static_cast<std::size_t>(expected));
  }
  ColumnRecord& column = AppendRecord(data_.Columns, data_.NumberOfColumns);
  column.Name = std::string(line[1]);  // made anew, it has no more room than it needs
  column.Type = type;
  column.LowerBound = data_.DefaultToPlusMinusInfinity ? -BoundLimit : 0;
  column.UpperBound = BoundLimit;
  data_.column_names.Add(line.Key(1), line[1], data_.NumberOfColumns, NamesOf(data_.Columns));
  last_column_ = data_.NumberOfColumns;
  last_column_line_ = line.number();
  return last_column_;
}

// How many rows or columns there will be if the section goes on to the end of the file as it began.
// An array that doubles its room when it is full is copied, and had from the system, twice. Too
// much room costs nothing as long as nothing is written to it; there is a limit to it all the same.
std::int32_t ModelSink::ExpectedCount(std::int32_t count, std::size_t bytes_each) const {
  constexpr std::int32_t kTooFewToTell = 1000;
  constexpr std::size_t kMostRoom = std::size_t{sizeof(void*) >= 8 ? 256 : 64} << 20;
  if (count < kTooFewToTell) return 0;
  const std::uint64_t section = source_.bytes_read() - section_start_;
  const std::uint64_t rest =
      source_.file_size() - std::min(source_.file_size(), source_.bytes_read());
  const double more = static_cast<double>(count) * static_cast<double>(rest) /
                      static_cast<double>(std::max<std::uint64_t>(section, 1));
  const auto most =
      static_cast<double>(std::min(kMostRoom / bytes_each, 8 * static_cast<std::size_t>(count)));
  const auto enough = static_cast<double>(count) / 16;
  return count + static_cast<std::int32_t>(std::min(more + enough, most));
}

}  // namespace quarvel
