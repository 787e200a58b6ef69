// ParsePaddedShort (text/padded_number.h) with half as many instructions, where the processor has AVX2: a
// function that uses it must be compiled for that (QUARVEL_AVX2) and may only be called where HasAvx2() is
// true. The plain way beside it gives the same value, and is asked where this one gives none:
// tests/text/vector_number_test.cpp.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/byte_group.h"
#include "text/padded_number.h"

#if defined(QUARVEL_HAS_AVX2_GROUPS)

namespace quarvel::text {

// The number of up to 16 digits, each the value of a byte, the first in the lowest one: pairs, fours and
// eights are joined, all at once.
QUARVEL_AVX2 inline std::uint64_t JoinSixteenDigits(__m128i digits) {
  const __m128i pairs = _mm_maddubs_epi16(digits, _mm_set1_epi16(0x010A));
  const __m128i fours = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00010064));
  const __m128i packed = _mm_packus_epi32(fours, fours);
  const __m128i eights = _mm_madd_epi16(packed, _mm_set1_epi32(0x00012710));
  std::uint64_t both;
  _mm_storel_epi64(reinterpret_cast<__m128i*>(&both), eights);
  return (both & 0xFFFFFFFFu) * 100'000'000 + (both >> 32);
}

// A sign "-" or none, and up to 15 characters, digits with a point or without one. False when the text,
// which must not be empty, is another, numeric or not.
QUARVEL_AVX2 inline bool ParseVectorNumber(std::string_view text, double& value) {
  const std::size_t negative = text[0] == '-';
  const std::size_t size = text.size() - negative;
  if (size - 1 >= kBlockSize - 1) return false;
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + negative));
  const __m128i values = _mm_sub_epi8(bytes, _mm_set1_epi8('0'));
  const __m128i digit_places = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
  const unsigned end = 1u << size;
  const unsigned all = end - 1;
  const unsigned digits = static_cast<unsigned>(_mm_movemask_epi8(digit_places)) & all;
  const __m128i point_places = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('.'));
  const unsigned points = static_cast<unsigned>(_mm_movemask_epi8(point_places)) & all;
  if ((digits | points) != all || (points & (points - 1)) != 0 || digits == 0) return false;

  const auto whole = static_cast<std::size_t>(std::countr_zero(points | end));
  const std::size_t count = size - (points != 0);
  // The last digit goes to the last byte, those in front of a point one place further than those behind
  // it; a place below 0 becomes a zero.
  const __m128i places = _mm_add_epi8(
      _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15),
      _mm_set1_epi8(static_cast<char>(static_cast<int>(count) - static_cast<int>(kBlockSize))));
  const __m128i behind =
      _mm_cmpgt_epi8(places, _mm_set1_epi8(static_cast<char>(static_cast<int>(whole) - 1)));
  const __m128i joined = _mm_shuffle_epi8(values, _mm_sub_epi8(places, behind));
  // Below 2^53 and over an exact power of ten: rounded once, so correctly.
  const auto integer = static_cast<double>(static_cast<std::int64_t>(JoinSixteenDigits(joined)));
  value = integer / kExactPowersOfTen[count - whole] * kPaddedSigns[negative];
  return true;
}

}  // namespace quarvel::text

#endif
