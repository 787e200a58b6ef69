// All stored fields of a model as text, so that two states are compared in one go and a difference
// can be read.
#pragma once

#include <string>

#include "component/lp_model.h"

namespace quarvel::testing {

// Carries out what the model has deferred. Names are looked up, too.
std::string Described(const LPModel& model);
// Without the settings, of which a job changes some.
std::string DescribedRecords(const LPModel& model);

}  // namespace quarvel::testing
