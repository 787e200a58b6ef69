// What operations answer with: the 16-bit numbers that hosts know, by their meaning. Those of reading
// and saving stand with their jobs (mps/read_driver.h, mps/save_driver.h).
#pragma once

#include <cstdint>

namespace quarvel {

// Also of questions that can only succeed or raise.
enum class EditResult : std::int16_t { kDone = -1, kRefused = 0 };
enum class GradientResult : std::int16_t { kDone = -1, kFailed = 0, kBeyondColumns = 1 };

template <class Result>
constexpr std::int16_t Number(Result result) {
  return static_cast<std::int16_t>(result);
}

}  // namespace quarvel
