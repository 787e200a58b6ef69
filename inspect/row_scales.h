// The rows whose coefficients lie farthest apart in size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/model_store.h"

namespace quarvel::inspect {

struct RowScale {
  std::int32_t row = 0;  // its number, from 1
  double smallest = 0;   // size of a coefficient; zeros are left out
  double largest = 0;
  double decades = 0;  // how many powers of ten lie between them
};

// The worst first, at most so many; of two alike the one that comes first. Rows whose coefficients are all
// of one size are left out. One pass over the row lists.
std::vector<RowScale> WorstScaledRows(const model::ModelStore& store, std::size_t most);

}  // namespace quarvel::inspect
