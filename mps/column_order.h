// How the columns of a file follow each other: lines of one column that stand apart (W419), markers in the
// midst of a column's lines (W420), and markers of integer columns that are no pair (W421).
#pragma once

#include <cstdint>

#include "model/record_types.h"
#include "mps/model_sink.h"
#include "mps/wide_report.h"

namespace quarvel::mps {

class ColumnOrder {
 public:
  // Both must outlive this.
  ColumnOrder(const ModelSink& sink, const HearProblem& hear) : sink_(sink), hear_(hear) {}

  // A line of COLUMNS was used; it is about that column, 0 for none. Columns behind it are of that type.
  void Use(const SourceLine& line, std::int32_t column, model::ColumnType type) {
    if (column == last_) [[likely]]
      return;
    Compare(line, column, type);
  }
  // Whether Use has nothing to do, and so the line before is about the same column.
  bool IsOfLast(std::int32_t column) const { return column == last_; }
  // A line of COLUMNS was used as a marker.
  void UseMarker(const SourceLine& line);
  // No line comes any more.
  void Finish();

 private:
  void Compare(const SourceLine& line, std::int32_t column, model::ColumnType type);

  const ModelSink& sink_;
  const HearProblem& hear_;
  std::int32_t last_ = -1;   // the column of the last line; -1 behind a marker
  std::int32_t before_ = 0;  // that of the last line that had one
  std::int32_t newest_ = 0;
  std::int64_t open_line_ = 0;  // of the INTORG that no INTEND has ended; 0 when there is none
  FileProblem open_{};
};

}  // namespace quarvel::mps
