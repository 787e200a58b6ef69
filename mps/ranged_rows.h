// The ranges of the rows of a file: the last one of a row counts, together with its right-hand side,
// whichever of the two comes first.
//
//   L row  from rhs - |R| to rhs          E row, R > 0   from rhs to rhs + R
//   G row  from rhs to rhs + |R|          E row, R <= 0  from rhs + R to rhs
//
// A limit too large for a double is none, which is told (A318).
//
// Memory: 8 bytes for each row up to the last that has a range.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "mps/model_sink.h"
#include "mps/wide_report.h"

namespace quarvel::mps {

class RangedRows {
 public:
  // Both must outlive this.
  RangedRows(ModelSink& sink, const HearProblem& hear) : sink_(sink), hear_(hear) {}

  bool any() const { return !ranges_.empty(); }
  // A header RHS: right-hand sides that come before a range from here on are usual.
  void BeginRhs() { has_rhs_ = true; }
  // The line gives the row, whose name in there is `word`, that range. Not for N rows.
  void Use(const SourceLine& line, std::string_view word, std::int32_t row, double range);
  // The line has given the row its right-hand side: the row has its range again.
  void UseRhs(const SourceLine& line, std::string_view word, std::int32_t row);

 private:
  // Not a number where the row has no range.
  double RangeOf(std::int32_t row) const;
  void Apply(std::int32_t row, double last_range, double range);
  // A limit that its range has made infinite is none.
  void DropInfinite(const SourceLine& line, std::string_view word, std::int32_t row);
  void TellOrder(const SourceLine& line, std::string_view word, const char* made);

  ModelSink& sink_;
  const HearProblem& hear_;
  std::vector<double> ranges_;  // by row
  bool has_rhs_ = false;
  bool has_told_order_ = false;
};

}  // namespace quarvel::mps
