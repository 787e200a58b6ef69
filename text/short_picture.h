// The picture text (text/picture.h) of the values that most models are made of: several times as fast.
// AppendPictureText is the plain way and gives the same: tests/text/short_picture_test.cpp.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quarvel::text {

// What PutShortPicture may write to in front of the end of a text, and behind it.
inline constexpr std::size_t kRoomBeforePicture = 16;
inline constexpr std::size_t kRoomBehindPicture = 8;

static_assert(std::endian::native == std::endian::little, "the first digit is the lowest byte");

// The eight digits of a number of fewer than nine, the first in the lowest byte. Fours, then pairs, then
// digits are taken apart, all at once.
inline std::uint64_t SplitDigits(std::uint32_t number) {
  const std::uint32_t upper = number / 10000;
  const std::uint64_t fours = upper | std::uint64_t{number - upper * 10000} << 32;
  // By 100 and by 10, exact for so few digits.
  const std::uint64_t hundreds = (fours * 10486 >> 20) & 0x0000007F0000007Full;
  const std::uint64_t pairs = hundreds | (fours - hundreds * 100) << 16;
  const std::uint64_t tens = (pairs * 103 >> 10) & 0x000F000F000F000Full;
  return tens | (pairs - tens * 10) << 8;
}

// Writes the text of the value so that it ends at `end`, with blanks in front of it, and gives its
// length. 0 when the value has more than eight digits in front of the point or six behind it: such a value
// is left to others. What was within the room before and behind is lost either way.
inline std::size_t PutShortPicture(double value, char* end) {
  constexpr double kLimit = 1e8;
  constexpr std::uint32_t kScale = 1'000'000;
  constexpr std::uint64_t kZeros = 0x3030303030303030ull;
  const double magnitude = std::fabs(value);
  if (!(magnitude < kLimit)) return 0;
  // Digits that divide back to the value are its text: a decimal of up to 15 digits is recovered from its
  // nearest double.
  const double to_nearest = magnitude * kScale + 0.5;  // of one that is not negative
  const auto scaled = static_cast<std::int64_t>(to_nearest);
  if (static_cast<double>(scaled) / kScale != magnitude) return 0;
  const auto digits = static_cast<std::uint64_t>(scaled);
  const auto whole = static_cast<std::uint32_t>(digits / kScale);
  const auto rest = static_cast<std::uint32_t>(digits - std::uint64_t{whole} * kScale);
  const std::uint64_t front = SplitDigits(whole);
  const std::uint64_t fraction = SplitDigits(rest * 100);
  // The lowest of the added bits counts for nothing, and no branch depends on whether there is a fraction.
  const auto behind = static_cast<std::size_t>(std::bit_width(fraction << 8 | 1)) / 8;
  const auto zeros = static_cast<std::size_t>(std::countr_zero(front | std::uint64_t{1} << 56)) / 8;

  char* const point = end - behind - 1;
  const std::uint64_t blanks = (std::uint64_t{1} << (8 * zeros)) - 1;
  const std::uint64_t front_text = (front | kZeros) ^ (blanks & kZeros / 3);  // '0' to ' '
  const std::uint64_t fraction_text = fraction | kZeros;
  std::memcpy(point - 8, &front_text, sizeof front_text);
  std::memcpy(point + 1, &fraction_text, sizeof fraction_text);
  *point = '.';
  const std::size_t negative = value < 0;
  point[-9] = ' ';
  *(point - 9 + zeros) = negative != 0 ? '-' : ' ';
  return negative + (8 - zeros) + 1 + behind;
}

}  // namespace quarvel::text
