#include "inspect/number_sizes.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using Bucket = NumberSizes::Bucket;

TEST(DecadeOf, IsThatOfTheFirstDigit) {
  const struct {
    double value;
    int decade;
  } cases[] = {
      {1, 0},         {9.999, 0},     {10, 1},        {99.999, 1},
      {-100, 2},      {0.1, -1},      {0.099, -2},    {1e22, 22},
      {9.99e22, 22},  {1e-7, -7},     {9.99e-8, -8},  {5e-324, -324},
      {1e-323, -323}, {2e-308, -308}, {1e308, 308},   {std::numeric_limits<double>::max(), 308},
      {1e-308, -308}, {9e-309, -309}, {-3.5e-5, -5},  {1024, 3},
      {0.001, -3},    {1e15, 15},     {123456789, 8}, {0.00123, -3},
  };
  for (const auto& c : cases) EXPECT_EQ(DecadeOf(c.value), c.decade) << c.value;
}

TEST(DecadeOf, ChangesAtEachPowerOfTenAndNowhereElse) {
  for (int decade = -300; decade <= 308; ++decade) {
    const double power = *text::ParseNumber("1E" + std::to_string(decade));
    EXPECT_EQ(DecadeOf(power), decade);
    EXPECT_EQ(DecadeOf(std::nextafter(power, 0)), decade - 1);
  }
}

TEST(NumberSizes, KnowTheFirstOfTheSmallestAndOfTheLargest) {
  NumberSizes sizes;
  sizes.Add(-3, 1, 1);
  sizes.Add(0, 1, 2);
  sizes.Add(200, 2, 1);
  sizes.Add(3, 2, 2);
  sizes.Add(-200, 3, 3);
  EXPECT_EQ(sizes.count(), 4);
  EXPECT_EQ(sizes.zeros(), 1);
  EXPECT_EQ(sizes.smallest().value, -3);
  EXPECT_EQ(sizes.smallest().row, 1);
  EXPECT_EQ(sizes.largest().value, 200);
  EXPECT_EQ(sizes.largest().row, 2);
  EXPECT_EQ(sizes.largest().column, 1);
  EXPECT_EQ(sizes.Histogram(), (std::vector<Bucket>{{0, 2}, {2, 2}}));
}

TEST(NumberSizes, AreEmptyWithoutNumbers) {
  const NumberSizes sizes;
  EXPECT_EQ(sizes.count(), 0);
  EXPECT_EQ(sizes.smallest().row, 0);
  EXPECT_TRUE(sizes.Histogram().empty());
}

}  // namespace
}  // namespace quarvel::inspect
