// The losses of order: columns and coefficients that read back at other places than they stand now.
#pragma once

#include "model/model_data.h"
#include "mps/file_layout.h"
#include "mps/loss.h"

namespace quarvel::mps {

// With fixed columns the file has integer columns behind all others. A row's coefficients always read
// back in the order of the file's columns, and those at one column in that column's order.
void AddOrderLosses(const model::ModelData& data, FileLayout layout, Losses& losses);

}  // namespace quarvel::mps
