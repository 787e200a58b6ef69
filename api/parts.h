// What stands behind a public Model, and what the sources of this room share: the way in, and the way
// that failures go out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/error_reports.h"
#include "model/model_store.h"
#include "mps/file_facts.h"
#include "platform/automation_error.h"
#include "quarvel/error.h"
#include "quarvel/model.h"

namespace quarvel {

struct Model::Parts {
  model::ModelStore store;
  mps::FileFacts facts;
  int works =
      0;  // reads, writes and other works that go on and must find the model as they left it
};

class ModelAccess {
 public:
  using Parts = Model::Parts;
  // The parts are the model's; what looks at a model settles what is deferred in them.
  static Parts& Of(const Model& model) { return *model.parts_; }
};

using ModelParts = ModelAccess::Parts;

namespace api {

// Enumerations of the public headers have the numbers of those inside, and are cast from one to the
// other: a new one inside must not move what programs were compiled with.
template <class Public, class Inner>
constexpr bool IsSameNumber(Public shown, Inner inner) {
  return static_cast<int>(shown) == static_cast<int>(inner);
}

// Throws the public Error that tells of `error`, or std::bad_alloc.
[[noreturn]] void Raise(const AutomationError& error);

// Runs an operation and gives its result; what the rooms below raise becomes what the library throws.
template <class Operation>
auto Translated(const Operation& operation) {
  try {
    return Guarded(operation);
  } catch (const AutomationError& error) {
    Raise(error);
  }
}

// Throws kBusy while a work goes on.
void CheckIdle(const ModelParts& parts);

// Marks a model as worked on, for its scope. Throws kBusy when it is that already.
class Work {
 public:
  explicit Work(ModelParts& parts) : parts_(parts) {
    CheckIdle(parts);
    ++parts_.works;
  }
  ~Work() { --parts_.works; }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

 private:
  ModelParts& parts_;
};

// The objective that the facts name may be gone, or have got limits.
void DropLostObjective(ModelParts& parts);

}  // namespace api
}  // namespace quarvel
