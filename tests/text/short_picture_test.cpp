#include "text/short_picture.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "text/picture.h"

namespace quarvel::text {
namespace {

constexpr std::size_t kAround = 8;  // bytes that nobody may touch

// The text with the blanks in front of it; empty when the value is left to others.
std::string ShortPicture(double value) {
  std::array<char, 2 * kAround + kRoomBeforePicture + kRoomBehindPicture> bytes;
  bytes.fill('#');
  char* const end = bytes.data() + kAround + kRoomBeforePicture;
  const std::size_t size = PutShortPicture(value, end);
  const std::string untouched(kAround, '#');
  EXPECT_EQ(std::string(bytes.data(), kAround), untouched) << value;
  EXPECT_EQ(std::string(bytes.end() - kAround, bytes.end()), untouched) << value;
  if (size == 0) return {};
  const std::string before(end - kRoomBeforePicture, end - size);
  EXPECT_EQ(before.find_first_not_of("# "), std::string::npos) << value;
  return std::string(end - size, end);
}

void ExpectThePicture(double value) {
  const std::string text = ShortPicture(value);
  ASSERT_FALSE(text.empty()) << value;
  for (const Picture picture : {Picture::kElement, Picture::kBound, Picture::kWideBound}) {
    ASSERT_EQ(text, PictureText(value, picture));
  }
}

TEST(ShortPicture, IsThePicture) {
  const std::pair<double, const char*> cases[] = {{0, "0."},
                                                  {-0.0, "0."},
                                                  {5, "5."},
                                                  {-2.25, "-2.25"},
                                                  {0.5, "0.5"},
                                                  {-0.000001, "-0.000001"},
                                                  {10, "10."},
                                                  {1.05, "1.05"},
                                                  {99999999, "99999999."},
                                                  {-12345678.123456, "-12345678.123456"},
                                                  {100.1, "100.1"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(ShortPicture(value), text);
    ExpectThePicture(value);
  }
}

TEST(ShortPicture, LeavesOtherValues) {
  for (const double value : {1e8, -1e8, 1e300, 0.0000001, 1.0 / 3, 1e-11, 5e-324, 0.1234567,
                             12345.6789012, std::nextafter(1.0, 2.0)}) {
    EXPECT_EQ(ShortPicture(value), "") << value;
  }
  EXPECT_EQ(ShortPicture(std::numeric_limits<double>::infinity()), "");
  EXPECT_EQ(ShortPicture(-std::numeric_limits<double>::infinity()), "");
  EXPECT_EQ(ShortPicture(std::numeric_limits<double>::quiet_NaN()), "");
}

TEST(ShortPicture, AgreesForEachNumberOfDigits) {
  double scale = 1;
  for (int behind = 0; behind <= 6; ++behind, scale *= 10) {
    double digits = 1;
    for (int count = 1; count <= 8 + behind; ++count) {
      for (const double integer : {digits, 2 * digits + 1, 10 * digits - 1, 9 * digits}) {
        ExpectThePicture(integer / scale);
        ExpectThePicture(-integer / scale);
      }
      digits *= 10;
    }
  }
}

TEST(ShortPicture, AgreesForRandomDecimals) {
  std::mt19937_64 random(11);
  static constexpr std::array<double, 7> kScales = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
  for (int round = 0; round < 100'000; ++round) {
    const std::uint64_t limit = std::uint64_t{1} << (1 + random() % 26);
    const auto integer = static_cast<double>(random() % limit);
    ExpectThePicture((random() % 2 != 0 ? integer : -integer) /
                     kScales[static_cast<std::size_t>(random() % 7)]);
    if (testing::Test::HasFatalFailure()) return;
  }
}

// A value is left to others, or its text is the same; most neighbours of short decimals are left.
TEST(ShortPicture, AgreesOrIsNoneForAnyBits) {
  std::mt19937_64 random(12);
  for (int round = 0; round < 100'000; ++round) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    const double neighbour = std::nextafter(static_cast<double>(bits % 100'000) / 1000, value);
    for (const double each : {value, neighbour}) {
      const std::string text = ShortPicture(each);
      if (text.empty()) continue;
      ASSERT_EQ(text, PictureText(each, Picture::kElement));
    }
  }
}

TEST(ShortPicture, SplitsNumbersIntoDigits) {
  for (const std::uint32_t number : {0u, 7u, 10u, 99u, 100u, 9999u, 10000u, 12345678u, 99999999u}) {
    const std::string expected = std::to_string(100'000'000 + number).substr(1);
    const std::uint64_t digits = SplitDigits(number);
    for (std::size_t i = 0; i < 8; ++i) {
      EXPECT_EQ((digits >> (8 * i)) & 0xFF, static_cast<std::uint64_t>(expected[i] - '0'));
    }
  }
}

}  // namespace
}  // namespace quarvel::text
