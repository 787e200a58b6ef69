// Four triples of 32-bit words, side by side column by column: all four are compared with one triple
// at once. Bit i of a mask stands for triple i.
//
// Where the processor has instructions for it (SSE2: every x86 that the component is built for) a
// column is one register; elsewhere FindTriplePlainly does the same with a loop, as
// tests/text/word_triples_test.cpp shows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quarvel::text {

struct alignas(16) WordTriples {
  static constexpr std::size_t kCount = 4;
  using Column = std::array<std::uint32_t, kCount>;

  void Set(std::size_t place, std::uint64_t first_two, std::uint32_t third) {
    columns[0][place] = static_cast<std::uint32_t>(first_two);
    columns[1][place] = static_cast<std::uint32_t>(first_two >> 32);
    columns[2][place] = third;
  }
  // The first word of the triple in the lower half.
  std::uint64_t FirstTwo(std::size_t place) const {
    return std::uint64_t{columns[1][place]} << 32 | columns[0][place];
  }
  std::uint32_t Third(std::size_t place) const { return columns[2][place]; }

  std::array<Column, 3> columns{};
};

// The triples that are this one.
inline unsigned FindTriplePlainly(const WordTriples& triples, std::uint64_t first_two,
                                  std::uint32_t third) {
  unsigned mask = 0;
  for (std::size_t i = 0; i < WordTriples::kCount; ++i) {
    const bool same = triples.FirstTwo(i) == first_two && triples.Third(i) == third;
    mask |= unsigned{same} << i;
  }
  return mask;
}

#if defined(__SSE2__)

inline unsigned FindTriple(const WordTriples& triples, std::uint64_t first_two,
                           std::uint32_t third) {
  const auto column = [&triples](std::size_t number) {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(triples.columns[number].data()));
  };
  const __m128i two = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&first_two));
  const __m128i first = _mm_cmpeq_epi32(column(0), _mm_shuffle_epi32(two, 0x00));
  const __m128i second = _mm_cmpeq_epi32(column(1), _mm_shuffle_epi32(two, 0x55));
  const __m128i last = _mm_cmpeq_epi32(column(2), _mm_set1_epi32(static_cast<int>(third)));
  const __m128i same = _mm_and_si128(_mm_and_si128(first, second), last);
  return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(same)));
}

#else

inline unsigned FindTriple(const WordTriples& triples, std::uint64_t first_two,
                           std::uint32_t third) {
  return FindTriplePlainly(triples, first_two, third);
}

#endif

}  // namespace quarvel::text
