// Which lines of a file made a row or column what it is: a read that watches a few records and writes down,
// line by line, what becomes of their types, bounds and coefficients. The dialect is that of the read: a
// line is said to have set what is another value after it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/model_store.h"
#include "mps/read_file.h"

namespace quarvel::inspect {

// A type or bound that a record got, also one that it had already; what the objective got.
struct Setting {
  // 0: the first, by default; a later one, made at the end of the read by no line alone.
  std::int64_t line = 0;
  double value = 0;       // of a bound or constant
  std::string type = {};  // of a type: its letter; of a sense: minimize or maximize
  // Of a limit that a later right-hand side makes with a range: the line of the range, whose own setting,
  // made without that right-hand side, stands before this one. Else 0.
  std::int64_t range_line = 0;
};

// What something was from the first line to the last.
struct History {
  std::int64_t count = 0;          // of all settings
  std::vector<Setting> last = {};  // the last of them, in their order; the very last one counts

  void Add(Setting setting, std::size_t kept);
};

struct CoefficientOrigin {
  std::int64_t line = 0;
  std::string other;  // the column of a row's, the row of a column's
  double value = 0;
};

struct RecordOrigin {
  // Whom to watch: the name as the reader has it, which is in upper case.
  bool is_row = false;
  std::string name;

  // What is found. Of everything that a file may hold any number of, a count and the first or last.
  std::int32_t number = 0;  // in the store, from 1; 0 when the file makes no such record
  History type = {};
  History lower = {};
  History upper = {};
  std::int64_t marker_line = 0;  // the marker that the type of a column comes from; 0 for none
  // Of the row that is the objective; empty where no line says it.
  History sense = {};
  History constant = {};  // what is added to it
  std::int64_t coefficient_count = 0;
  std::vector<CoefficientOrigin> coefficients = {};
  std::int64_t zero_count = 0;
  std::vector<CoefficientOrigin> zeros = {};  // that a line gives, and no element is made of
  std::int64_t idle_count = 0;
  std::vector<std::int64_t> idle_lines = {};  // that name it and change nothing of it
  std::int64_t problem_count = 0;
  std::vector<mps::FileProblem> problems = {};  // about it, or of a line that names it
};

// Reads the file into the store, as mps::ReadFile does, and fills in what is found of each record.
// Keeps at most `kept` of anything, and the last setting anyhow; the callbacks of `options` are called too, but for
// on_line and on_value.
//
// Cost: a read, and a look-up or two for each line.
mps::FileRead FindOrigins(const std::string& path, const mps::ReadOptions& options,
                          model::ModelStore& store, std::vector<RecordOrigin>& records,
                          std::size_t kept = 10);

}  // namespace quarvel::inspect
