// What the values, limits and bounds of a model become when the writer's text of them is read again
// with default bounds of 0. mps_writer.h and sections.h have the two ways.
#pragma once

#include "model/model_data.h"

namespace quarvel::mps {

// A coefficient, right-hand side or range. Not finite: NaN.
double ValueReadBack(double value);

// The limits of a row that has a type.
model::Bounds LimitsReadBack(const model::RowRecord& row);

// The bounds of a column.
model::Bounds BoundsReadBack(const model::ColumnRecord& column);

// Whether RHS or RANGES, or BOUNDS, has a line for the record.
bool HasLimitLine(const model::RowRecord& row);
bool HasBoundLine(const model::ColumnRecord& column);

}  // namespace quarvel::mps
