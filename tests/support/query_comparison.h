// The public queries of a model, compared with what the naive model holds.
#pragma once

#include <string>

#include "component/lp_model.h"
#include "tests/support/edit_operations.h"
#include "tests/support/naive_model.h"

namespace quarvel::testing {

// Asks everything about one row, one column and an element of either, by numbers that may be out of
// range. An empty text when every answer and every error is right, else what differs. Completes what
// was deferred.
std::string CompareQueries(const LPModel& model, const NaiveModel& naive, const Choice& choose);

}  // namespace quarvel::testing
