// One file read in the wide dialect by mps::ReadFile and by NaiveWideReader, for the agreement test, the
// test of real files and the fuzzer.
#pragma once

#include <string>

#include "mps/read_file.h"

namespace quarvel::testing {

// Reads the bytes as a file, with all problems kept.
mps::FileRead ReadWideBytes(const std::string& bytes, const mps::ReadOptions& options,
                            model::ModelStore& store);

// Where the two differ in the model, the facts, or the sequence of the problems' codes and lines; empty
// when nowhere. Of the options only those that belong to the dialect.
std::string CompareWideReads(const std::string& bytes, const mps::ReadOptions& options = {});

}  // namespace quarvel::testing
