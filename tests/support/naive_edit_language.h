// Lines of `quarvel edit` with what each must do to the model, said once more on the naive model, for
// the fuzzer of the command line.
#pragma once

#include <functional>
#include <string>

#include "tests/support/edit_operations.h"
#include "tests/support/naive_model.h"

namespace quarvel::testing {

struct NaiveEditLine {
  std::string text;
  // False when the line is refused; the model may then hold half of it.
  std::function<bool(NaiveModel& model)> apply;
};

// A line with good, bad and boundary words for the state of `model`.
NaiveEditLine ChooseEditLine(const Choice& choose, const NaiveModel& model);

}  // namespace quarvel::testing
