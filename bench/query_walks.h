// Walks over all coefficients of a model, by rows and by columns: through its queries, and over plain arrays
// that hold the same.
#pragma once

#include "component/lp_model.h"

namespace quarvel::bench {

// Print the seconds and the sums, which are the same of both.
void RunQueryWalk(const LPModel& model);
void RunPlainWalk(const LPModel& model);

}  // namespace quarvel::bench
