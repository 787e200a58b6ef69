// How large numbers are in size (magnitude): the smallest and the largest with their places, and how
// many there are of each power of ten.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace quarvel::inspect {

// A number and the row and column where it stands, from 1; 0 for neither.
struct PlacedNumber {
  double value = 0;
  std::int32_t row = 0;
  std::int32_t column = 0;
};

// From 10^-324 on, which reads as 0 and so has the least numbers of all above it.
inline constexpr int kLowestDecade = -324;
inline constexpr int kHighestDecade = 308;

// The greatest d for which 10^d is not above the size of `value`: 2 for 100 and -999, -1 for 0.5. The
// value is finite and not 0. Powers are those that a text as "1E-5" reads as.
int DecadeOf(double value);

class NumberSizes {
 public:
  struct Bucket {
    int decade;
    std::int64_t count;
    bool operator==(const Bucket&) const = default;
  };

  // A finite number. Zeros are counted apart.
  void Add(double value, std::int32_t row, std::int32_t column);

  // How many are not 0.
  std::int64_t count() const { return count_; }
  std::int64_t zeros() const { return zeros_; }
  // The first of the smallest or largest size; 0 nowhere where there is none.
  const PlacedNumber& smallest() const { return smallest_; }
  const PlacedNumber& largest() const { return largest_; }
  // Ascending, without those that have none.
  std::vector<Bucket> Histogram() const;

 private:
  static constexpr int kDecades = kHighestDecade - kLowestDecade + 1;

  std::int64_t count_ = 0;
  std::int64_t zeros_ = 0;
  PlacedNumber smallest_;
  PlacedNumber largest_;
  std::array<std::int64_t, kDecades> counts_ = {};
};

}  // namespace quarvel::inspect
