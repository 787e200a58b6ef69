// The lines that problems of rows and columns come from: those that set reversed bounds, limits that are
// none, and coefficients that are given twice; and the first line of a name that stands there again.
#pragma once

#include <string>
#include <vector>

#include "model/model_store.h"
#include "mps/file_problem.h"
#include "mps/read_file.h"

namespace quarvel::inspect {

// Whether FindProblemLines looks for lines of such problems.
bool HasLinesOfItsRecord(mps::FileProblemCode code);

// Gives the problems, which must be such, their lines, ascending; none where the file cannot be read
// again. The store is read into, and holds anything afterwards.
//
// Cost: a read, and a look-up or two for each line. Nothing for no problems.
void FindProblemLines(const std::string& path, const mps::ReadOptions& options,
                      model::ModelStore& store, std::vector<mps::FileProblem>& problems);

}  // namespace quarvel::inspect
