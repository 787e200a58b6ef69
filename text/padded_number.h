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

// Selects so many of the first bytes of a word, which on the machines of today are its lowest.
static_assert(std::endian::native == std::endian::little);
inline constexpr std::array<std::uint64_t, 9> kFirstBytes = {0,
                                                             0xFF,
                                                             0xFFFF,
                                                             0xFFFFFF,
                                                             0xFFFFFFFF,
                                                             0xFFFFFFFFFF,
                                                             0xFFFFFFFFFFFF,
                                                             0xFFFFFFFFFFFFFF,
                                                             0xFFFFFFFFFFFFFFFF};

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

// The digits of up to eight characters with a point, or none, behind the first `whole` of them.
inline std::uint64_t JoinAroundPoint(const char* at, std::size_t whole, std::size_t points,
                                     std::size_t fraction) {
  const std::uint64_t word = LoadWord(at);
  const std::uint64_t before = kFirstBytes[whole];
  const std::uint64_t joined = (word & before) | ((word >> (8 * points)) & ~before);
  return JoinDigits(AlignDigits(joined, whole + fraction));
}

// A sign "-" or none, and up to eight digits on either side of a point or without one, of fewer
// than 16 characters. No branch depends on where the point is or how many digits there are: the
// numbers of a file differ in that from line to line, and the processor would guess wrong. False
// when the text is another, numeric or not.
inline bool ParsePaddedShort(std::string_view text, double& value) {
  constexpr std::size_t kMostDigits = kPaddedPowersOfTen.size() - 1;
  static_assert(kNumberPadding >= kBlockSize);
  if (text.empty()) return false;
  const std::size_t negative = text[0] == '-';
  const char* const at = text.data() + negative;
  const std::size_t size = text.size() - negative;
  if (size == 0 || size >= kBlockSize) return false;

  const ByteBlock block(at);
  const unsigned behind = 1u << size;
  const unsigned other = ~block.Digits() & (behind - 1);
  if ((other & (other - 1)) != 0 || (other & ~block.Equal('.')) != 0) return false;
  const std::size_t points = other != 0;
  const auto whole = static_cast<std::size_t>(std::countr_zero(other | behind));
  const std::size_t fraction = size - whole - points;
  if (whole > kMostDigits || fraction > kMostDigits || size == points) return false;

  const std::uint64_t digits =
      size <= kMostDigits
          ? JoinAroundPoint(at, whole, points, fraction)
          : JoinDigits(AlignDigits(LoadWord(at), whole)) * kPaddedPowersOfTen[fraction] +
                JoinDigits(AlignDigits(LoadWord(at + size - fraction), fraction));
  // Below 2^53 and over an exact power of ten: rounded once, so correctly. Signed on purpose:
  // 32-bit processors convert signed integers much faster.
  const auto integer = static_cast<double>(static_cast<std::int64_t>(digits));
  value = integer / kExactPowersOfTen[fraction] * kPaddedSigns[negative];
  return true;
}

// ParseNumber into `value`; false when the text is not numeric. Not an optional number: putting one
// together and taking it apart again takes longer than reading most numbers.
inline bool ParsePaddedNumber(std::string_view text, double& value) {
  if (ParsePaddedShort(text, value)) return true;
  const std::optional<double> number = ParseNumber(text);
  if (number) value = *number;
  return number.has_value();
}

}  // namespace quarvel::text
