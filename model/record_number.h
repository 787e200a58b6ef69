// The two ways of numbering rows, columns and entries of lists: 0-based at the public operations,
// 1-based in the store. This is the one place where a number goes from one to the other.
#pragma once

#include <cstdint>

namespace quarvel::model {

// True when the public number `index` lies in 0..count-1.
constexpr bool InRange(std::int32_t index, std::int32_t count) {
  return index >= 0 && index < count;
}

// Only for numbers in range.
constexpr std::int32_t Stored(std::int32_t index) { return index + 1; }
constexpr std::int32_t Public(std::int32_t number) { return number - 1; }

}  // namespace quarvel::model
