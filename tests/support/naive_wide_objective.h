// The N rows of a file and what it says of them, for naive_wide_reader.h.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "mps/file_facts.h"

namespace quarvel::testing {

struct NaiveObjective {
  // An N row, in ROWS or in RHS.
  struct Mention {
    std::int64_t line;
    std::string row;
    bool is_rhs;
    double value;
  };
  // The id of a code and its line, 0 for a problem of no line.
  using Problem = std::pair<std::string, std::int64_t>;

  std::string asked;  // by the caller
  std::string named;  // by the file
  std::int64_t naming_line = 0;
  std::vector<std::string> free_rows;
  std::vector<Mention> mentions;

  // At the end of the file.
  void Finish(mps::FileFacts& facts, std::vector<Problem>& problems) const;

 private:
  void ChooseRow(mps::FileFacts& facts, std::vector<Problem>& problems) const;
};

}  // namespace quarvel::testing
