// Which options a command takes, or a command line has: a set of up to 128, each of them one bit.
// Whole numbers are sets of the first 64.
#pragma once

#include <cstdint>

namespace quarvel::hosts {

class OptionSet {
 public:
  constexpr OptionSet() = default;
  // A number is a set, so that a table may say 0 for none.
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr OptionSet(std::uint64_t low) : low_(low) {}

  // Moves each option on by so many places, fewer than 128.
  constexpr OptionSet operator<<(unsigned places) const {
    OptionSet moved;
    if (places >= kHalf) {
      moved.high_ = low_ << (places - kHalf);
    } else {
      moved.low_ = low_ << places;
      moved.high_ = high_ << places;
      if (places > 0) moved.high_ |= low_ >> (kHalf - places);
    }
    return moved;
  }
  constexpr OptionSet operator~() const { return OptionSet(~low_, ~high_); }
  constexpr OptionSet& operator|=(OptionSet other) { return *this = *this | other; }
  friend constexpr OptionSet operator|(OptionSet a, OptionSet b) {
    return OptionSet(a.low_ | b.low_, a.high_ | b.high_);
  }
  friend constexpr OptionSet operator&(OptionSet a, OptionSet b) {
    return OptionSet(a.low_ & b.low_, a.high_ & b.high_);
  }
  // By some order, for maps.
  friend constexpr bool operator<(OptionSet a, OptionSet b) {
    return a.high_ != b.high_ ? a.high_ < b.high_ : a.low_ < b.low_;
  }
  friend constexpr bool operator==(OptionSet a, OptionSet b) {
    return a.low_ == b.low_ && a.high_ == b.high_;
  }

 private:
  static constexpr unsigned kHalf = 64;
  constexpr OptionSet(std::uint64_t low, std::uint64_t high) : low_(low), high_(high) {}

  std::uint64_t low_ = 0;
  std::uint64_t high_ = 0;
};

}  // namespace quarvel::hosts
