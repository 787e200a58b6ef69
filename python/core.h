// What the sources of the module share: a model that Python holds, and who uses it.
#pragma once

#include <atomic>

#include <pybind11/pybind11.h>

#include "quarvel/quarvel.h"

namespace quarvel::python {

// A model, and whether a call works on it now. Calls give the interpreter's lock away while they read or
// write, so that another thread may come to the same model: it is refused, with Error kBusy.
struct SharedModel {
  Model model = {};
  std::atomic_flag in_use = {};
};

// Who holds the model for one call.
class Use {
 public:
  explicit Use(SharedModel& shared) : shared_(shared) {
    if (shared.in_use.test_and_set()) {
      throw Error(ErrorCode::kBusy, "The model is in use by another call");
    }
  }
  ~Use() { shared_.in_use.clear(); }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;

 private:
  SharedModel& shared_;
};

// A class of the module as it is being made.
using ModelClass = pybind11::class_<SharedModel>;

// Each adds what its source has to tell or to do.
void AddReading(ModelClass& model);
void AddArrays(ModelClass& model);
void AddRecords(ModelClass& model);
void AddEdits(ModelClass& model);
void AddWriting(ModelClass& model);
void AddSimplifying(ModelClass& model);
void AddComparing(pybind11::module_& module);

}  // namespace quarvel::python
