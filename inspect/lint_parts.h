// The parts of Lint, each about one thing. Numbers of the data are 1-based.
#pragma once

#include "inspect/lint.h"
#include "model/model_data.h"

namespace quarvel::inspect {

// Coefficients that a column has twice in one row.
void LintPairs(const model::ModelData& data, const LintListener& listener);
// Bounds and limits that are none, or are read differently elsewhere.
void LintBounds(const model::ModelData& data, const mps::FileFacts& facts,
                const LintListener& listener);
// Names that fixed columns do not hold: one problem for all of them.
void LintNames(const model::ModelData& data, const LintListener& listener);
// Coefficients whose sizes are far apart.
void LintScale(const model::ModelData& data, const LintListener& listener);
// Rows, and columns, of two or more coefficients that are multiples of one another; rows that do not
// bind are left out. Equal to 11 digits counts; of many that are multiples of one another each is told
// as one of the first.
void LintParallel(const model::ModelData& data, const LintListener& listener);

}  // namespace quarvel::inspect
