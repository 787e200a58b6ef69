// Compares two models by the names of their rows and columns: the order in which these and their
// coefficients stand makes no other model and is told as a note.
//
//   - A name that several records of a model have: the first of them is the first of that name in the
//     other model, the second the second, and so on.
//   - A coefficient is known by its row and column. A pair that stands several times in a column's list
//     is compared likewise, first with first: two entries 2 and 3 are not one entry 5.
//   - What stands at a record that came or went goes with it and is no difference of its own.
//   - A lower bound at or below -1E+10 is none and an upper one at or above +1E+10 is none, whatever
//     the number; a bound that is there differs from none, whatever the tolerance.
//   - Zero of either sign is the same, and so is one NaN as the other. What is not finite is the
//     same as itself alone.
//   - Coefficients of 0 are coefficients: one that is there differs from none.
//
// Names, description, bounds and types are those of the store; where it was read from does not count.
//
// Cost: one look-up of a name for each record, and one pass over the column lists of both models; 4 bytes
// for each record of either, however much differs.
#pragma once

#include <cstddef>
#include <functional>

#include "inspect/difference.h"
#include "model/model_store.h"
#include "mps/file_facts.h"

namespace quarvel::inspect {

// Two numbers count as one when they are apart by no more than `absolute`, or by no more than
// `relative` times the larger magnitude. Both are at least 0; 0 and 0 compares exactly.
struct Tolerance {
  double absolute = 0;
  double relative = 0;
};

bool AreClose(double a, double b, const Tolerance& tolerance);

// Called with each difference: first those of the model as a whole, then those of rows and those of
// columns with their coefficients, each in A's order with what came at the end, in B's. It must not
// change either store.
using DifferenceVisitor = std::function<void(const Difference&)>;

void Compare(const model::ModelStore& a, const model::ModelStore& b, const Tolerance& tolerance,
             const DifferenceVisitor& visit);

// The same of what files say beside their models. A sense that is not said is minimize; the names of sets,
// and how a file ends, make no difference.
void CompareFacts(const mps::FileFacts& a, const mps::FileFacts& b, const Tolerance& tolerance,
                  const DifferenceVisitor& visit);

// Counts all differences of two models and keeps the first of each kind.
Differences Compare(const model::ModelStore& a, const model::ModelStore& b,
                    const Tolerance& tolerance = {}, std::size_t kept_of_each = 3);

}  // namespace quarvel::inspect
