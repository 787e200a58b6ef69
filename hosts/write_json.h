// What became of a command that writes, for programs.
#pragma once

#include <cstdint>
#include <string>

#include "hosts/packing/packing.h"
#include "inspect/write_file.h"
#include "model/model_store.h"
#include "mps/file_layout.h"
#include "mps/file_problem.h"

namespace quarvel::hosts {

struct ModelSize {
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  std::int32_t elements = 0;
};

ModelSize SizeOf(const model::ModelStore& store);

struct WriteStory {
  std::string input;
  std::string output;
  ModelSize read;  // what the file held, before anything was changed
  bool has_endata = true;
  const mps::FileProblems& problems;  // that reading passed over
  bool simplified = false;
  std::int64_t commands = 0;  // of an edit
  ModelSize model;            // what was to be written
  mps::FileLayout layout = mps::FileLayout::kFree;
  const Packing* packing = nullptr;
  bool in_place = false;  // the output is the file that was read
  const inspect::FileWrite& write;
};

// One object with a line end behind it; docs/json.md has its members.
std::string WriteJson(const WriteStory& story);

}  // namespace quarvel::hosts
