// 64 bytes looked at together: as many as a mask has bits. Bit i of a mask stands for byte i.
//
// Two kinds give the same, as tests/text/byte_group_test.cpp shows: ByteGroup on every processor that a
// ByteBlock works on, Avx2ByteGroup with half as many instructions where the processor has AVX2.
// A function that uses the second must be compiled for it (QUARVEL_AVX2) and may only be called where
// HasAvx2() is true.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/byte_block.h"

#if defined(__SSE2__) && defined(__GNUC__) && !defined(QUARVEL_WITHOUT_AVX2)
#include <immintrin.h>
#define QUARVEL_HAS_AVX2_GROUPS
// With what comes with it on each processor that has it: counting and clearing single bits.
#define QUARVEL_AVX2 [[gnu::target("avx2,bmi,bmi2")]]
#endif

namespace quarvel::text {

inline constexpr std::size_t kGroupSize = 64;

class ByteGroup {
 public:
  // Written out block by block: a loop over the blocks costs twice as much.
  explicit ByteGroup(const char* from)
      : first_(from),
        second_(from + kBlockSize),
        third_(from + 2 * kBlockSize),
        fourth_(from + 3 * kBlockSize) {}

  std::uint64_t Spaces() const {
    return Mask(first_.Equal(' '), second_.Equal(' '), third_.Equal(' '), fourth_.Equal(' '));
  }
  // Line feeds and carriage returns.
  std::uint64_t LineEnds() const {
    return Mask(first_.EqualEither('\n', '\r'), second_.EqualEither('\n', '\r'),
                third_.EqualEither('\n', '\r'), fourth_.EqualEither('\n', '\r'));
  }
  // Nothing is a small letter, one of the few signs behind z, or beyond ASCII.
  bool IsBelowSmallLetters() const {
    return first_.Greater(second_).Greater(third_.Greater(fourth_)).AtLeast('a') == 0;
  }
  bool IsAscii() const {
    return (first_.NotAscii() | second_.NotAscii() | third_.NotAscii() | fourth_.NotAscii()) == 0;
  }
  // Of a group of ASCII.
  std::uint64_t SmallLetters() const {
    return Mask(Small(first_), Small(second_), Small(third_), Small(fourth_));
  }

 private:
  static std::uint64_t Mask(unsigned first, unsigned second, unsigned third, unsigned fourth) {
    return std::uint64_t{second << 16 | first} | std::uint64_t{fourth << 16 | third} << 32;
  }
  static unsigned Small(const ByteBlock& block) { return block.AtLeast('a') ^ block.AtLeast('{'); }

  ByteBlock first_, second_, third_, fourth_;
};

#if defined(QUARVEL_HAS_AVX2_GROUPS)

inline bool HasAvx2() {
  return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
         __builtin_cpu_supports("bmi2");
}

// Holds where the bytes are and loads them with each question, which costs nothing: the functions are put
// into one another. A register as a member would be passed in ways that depend on the processor.
class Avx2ByteGroup {
 public:
  explicit Avx2ByteGroup(const char* from) : from_(from) {}

  QUARVEL_AVX2 std::uint64_t Spaces() const {
    return Mask(Equal(First(), ' '), Equal(Second(), ' '));
  }
  QUARVEL_AVX2 std::uint64_t LineEnds() const {
    return Mask(_mm256_or_si256(Equal(First(), '\n'), Equal(First(), '\r')),
                _mm256_or_si256(Equal(Second(), '\n'), Equal(Second(), '\r')));
  }
  QUARVEL_AVX2 bool IsBelowSmallLetters() const {
    return Bits(AtLeast(_mm256_max_epu8(First(), Second()), 'a')) == 0;
  }
  QUARVEL_AVX2 bool IsAscii() const { return Bits(_mm256_or_si256(First(), Second())) == 0; }
  QUARVEL_AVX2 std::uint64_t SmallLetters() const { return Mask(Small(First()), Small(Second())); }

 private:
  QUARVEL_AVX2 static __m256i Load(const char* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
  }
  QUARVEL_AVX2 __m256i First() const { return Load(from_); }
  QUARVEL_AVX2 __m256i Second() const { return Load(from_ + kGroupSize / 2); }
  QUARVEL_AVX2 static __m256i Equal(__m256i bytes, char c) {
    return _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(c));
  }
  QUARVEL_AVX2 static __m256i AtLeast(__m256i bytes, char c) {
    return _mm256_cmpeq_epi8(_mm256_max_epu8(bytes, _mm256_set1_epi8(c)), bytes);
  }
  QUARVEL_AVX2 static __m256i Small(__m256i bytes) {
    return _mm256_xor_si256(AtLeast(bytes, 'a'), AtLeast(bytes, '{'));
  }
  QUARVEL_AVX2 static std::uint32_t Bits(__m256i bytes) {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
  }
  QUARVEL_AVX2 static std::uint64_t Mask(__m256i first, __m256i second) {
    return std::uint64_t{Bits(second)} << 32 | Bits(first);
  }

  const char* from_;
};

#endif

}  // namespace quarvel::text
