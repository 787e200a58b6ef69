// What a simplification would take from a model, counted without changing it.
#pragma once

#include <cstdint>

#include "model/model_store.h"

namespace quarvel::simplify {

struct Forecast {
  std::int32_t converted_rows = 0;  // rows of one element that would become bounds of their column
  // Rows that clash with their column's bounds, so that the user would be asked about them. They count
  // as kept; answered otherwise, rows behind them on the same column may meet other bounds.
  std::int32_t asked_rows = 0;
  std::int32_t empty_columns = 0;  // those included that have no row but converted ones
  std::int32_t empty_rows = 0;
  // The row at which the run would fail (its coefficient is 0, or a bound does not fit), from 1; 0 for
  // none. What comes before it is counted.
  std::int32_t failing_row = 0;

  bool none() const {
    return converted_rows + asked_rows + empty_columns + empty_rows + failing_row == 0;
  }
};

// One look at each record, and 20 bytes for each column.
Forecast ForecastOf(const model::ModelStore& store);

}  // namespace quarvel::simplify
