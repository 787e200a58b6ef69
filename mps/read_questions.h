// Where a read stands, and the question that every problem is.
#pragma once

#include <cstdint>

#include "mps/model_sink.h"
#include "mps/read_problem.h"

namespace quarvel::platform {
class Desktop;
}  // namespace quarvel::platform

namespace quarvel::mps {

enum class ReadState {
  kReading,
  kDone,      // all lines are used; then the checks and what follows them
  kStopped,   // by Stop
  kFailed,    // a problem was answered No
  kLeftOpen,  // the warning of an empty record was answered No
};

class ReadQuestions {
 public:
  // Both must outlive this. Each box may let a host change the model, which `sink` is then told.
  ReadQuestions(platform::Desktop& desktop, ModelSink& sink) : desktop_(desktop), sink_(sink) {}

  ReadState state() const { return state_; }
  void set_state(ReadState state) { state_ = state; }

  // Asks whether to go on in spite of a problem; No ends the read.
  bool GoesOnAfter(const ReadProblem& problem);
  // Runs a step; any failure is one question more: of the file, of memory, of a model that a host
  // changed meanwhile.
  template <class Step>
  void Guarded(const Step& step) {
    try {
      step();
    } catch (...) {
      GoesOnAfter({.code = ReadProblemCode::kFailure, .failure = CurrentError()});
    }
  }

 private:
  platform::Desktop& desktop_;
  ModelSink& sink_;
  ReadState state_ = ReadState::kReading;
};

}  // namespace quarvel::mps
