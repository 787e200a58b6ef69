#include "mps/model_sink.h"

#include <algorithm>
#include <string>

namespace quarvel::mps {
void ModelSink::DropRecords() { fill_.Begin(); }

void ModelSink::DropTexts() {
  fill_.settings().ModelName.clear();
  fill_.settings().ModelDescription.clear();
}

void ModelSink::AfterCallback() {
  last_column_line_ = 0;
  fill_.AfterCallback();
}

void ModelSink::AddDescription(std::string_view line) {
  std::string& description = fill_.settings().ModelDescription;
  std::string added(description.empty() ? "" : "\r\n");
  description += added.append(line);  // all of it or nothing
}

std::int32_t ModelSink::FindColumn(const SourceLine& line, std::size_t token) const {
  return fill_.FindColumn(line.Key(token), line[token]);
}

std::int32_t ModelSink::FindRow(std::string_view name) const {
  return fill_.FindRow(model::NameKey::Of(name), name);
}

std::int32_t ModelSink::FindColumn(std::string_view name) const {
  return fill_.FindColumn(model::NameKey::Of(name), name);
}

void ModelSink::AddRow(const SourceLine& line, std::size_t token, model::RowType type) {
  const model::ModelData& data = fill_.data();
  if (data.Rows.IsFull())
    fill_.ReserveRows(ExpectedCount(data.NumberOfRows, sizeof(model::RowRecord)));
  const model::RowTypeTraits& traits = model::TraitsOf(type);
  fill_.AppendRow(line.Key(token), line[token], type, {traits.FreshLower(), traits.FreshUpper()});
}

std::int32_t ModelSink::FindColumnToTakeUp(const SourceLine& line) {
  const std::int32_t column = FindColumn(line, 1);
  const bool newest = column == fill_.data().NumberOfColumns;
  if (column != 0 && !newest) fill_.TakeUpAgain();
  return column;
}

std::int32_t ModelSink::AddColumn(const SourceLine& line, model::ColumnType type) {
  const model::ModelData& data = fill_.data();
  if (data.Columns.IsFull()) {
    fill_.ReserveColumns(ExpectedCount(data.NumberOfColumns, sizeof(model::ColumnRecord)));
  }
  const double lower = data.DefaultToPlusMinusInfinity ? -model::BoundLimit : 0;
  last_column_ = fill_.AppendColumn(line.Key(1), line[1], type, {lower, model::BoundLimit});
  last_column_line_ = line.number();
  new_column_line_ = line.number();
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
  const double room = static_cast<double>(model::kMostCounted) - static_cast<double>(count);
  return count + static_cast<std::int32_t>(std::min({more + enough, most, room}));
}

}  // namespace quarvel::mps
