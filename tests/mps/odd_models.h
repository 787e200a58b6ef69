// Models of every oddity that a file may fail to keep, for tests that write and read them back.
#pragma once

#include <string>
#include <vector>

#include "model/model_data.h"
#include "tests/support/model_builder.h"

namespace quarvel::mps {

// Adds to an empty model. `oddness` is the share of odd names, values and limits. Names are unique, for
// elements are added by name; the model's own edits see to that as well.
void BuildOddModel(unsigned seed, double oddness, ModelBuilder& build);

// Everything that a model is: its texts, then a line for each record.
std::vector<std::string> Everything(const model::ModelData& data);

}  // namespace quarvel::mps
