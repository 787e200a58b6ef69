// A read that finds in a file what MPS readers in use make different models of (dialect_points.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "inspect/dialect_points.h"
#include "model/model_store.h"
#include "mps/read_file.h"

namespace quarvel::inspect {

struct DialectFinding {
  DialectPoint point;
  std::int64_t count = 0;
  std::vector<std::int64_t> lines = {};  // the first of them, ascending
};

struct DialectFindings {
  mps::FileRead read;
  std::vector<DialectFinding> found;  // in the order of the table, each with at least one line
};

// Reads the file into the store and finds what readers disagree about; nothing when the file cannot be
// read. Keeps the first `kept` lines of each point. The callbacks of `options` are called too, but for
// on_line.
//
// Cost: a read, a look at each line, and 16 bytes for each column and 4 for each row.
DialectFindings FindDialects(const std::string& path, const mps::ReadOptions& options,
                             model::ModelStore& store, std::size_t kept = 5);

}  // namespace quarvel::inspect
