// ParseNumber for a text that stands in a buffer with room behind it: several times as fast for the
// numbers that most files are made of. ParseNumber is the plain way and gives the same:
// tests/text/padded_number_test.cpp, fuzz/number_fuzz.cpp.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include "text/byte_block.h"
#include "text/decimal.h"
#include "text/numbers.h"

namespace quarvel::text {

// So many bytes behind the end of such a text may be read, whatever they hold.
inline constexpr std::size_t kNumberPadding = 16;

inline constexpr std::array<std::uint64_t, 9> kPaddedPowersOfTen = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};
inline constexpr std::array<double, 2> kPaddedSigns = {1, -1};

// The first byte of a text is the lowest of a word, as on the machines of today.
static_assert(std::endian::native == std::endian::little);

// The value of eight digits, of which the first stands in the lowest byte; a zero byte is a zero.
// Neighbours are joined to pairs, pairs to fours and fours to the whole, all at once.
inline std::uint64_t JoinDigits(std::uint64_t word) {
  word &= 0x0F0F0F0F0F0F0F0Full;
  word = (word * 10 + (word >> 8)) & 0x00FF00FF00FF00FFull;
  word = (word * 100 + (word >> 16)) & 0x0000FFFF0000FFFFull;
  return (word * 10000 + (word >> 32)) & 0xFFFFFFFFull;
}

inline std::uint64_t LoadWord(const char* at) {
  std::uint64_t word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

// Moves the first `count` bytes to the end of the word, zeros in front of them; count 0..8. In two
// steps, as no word can be moved by all of its 64 bits.
inline std::uint64_t AlignDigits(std::uint64_t word, std::size_t count) {
  const auto half = static_cast<unsigned>(4 * (8 - count));
  return word << half << half;
}

// What a number of eight characters has to be divided by, by the place of its point, from 1; 0 is none.
inline constexpr std::array<double, 9> kPowersBehindPoint = {1,   1e7, 1e6, 1e5, 1e4,
                                                             1e3, 1e2, 1e1, 1};

// One to eight characters, digits with a point or without one. False when they are others.
[[gnu::always_inline]] inline bool ParsePaddedWord(const char* at, std::size_t size,
                                                   double& value) {
  constexpr std::uint64_t kEach = 0x0101010101010101ull;
  // The last character stands in the highest byte, zeros in front of the first.
  const std::uint64_t word = LoadWord(at) << (64 - 8 * size);
  // The highest bit of each byte that is a point, and maybe of others above the first of these.
  const std::uint64_t off_point = word ^ kEach * '.';
  const std::uint64_t marks = (off_point - kEach) & ~off_point & kEach << 7;
  const std::uint64_t point = marks & (0 - marks);  // the lowest mark
  const std::size_t points = point != 0;
  const std::size_t count = size - points;
  // What stands in front of the point, everything when there is none, moves up into its place.
  const std::uint64_t before = (point >> 7) - 1;
  const std::uint64_t behind = 0 - (point << 1);
  const std::uint64_t joined = (word & before) << (8 * points) | (word & behind);
  const std::uint64_t digits = joined ^ kEach * '0' << ((64 - 8 * count) & 63);
  if ((((digits + kEach * (0x80 - 10)) | digits) & kEach << 7) != 0 || count == 0) return false;
  const auto place = static_cast<std::size_t>(std::bit_width(point | 1)) / 8;
  value = static_cast<double>(static_cast<std::int64_t>(JoinDigits(digits))) /
          kPowersBehindPoint[place];
  return true;
}

// Up to eight digits on either side of a point or without one, fewer than 16 characters. False when they
// are others.
inline bool ParsePaddedBlock(const char* at, std::size_t size, double& value) {
  constexpr std::size_t kMostDigits = kPaddedPowersOfTen.size() - 1;
  static_assert(kNumberPadding >= kBlockSize);
  const ByteBlock block(at);
  const unsigned behind = 1u << size;
  const unsigned other = ~block.Digits() & (behind - 1);
  if ((other & (other - 1)) != 0 || (other & ~block.Equal('.')) != 0) return false;
  const std::size_t points = other != 0;
  const auto whole = static_cast<std::size_t>(std::countr_zero(other | behind));
  const std::size_t fraction = size - whole - points;
  if (whole > kMostDigits || fraction > kMostDigits) return false;

  const std::uint64_t digits =
      JoinDigits(AlignDigits(LoadWord(at), whole)) * kPaddedPowersOfTen[fraction] +
      JoinDigits(AlignDigits(LoadWord(at + size - fraction), fraction));
  // Below 2^53 and over an exact power of ten: rounded once, so correctly. Signed on purpose:
  // 32-bit processors convert signed integers much faster.
  value = static_cast<double>(static_cast<std::int64_t>(digits)) / kExactPowersOfTen[fraction];
  return true;
}

// The same behind a sign "-" or none. No branch depends on where the point is or how many digits there
// are, but for more than eight characters: the numbers of a file differ in that from line to line, and the
// processor would guess wrong. False when the text is another, numeric or not.
[[gnu::always_inline]] inline bool ParsePaddedShort(std::string_view text, double& value) {
  if (text.empty()) return false;
  const std::size_t negative = text[0] == '-';
  const char* const at = text.data() + negative;
  const std::size_t size = text.size() - negative;
  if (size - 1 >= kBlockSize - 1) return false;
  double magnitude = 0;
  const bool is_short = size <= sizeof(std::uint64_t) ? ParsePaddedWord(at, size, magnitude)
                                                      : ParsePaddedBlock(at, size, magnitude);
  value = magnitude * kPaddedSigns[negative];
  return is_short;
}

// ParseNumber into `value`; false when the text is not numeric. Not an optional number: putting one
// together and taking it apart again takes longer than reading most numbers.
inline bool ParsePaddedNumber(std::string_view text, double& value) {
  double short_value;
  if (ParsePaddedShort(text, short_value)) {
    value = short_value;
    return true;
  }
  const std::optional<double> number = ParseNumber(text);
  if (number) value = *number;
  return number.has_value();
}

}  // namespace quarvel::text
