#include <gtest/gtest.h>

#include "text/numbers.h"

namespace quarvel::text {
namespace {

TEST(RoundTripText, TakesMoreDigitsOnlyWhereFifteenReadBackDifferently) {
  const struct {
    double value;
    const char* text;
  } cases[] = {{0.1, "0.1"},
               {-10000000000, "-10000000000"},
               {0.1 + 0.2, "0.30000000000000004"},
               {-1234567.8901234567, "-1234567.8901234567"},
               {1.0 / 3, "0.3333333333333333"},
               {1e-7 / 3, "3.3333333333333334E-08"},
               {9007199254740993e3, "9.007199254740993E+18"},
               {0, "0"}};
  for (const auto& c : cases) {
    EXPECT_EQ(RoundTripText(c.value), c.text);
    EXPECT_EQ(ParseNumber(c.text), c.value);
  }
}

}  // namespace
}  // namespace quarvel::text
