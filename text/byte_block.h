// Sixteen bytes looked at together. Looking at the bytes of a file one by one costs more than
// everything else that reading it does, so lines and tokens are found block by block.
//
// Where the processor has instructions for it (SSE2: every x86 that the component is built for) a
// block is one register; elsewhere PlainByteBlock does the same with a loop, as
// tests/text/byte_block_test.cpp shows. Bit i of a mask stands for byte i.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "text/upper_case.h"

namespace quarvel::text {

inline constexpr std::size_t kBlockSize = 16;

class PlainByteBlock {
 public:
  explicit PlainByteBlock(const char* from) { std::memcpy(bytes_, from, kBlockSize); }

  unsigned Equal(char c) const {
    unsigned mask = 0;
    for (std::size_t i = 0; i < kBlockSize; ++i) mask |= unsigned{bytes_[i] == c} << i;
    return mask;
  }
  unsigned EqualEither(char c, char d) const { return Equal(c) | Equal(d); }
  // The greater byte of each place, 0 to 255.
  PlainByteBlock Greater(const PlainByteBlock& other) const {
    PlainByteBlock result = *this;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      const auto byte = static_cast<unsigned char>(other.bytes_[i]);
      if (byte > static_cast<unsigned char>(bytes_[i])) result.bytes_[i] = other.bytes_[i];
    }
    return result;
  }
  // The bytes of 128 and more.
  unsigned NotAscii() const {
    unsigned mask = 0;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      mask |= unsigned{static_cast<unsigned char>(bytes_[i]) >= 128} << i;
    }
    return mask;
  }
  // The bytes 0 to 9.
  unsigned Digits() const {
    unsigned mask = 0;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      mask |= unsigned{bytes_[i] >= '0' && bytes_[i] <= '9'} << i;
    }
    return mask;
  }
  // The bytes from c on, up to 255.
  unsigned AtLeast(unsigned char c) const {
    unsigned mask = 0;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      mask |= unsigned{static_cast<unsigned char>(bytes_[i]) >= c} << i;
    }
    return mask;
  }
  // Writes the block with a to z turned into A to Z in its first `count` bytes.
  void StoreUpperCase(char* to, std::size_t count) const {
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      to[i] = i < count ? UpperCaseAscii(bytes_[i]) : bytes_[i];
    }
  }

 private:
  char bytes_[kBlockSize];
};

#if defined(__SSE2__)

class Sse2ByteBlock {
 public:
  explicit Sse2ByteBlock(const char* from)
      : bytes_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))) {}

  unsigned Equal(char c) const {
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c))));
  }
  unsigned EqualEither(char c, char d) const {
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(
        _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c)), _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(d)))));
  }
  Sse2ByteBlock Greater(const Sse2ByteBlock& other) const {
    return Sse2ByteBlock(_mm_max_epu8(bytes_, other.bytes_));
  }
  unsigned NotAscii() const { return static_cast<unsigned>(_mm_movemask_epi8(bytes_)); }
  unsigned Digits() const {
    return static_cast<unsigned>(_mm_movemask_epi8(Between('0' - 1, '9' + 1)));
  }
  unsigned AtLeast(unsigned char c) const {
    const __m128i greater = _mm_max_epu8(bytes_, _mm_set1_epi8(static_cast<char>(c)));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(greater, bytes_)));
  }
  void StoreUpperCase(char* to, std::size_t count) const {
    const __m128i places = _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const __m128i wanted =
        _mm_cmplt_epi8(places, _mm_set1_epi8(static_cast<char>(count < 16 ? count : 16)));
    const __m128i flip = _mm_and_si128(_mm_and_si128(Letters(), wanted), _mm_set1_epi8('a' - 'A'));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_xor_si128(bytes_, flip));
  }

 private:
  explicit Sse2ByteBlock(__m128i bytes) : bytes_(bytes) {}

  // Signed comparisons: bytes of 128 and more are below all others.
  __m128i Between(char below, char above) const {
    return _mm_and_si128(_mm_cmpgt_epi8(bytes_, _mm_set1_epi8(below)),
                         _mm_cmplt_epi8(bytes_, _mm_set1_epi8(above)));
  }
  __m128i Letters() const { return Between('a' - 1, 'z' + 1); }

  __m128i bytes_;
};

using ByteBlock = Sse2ByteBlock;

#else

using ByteBlock = PlainByteBlock;

#endif

}  // namespace quarvel::text
