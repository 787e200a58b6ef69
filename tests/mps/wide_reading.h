// What the tests of the wide dialect share: a text is read, what it gave is told in short.
#pragma once

#include <string>
#include <string_view>

#include "mps/read_file.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {

struct WideReading {
  explicit WideReading(std::string_view text, const ReadOptions& options = {}) {
    const TemporaryFolder folder;
    WriteWholeFile(folder.File("m.mps"), text);
    read = ReadFile(folder.File("m.mps"), options, store);
  }

  // "A305 9; W402 11:5+3 'TWO' ...": code, line, and column, length and text where there is a place.
  std::string Problems() const {
    std::string told;
    for (const FileProblem& problem : read.problems.kept()) {
      if (!told.empty()) told += "; ";
      told += std::string(TraitsOf(problem.code).id) + " " + std::to_string(problem.line);
      if (problem.column == 0) continue;
      told += ":" + std::to_string(problem.column) + "+" + std::to_string(problem.length) + " '" +
              problem.read + "'";
    }
    return told;
  }
  const model::RowRecord& Row(std::string_view name) {
    const auto& data = store.data();
    for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
      if (data.Rows[r].Name == name) return data.Rows[r];
    }
    return data.Rows[0];
  }
  const model::ColumnRecord& Column(std::string_view name) {
    const auto& data = store.data();
    for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
      if (data.Columns[c].Name == name) return data.Columns[c];
    }
    return data.Columns[0];
  }

  model::ModelStore store;
  FileRead read;
};

}  // namespace quarvel::mps
