// Random models simplified by the component and by the naive model, with random answers, stops and
// hosts that call back.

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/simplify_comparison.h"
#include "tests/support/test_length.h"

namespace quarvel::simplify {
namespace {

TEST(SimplifyProperty, AgreesWithOneByOneSteps) {
  testing::SimplifyComparison models;
  const int count = TestLength(4000);
  for (int seed = 1; seed <= count; ++seed) {
    std::mt19937_64 random(static_cast<std::uint64_t>(seed));
    const auto choose = [&random](std::uint32_t bound) {
      return static_cast<std::uint32_t>(random() % bound);
    };
    ASSERT_EQ(models.Run(choose), "") << "seed " << seed;
  }
}

}  // namespace
}  // namespace quarvel::simplify
