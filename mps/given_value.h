// What one line of a file gives, whether or not a later line gives it again.
#pragma once

#include <cstdint>
#include <functional>

#include "mps/file_facts.h"
#include "mps/line_source.h"

namespace quarvel::mps {

// The bounds of a column that a line sets, maybe to none.
struct BoundsGiven {
  bool lower = false;
  bool upper = false;
};

struct GivenValue {
  enum class Kind : std::uint8_t { kSense, kRhs, kRange, kBounds };
  Kind kind;
  std::int32_t number = 0;  // of the row or column, from 1; 0 with a sense
  double value = 0;         // of a right-hand side or range
  BoundsGiven bounds = {};
  ObjectiveSense sense = ObjectiveSense::kNotSaid;
};

using HearGivenValue = std::function<void(const SourceLine& line, const GivenValue& given)>;

}  // namespace quarvel::mps
