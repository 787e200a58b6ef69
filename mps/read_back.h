// What the values, limits and bounds of a model become when the writer's text of them is read again
// with default bounds of 0. mps_writer.h and sections.h have the two ways.
#pragma once

#include <cmath>
#include <cstdint>

#include "model/model_data.h"

namespace quarvel::mps {

// Whether the value has a decimal text of so few digits that every way of writing shows all of it.
inline bool HasFewDigits(double value) {
  constexpr double kMostDigits = 1e15;
  for (const double unit : {1e4, 1e10}) {  // four decimals are enough for most
    const double scaled = value * unit;
    if (!(std::fabs(scaled) < kMostDigits)) continue;
    const auto whole = static_cast<std::int64_t>(scaled + std::copysign(0.5, scaled));
    if (static_cast<double>(whole) / unit == value) return true;
  }
  return false;
}

// A coefficient, right-hand side or range. Not finite: NaN.
double LongValueReadBack(double value);
inline double ValueReadBack(double value) {
  return HasFewDigits(value) ? value : LongValueReadBack(value);
}

// The limits of a row that has a type.
model::Bounds LimitsReadBack(const model::RowRecord& row);

// The bounds of a column.
model::Bounds BoundsReadBack(const model::ColumnRecord& column);

// Whether RHS or RANGES, or BOUNDS, has a line for the record.
bool HasLimitLine(const model::RowRecord& row);
bool HasBoundLine(const model::ColumnRecord& column);

}  // namespace quarvel::mps
