// How long the tests with random input, and those that repeat something very often, go on.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace quarvel {

// What is usual, times QUARVEL_TEST_LENGTH where that stands in the environment: 10 for a thorough
// run by hand, a part of 1 where the same tests run a second time. At least 1.
inline int TestLength(int usual) {
  const char* const factor = std::getenv("QUARVEL_TEST_LENGTH");
  const double times = factor != nullptr ? std::strtod(factor, nullptr) : 1;
  return std::max(1, static_cast<int>(usual * std::clamp(times, 0.0, 1000.0)));
}

}  // namespace quarvel
