#include "inspect/number_sizes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <string>

#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

// Between two powers of two lies one power of ten at most.
struct DecadesOfExponent {
  double next = std::numeric_limits<double>::infinity();  // from here on it is one decade more
  int decade = kHighestDecade;
};

constexpr std::size_t kExponents = 2048;
using Decades = std::array<DecadesOfExponent, kExponents>;

double PowerOfTen(int decade) {
  return text::ParseNumber("1E" + std::to_string(decade)).value_or(0);
}

// By the bits of a number that are its power of two. The first is that of the numbers too small for
// one, which are walked through.
Decades MakeDecades() {
  Decades decades;
  int decade = kLowestDecade;
  double next = PowerOfTen(decade + 1);
  for (std::size_t exponent = 1; exponent < kExponents; ++exponent) {
    const double least = std::bit_cast<double>(std::uint64_t{exponent} << 52);
    while (decade < kHighestDecade && least >= next) {
      ++decade;
      next = decade < kHighestDecade ? PowerOfTen(decade + 1)
                                     : std::numeric_limits<double>::infinity();
    }
    decades[exponent] = {next, decade};
  }
  return decades;
}

int DecadeOfTiny(double size) {
  int decade = kLowestDecade;
  while (size >= PowerOfTen(decade + 1)) ++decade;
  return decade;
}

}  // namespace

int DecadeOf(double value) {
  static const Decades decades = MakeDecades();
  const double size = std::abs(value);
  const auto exponent = static_cast<std::size_t>(std::bit_cast<std::uint64_t>(size) >> 52);
  if (exponent == 0) return DecadeOfTiny(size);
  const DecadesOfExponent& found = decades[exponent];
  return found.decade + static_cast<int>(size >= found.next);
}

void NumberSizes::Add(double value, std::int32_t row, std::int32_t column) {
  if (value == 0) {
    ++zeros_;
    return;
  }
  const double size = std::abs(value);
  if (count_ == 0 || size < std::abs(smallest_.value)) smallest_ = {value, row, column};
  if (count_ == 0 || size > std::abs(largest_.value)) largest_ = {value, row, column};
  ++count_;
  ++counts_[static_cast<std::size_t>(DecadeOf(value) - kLowestDecade)];
}

std::vector<NumberSizes::Bucket> NumberSizes::Histogram() const {
  std::vector<Bucket> buckets;
  for (int i = 0; i < kDecades; ++i) {
    const std::int64_t count = counts_[static_cast<std::size_t>(i)];
    if (count > 0) buckets.push_back({kLowestDecade + i, count});
  }
  return buckets;
}

}  // namespace quarvel::inspect
