#include "mps/read_back.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "mps/mps_writer.h"
#include "tests/support/test_length.h"
#include "text/numbers.h"
#include "text/picture.h"

namespace quarvel::mps {
namespace {

double Parsed(const std::string& text) {
  return text::ParseNumber(text).value_or(std::numeric_limits<double>::quiet_NaN());
}

// By each way in which a value is written.
void ExpectKept(double value) {
  EXPECT_EQ(LongValueReadBack(value), value) << text::RoundTripText(value);
  EXPECT_EQ(Parsed(text::PictureText(value, text::Picture::kWideBound)), value)
      << text::RoundTripText(value);
  const std::string picture = text::PictureText(value, text::Picture::kBound);
  EXPECT_EQ(Parsed(picture.size() <= kValueWidth ? picture : text::GeneralText(value)), value)
      << text::RoundTripText(value);
}

// Numbers of so many decimals, of all sizes.
TEST(HasFewDigits, IsTrueOnlyOfWhatEveryWayOfWritingKeeps) {
  std::mt19937_64 random(1);
  int few = 0;
  const int count = TestLength(20000);
  for (int i = 0; i < count; ++i) {
    const auto whole = static_cast<std::int64_t>(random() >> (14 + random() % 50));
    const auto decimals = static_cast<int>(random() % 12);
    const double value =
        static_cast<double>(random() % 2 == 0 ? whole : -whole) / std::pow(10, decimals);
    if (!HasFewDigits(value)) continue;
    ++few;
    ExpectKept(value);
  }
  EXPECT_GT(few, count / 2);
}

TEST(HasFewDigits, IsTrueOfShortDecimalsThatBinaryNumbersOnlyComeNearTo) {
  for (const char* const text : {"0", "1", "-8.5", "35.38", "0.0969", "0.0006", "-0.0001", "7.2576",
                                 "0.0000000001", "99999.9999999999", "99999999999.9999"}) {
    EXPECT_TRUE(HasFewDigits(Parsed(text))) << text;
  }
  for (const double value : {1e15, 1.0 / 3, 1e-11, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_FALSE(HasFewDigits(value)) << value;
  }
}

}  // namespace
}  // namespace quarvel::mps
