// Random edit operations and the comparison of LPModel with NaiveModel after each of them, for the
// property tests and the fuzzers.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/naive_model.h"

namespace quarvel::testing {

// Gives a number in 0..bound-1; bound is at least 1. From a random generator, or from a fuzzer's
// bytes.
using Choice = std::function<std::uint32_t(std::uint32_t bound)>;

// One call with its arguments.
struct EditOperation {
  std::string text;  // as a person would write it
  std::function<std::int32_t(LPModel&)> on_model;
  std::function<std::int32_t(NaiveModel&)> on_naive;
};

struct EditStyle {
  bool duplicates = true;  // a pair of row and column may get several coefficients
  bool new_models = true;  // MakeNewModel and ClearModel in between
};

// An operation, or a question about one record or name, with valid, invalid and boundary arguments for the state of `model`.
EditOperation ChooseOperation(const Choice& choose, const NaiveModel& model,
                              const EditStyle& style);

// DeleteRow, DeleteColumn or DeleteElement, with questions in between.
EditOperation ChooseDeletion(const Choice& choose, const NaiveModel& model);

// Both models side by side, starting as fresh objects.
class EditComparison {
 public:
  EditComparison() : model_(desktop_) {}

  const NaiveModel& naive() const { return naive_; }
  const LPModel& model() const { return model_; }

  // Runs the operation on both. An empty text when result, failure, boxes and counts agree, else
  // what differs. Nothing that was deferred is completed by comparing.
  std::string Apply(const EditOperation& operation);
  // The same for all stored fields, the names found by the indexes included. Completes what was put
  // off.
  std::string CompareState();

 private:
  std::string CompareCounts();

  platform::ScriptedDesktop desktop_;
  LPModel model_;
  NaiveModel naive_;
};

}  // namespace quarvel::testing
