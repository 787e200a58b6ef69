// How the lines of each kind of solution file are read. inspect/solution_file.h has the kinds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "inspect/solution_file.h"

namespace quarvel::inspect {

// Takes the lines of one kind of file, one after the other. Each gives what is wrong with the line, an
// empty text for nothing.
class SolutionLines {
 public:
  virtual ~SolutionLines() = default;

  virtual std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) = 0;
  // Behind the last line: what is wrong with the file as a whole.
  virtual std::string End() { return {}; }
  // How many columns the file says that there are; -1 where it does not.
  std::int64_t columns() const { return columns_; }

 protected:
  std::int64_t columns_ = -1;
};

// So many lines of a file are enough to tell its kind by.
inline constexpr std::size_t kTellingLines = 200;

// The kind of a file that starts with these lines.
SolutionKind KindOf(std::span<const std::string> first_lines);

std::unique_ptr<SolutionLines> MakeSolutionLines(SolutionKind kind);

}  // namespace quarvel::inspect
