// Pairs of row and column that a model gives several coefficients.
#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "model/model_store.h"

namespace quarvel::inspect {

// The numbers of row and column, from 1, and how many coefficients stand there.
using RepeatedPairs = std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t>;

// Those with more than one. A pass over the column lists; 4 bytes for each row.
RepeatedPairs RepeatedPairsOf(const model::ModelStore& store);

}  // namespace quarvel::inspect
