#include "inspect/number_sizes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>

#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using Powers = std::array<double, kHighestDecade - kLowestDecade + 1>;

Powers MakePowers() {
  Powers powers = {};
  for (int decade = kLowestDecade; decade <= kHighestDecade; ++decade) {
    const std::string text = "1E" + std::to_string(decade);
    powers[static_cast<std::size_t>(decade - kLowestDecade)] = text::ParseNumber(text).value_or(0);
  }
  return powers;
}

double PowerOfTen(int decade) {
  static const Powers powers = MakePowers();
  return powers[static_cast<std::size_t>(decade - kLowestDecade)];
}

}  // namespace

int DecadeOf(double value) {
  const double size = std::abs(value);
  // The power of two of a number tells that of ten to within one, but for numbers too small for it.
  const int two = static_cast<int>(std::bit_cast<std::uint64_t>(size) >> 52) - 1023;
  int decade = std::clamp((two * 1233) >> 12, kLowestDecade, kHighestDecade);
  while (decade > kLowestDecade && size < PowerOfTen(decade)) --decade;
  while (decade < kHighestDecade && size >= PowerOfTen(decade + 1)) ++decade;
  return decade;
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
