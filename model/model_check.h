// The invariant of a model, for tests, fuzzers and debug builds.
#pragma once

#include <string>

namespace quarvel::model {

class ModelStore;
struct StoredModel;

// An empty text when the invariant of ModelData holds and every name is found, else what is wrong.
// A pass over the model and a sort of its coefficients.
std::string CheckModelData(const ModelStore& store);
// The same of a store's parts, with nothing deferred.
std::string CheckStoredModel(StoredModel& model);

}  // namespace quarvel::model
