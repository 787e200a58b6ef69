#include "text/decimal.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace quarvel {
namespace {

using text::Decimal;

struct DecimalCase {
  double value;
  Decimal decimal;
};

TEST(Decimal, HoldsTheFifteenDigitsOfAValue) {
  const DecimalCase cases[] = {
      {1, {1, 0, false}},
      {-2.5, {25, -1, true}},
      {1e10, {1, 10, false}},
      {1200, {12, 2, false}},
      {0.1 + 0.2, {3, -1, false}},
      {1.0 / 3, {333333333333333, -15, false}},
      {0.1234567, {1234567, -7, false}},
      {999999999.999999, {999999999999999, -6, false}},
      {999999999.9999995, {1, 9, false}},
      {123456789012345678.0, {123456789012346, 3, false}},
      {1e22, {1, 22, false}},
      {1e-7, {1, -7, false}},
      {std::numeric_limits<double>::denorm_min(), {494065645841247, -338, false}},
  };
  for (const DecimalCase& c : cases) {
    const Decimal decimal = text::ToDecimal(c.value);
    EXPECT_EQ(decimal.digits, c.decimal.digits) << c.value;
    EXPECT_EQ(decimal.exponent, c.decimal.exponent) << c.value;
    EXPECT_EQ(decimal.negative, c.decimal.negative) << c.value;
  }
}

TEST(Decimal, OfNegativeZeroHasNoSign) {
  const Decimal decimal = text::ToDecimal(-0.0);
  EXPECT_EQ(decimal.digits, 0u);
  EXPECT_FALSE(decimal.negative);
}

TEST(Decimal, LosesItsSignAndExponentWhenItsDigitsAreZero) {
  const Decimal decimal = text::DropTrailingZeros({0, -5, true});
  EXPECT_EQ(decimal.exponent, 0);
  EXPECT_FALSE(decimal.negative);
}

TEST(Decimal, PrintsWithoutAnExponent) {
  const struct {
    Decimal decimal;
    const char* text;
  } cases[] = {{{25, -1, false}, "2.5"},  {{25, -2, true}, "-0.25"}, {{25, -4, false}, "0.0025"},
               {{25, 0, false}, "25"},    {{25, 3, true}, "-25000"}, {{0, 0, false}, "0"},
               {{105, -2, false}, "1.05"}};
  for (const auto& c : cases) {
    std::string text;
    text::AppendPlainText(text, c.decimal);
    EXPECT_EQ(text, c.text);
  }
}

TEST(Decimal, WritesTheDigitsOfAnyUnsignedInteger) {
  EXPECT_EQ(text::DigitText(0).view(), "0");
  EXPECT_EQ(text::DigitText(std::numeric_limits<std::uint64_t>::max()).view(),
            "18446744073709551615");
}

TEST(Decimal, TellsIntegersOfAtMostFifteenDigits) {
  for (const double integer : {0.0, -0.0, 1.0, -5.0, 999999999999999.0, -999999999999999.0}) {
    EXPECT_TRUE(text::IsShortInteger(integer)) << integer;
  }
  for (const double other : {0.5, 1e15, -1e15, 1e300, 2.0000001}) {
    EXPECT_FALSE(text::IsShortInteger(other)) << other;
  }
}

}  // namespace
}  // namespace quarvel
