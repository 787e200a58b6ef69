// How often long work lets a window live: events run about thirty times a second, so that Stop is
// heard at once; the bar and the caption change about twelve times, because a change costs
// milliseconds and the read of a large file takes half a second.
#pragma once

#include <chrono>

namespace quarvel::platform::win32 {

using Moment = std::chrono::steady_clock::time_point;

inline constexpr std::chrono::milliseconds kTurnInterval{33};
inline constexpr std::chrono::milliseconds kPaintInterval{80};

inline bool IsDue(Moment last, std::chrono::milliseconds interval) {
  return std::chrono::steady_clock::now() - last >= interval;
}

inline bool TurnIsDue(Moment last) { return IsDue(last, kTurnInterval); }
inline bool PaintIsDue(Moment last) { return IsDue(last, kPaintInterval); }

}  // namespace quarvel::platform::win32
