// What two models differ in, by the names of their rows and columns: in which order these stand makes no
// other model, and is told as a note. docs/diff.md tells how records and coefficients are paired.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "quarvel/export.h"
#include "quarvel/model.h"

namespace quarvel {

// Two numbers count as one when they are apart by no more than `absolute`, or by no more than `relative`
// times the larger magnitude. Both are at least 0, else Error kValue; 0 and 0 compares exactly.
struct Tolerance {
  double absolute = 0;
  double relative = 0;
};

// One difference. A record that only one model has is -1 in the other; what is about no row or no column
// has -1 for both of them.
struct Difference {
  // "row-went", "column-came", "row-upper", "element-value", "objective-sense" ...; lives as long as the
  // program and never changes. docs/json.md lists them.
  std::string_view kind = {};
  bool is_note = false;  // the order of records or coefficients
  std::int32_t row_in_a = -1;
  std::int32_t row_in_b = -1;
  std::int32_t column_in_a = -1;
  std::int32_t column_in_b = -1;
  // The number in A and in B, 0 where it is none; names, types and texts stand in the models.
  double before = 0;
  double after = 0;
};

// Gives how many differences there are, notes left out, and calls `visit` with each of them and each
// note: first those of the models as a whole and their facts, then those of rows, then those of columns
// with their coefficients. It must change neither model.
// Cost: a look-up for each record and a pass over both models.
QUARVEL_API std::int64_t Compare(const Model& a, const Model& b, const Tolerance& tolerance = {},
                                 const std::function<void(const Difference&)>& visit = {});

}  // namespace quarvel
