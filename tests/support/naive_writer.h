// What a written file must hold, as plainly as it can be said: every line a string, one rule after
// the other, nothing shared between lines. Compared with the writer by the agreement test and the
// fuzzer.
#pragma once

#include <string>

#include "tests/support/naive_model.h"

namespace quarvel::testing {

struct NaiveFile {
  std::string text;
  bool standard = true;
};

// The file of a model whose every coefficient stands at a row that it has.
NaiveFile WriteNaively(const NaiveModel& model);

}  // namespace quarvel::testing
