// What a file says beside its model: facts that a model has no place for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quarvel::mps {

enum class ObjectiveSense : std::uint8_t { kNotSaid, kMinimize, kMaximize };

struct FileFacts {
  ObjectiveSense sense = ObjectiveSense::kNotSaid;
  // The name of the row that is the objective; empty when there is none.
  std::string objective;
  // What is added to the objective: minus the right-hand side that the file gives it.
  double objective_constant = 0;
  // The names of the first sets of right-hand sides, ranges and bounds; empty for sets that have no
  // name, or are not there.
  std::string rhs_set;
  std::string ranges_set;
  std::string bounds_set;
  bool has_endata = true;
  std::int64_t lines = 0;  // that were read, ENDATA included
  // By number, from 1: a line of BOUNDS settles which upper bound the column has, or that it has none.
  // Those at the end that have no such line may be missing.
  std::vector<bool> says_upper = {};

  void SayUpper(std::int32_t column) {
    const auto place = static_cast<std::size_t>(column);
    if (place >= says_upper.size()) says_upper.resize(place + 1);
    says_upper[place] = true;
  }
  bool SaysUpper(std::int32_t column) const {
    const auto place = static_cast<std::size_t>(column);
    return place < says_upper.size() && says_upper[place];
  }
};

}  // namespace quarvel::mps
