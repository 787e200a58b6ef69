// What is legal in a model and risky all the same: the problems W5.. that a look at the whole model
// finds, after it was read. It changes nothing. What is told of, and what becomes of it, stands in
// mps/file_problem.cpp and, with an example for each, in docs/problems.md. A316 too is found here: what the
// file calls a set does not stand in the model, and no reader looks at it.
//
// Empty records and lost types of rows are told by the read itself (mps/read_file.h).
//
// Cost: a few passes over the model and two sorts of its records; memory of about 20 bytes for each record.
#pragma once

#include <functional>
#include <utility>

#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_problem.h"

namespace quarvel::inspect {

// Who hears of what lint finds.
struct LintListener {
  // Whether the next problem of that code will be looked at, or only counted.
  std::function<bool(mps::FileProblemCode)> wants;
  // Called for each one; one that is only counted has its code alone.
  std::function<void(mps::FileProblem)> hear;

  // `make` gives the problem, but for its code, when it is wanted.
  template <class Make>
  void Tell(mps::FileProblemCode code, const Make& make) const {
    mps::FileProblem problem{.code = code};
    if (wants(code)) {
      problem = make();
      problem.code = code;
    }
    hear(std::move(problem));
  }
};

void Lint(const model::ModelStore& store, const mps::FileFacts& facts,
          const LintListener& listener);
// Adds what it finds to `problems`.
void Lint(const model::ModelStore& store, const mps::FileFacts& facts, mps::FileProblems& problems);

}  // namespace quarvel::inspect
