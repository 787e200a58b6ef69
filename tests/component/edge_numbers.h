// The numbers at both ends of what an index can be.
#pragma once

#include <cstdint>
#include <limits>

namespace quarvel {

inline constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

}  // namespace quarvel
