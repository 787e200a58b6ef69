#include "text/shortest_text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/test_length.h"
#include "text/padded_number.h"

namespace quarvel::text {
namespace {

std::string Shortest(double value) {
  std::string text;
  AppendShortestText(text, value);
  return text;
}

std::string ShortestIn(double value, std::size_t room) {
  std::string text = "x";
  AppendShortestText(text, value, room);
  return text.substr(1);
}

TEST(ShortestText, HasAsFewCharactersAsReadBack) {
  const struct {
    double value;
    const char* text;
  } cases[] = {{0, "0"},
               {-0.0, "-0"},
               {1, "1"},
               {-3.5, "-3.5"},
               {0.1, "0.1"},
               {1e10, "1e+10"},
               {-1e10, "-1e+10"},
               {5e-324, "5e-324"},
               {1.7976931348623157e308, "1.7976931348623157e+308"},
               {1e-12, "1e-12"},
               {1.0 / 3, "0.3333333333333333"},
               {12345678, "12345678"}};
  for (const auto& c : cases) EXPECT_EQ(Shortest(c.value), c.text);
}

TEST(ShortestText, LeavesOutTheZeroBeforeThePointWhereThatMakesItFit) {
  EXPECT_EQ(ShortestIn(0.01234567891, 12), ".01234567891");
  EXPECT_EQ(ShortestIn(-0.1234567891, 12), "-.1234567891");
  EXPECT_EQ(ShortestIn(0.1234567891, 12), "0.1234567891");
  EXPECT_EQ(ShortestIn(0.012345678912, 12), "0.012345678912");
  EXPECT_EQ(ShortestIn(1.2345678912345, 12), "1.2345678912345");
  EXPECT_EQ(ShortestIn(1e300, 4), "1e+300");
}

// Any bits but those of NaN and infinity.
TEST(ShortestText, ReadsBackToTheSameBits) {
  std::mt19937_64 random(7);
  std::string text;
  for (int i = 0; i < TestLength(200'000); ++i) {
    std::uint64_t bits = random();
    if (i % 4 == 0) bits &= 0x800FFFFFFFFFFFFFull;  // too small for all digits
    if (i % 4 == 1)
      bits = std::bit_cast<std::uint64_t>(std::ldexp(1.0, i % 2000 - 1000)) +
             static_cast<std::uint64_t>(i % 3) - 1;
    const auto value = std::bit_cast<double>(bits);
    if (!std::isfinite(value)) continue;
    text.clear();
    AppendShortestText(text, value, 12);
    const std::size_t size = text.size();
    text.append(kNumberPadding, '9');
    double back = std::numeric_limits<double>::quiet_NaN();
    ASSERT_TRUE(ParsePaddedNumber(std::string_view(text).substr(0, size), back)) << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(back), bits) << text;
  }
}

}  // namespace
}  // namespace quarvel::text
