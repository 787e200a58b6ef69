// Builds a model out of what the sections say: records in reserved room, elements in an arena, row
// lists deferred. Everything that a read changes in the store line by line is changed here.
//
// Fast paths and the plain way that each must agree with:
//   - the column of the line before is taken without looking (TakeUpColumn); looking for it by name
//     gives the same. tests/mps/reader_agreement_test.cpp compares whole reads with a naive reader.
//   - row lists are filled at the end out of the column lists (model/row_lists.h); appending line by
//     line gives the same, and is what happens from there on when a column is taken up again.
//     tests/mps/reader_agreement_test.cpp, tests/model/row_lists_test.cpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/model_fill.h"
#include "mps/line_source.h"

namespace quarvel::mps {

class ModelSink {
 public:
  // The store of `fill` and `source` must outlive the sink. `source` tells how far the file has been read.
  ModelSink(const model::ModelFill& fill, const LineSource& source)
      : fill_(fill), source_(source) {}

  // Drops exactly this much of the old model: its location and settings stay.
  void DropRecords();
  void DropTexts();
  // A host that was called back may have deleted something; the read goes on with numbers that are
  // true. Call after each box and whenever events ran.
  void AfterCallback();

  void SetModelName(std::string_view name) { fill_.settings().ModelName = name; }
  void AddDescription(std::string_view line);
  void BeginSection() { section_start_ = source_.bytes_read(); }

  std::int32_t RowCount() const { return fill_.data().NumberOfRows; }
  std::string_view RowName(std::int32_t row) const { return fill_.data().Rows[row].Name; }
  model::ColumnType ColumnTypeOf(std::int32_t column) const {
    return fill_.data().Columns[column].Type;
  }
  bool HasRows() const { return fill_.data().NumberOfRows >= 1; }
  bool HasColumns() const { return fill_.data().NumberOfColumns >= 1; }
  std::int32_t FindRow(const SourceLine& line, std::size_t token) const {
    const model::NameKey* const key = line.KnownKey(token);
    return key != nullptr ? fill_.FindRow(*key, line[token]) : FindRow(line[token]);
  }
  std::int32_t FindColumn(const SourceLine& line, std::size_t token) const;
  std::int32_t FindRow(std::string_view name) const;
  std::int32_t FindColumn(std::string_view name) const;
  model::RowLimits Row(std::int32_t row) { return fill_.Row(row); }
  model::Bounds& Column(std::int32_t column) { return fill_.ColumnBounds(column); }
  void SetColumnType(std::int32_t column, model::ColumnType type) {
    fill_.SetColumnType(column, type);
  }

  // A row whose name no row has yet.
  void AddRow(const SourceLine& line, std::size_t token, model::RowType type);
  // The column of that line, 0 when it is new.
  std::int32_t TakeUpColumn(const SourceLine& line) {
    const bool certain =
        last_column_line_ != 0 && last_column_line_ == line.number() - 1 && line.goes_on();
    if (!certain) {
      const std::int32_t column = FindColumnToTakeUp(line);
      if (column == 0) return 0;
      last_column_ = column;
    }
    last_column_line_ = line.number();
    return last_column_;
  }
  // The column of that line, whose name no column has yet.
  std::int32_t AddColumn(const SourceLine& line, model::ColumnType type);
  // The column that the line of COLUMNS just used is about; 0 for none.
  std::int32_t ColumnOf(const SourceLine& line) const {
    return last_column_line_ == line.number() ? last_column_ : 0;
  }
  // The line added that column.
  bool IsNewColumn(const SourceLine& line) const { return new_column_line_ == line.number(); }
  void AddElement(std::int32_t row, std::int32_t column, double value) {
    fill_.AppendElement(row, column, value);
  }

 private:
  std::int32_t FindColumnToTakeUp(const SourceLine& line);
  std::int32_t ExpectedCount(std::int32_t count, std::size_t bytes_each) const;

  model::ModelFill fill_;
  const LineSource& source_;
  std::uint64_t section_start_ = 0;    // bytes read when the section began
  std::int32_t last_column_ = 0;       // the column of the last data line of COLUMNS
  std::int64_t new_column_line_ = 0;   // the line of the last column that was added
  std::int64_t last_column_line_ = 0;  // its number; 0 when an event may have changed the column
};

}  // namespace quarvel::mps
