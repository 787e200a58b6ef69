// Which problems `quarvel check` looks at: --only and --ignore.
#pragma once

#include <bitset>
#include <cstddef>

#include "hosts/arguments.h"
#include "mps/file_problem.h"

namespace quarvel::hosts {

class ProblemFilter {
 public:
  // Each word is the id or the name of a problem, or the start of ids ("W", "A3"); ids in either case.
  // Raises a CommandError of status kUsage, which names a word that is none of these.
  explicit ProblemFilter(const Arguments& arguments);

  bool Takes(mps::FileProblemCode code) const { return taken_[static_cast<std::size_t>(code)]; }

 private:
  std::bitset<256> taken_;
};

}  // namespace quarvel::hosts
