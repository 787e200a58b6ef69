#include "text/byte_group.h"

#include <array>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

using Bytes = std::array<char, kGroupSize>;

// What a group must say, byte by byte.
struct Expected {
  explicit Expected(const Bytes& bytes) {
    for (std::size_t i = 0; i < kGroupSize; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      spaces |= std::uint64_t{byte == ' '} << i;
      line_ends |= std::uint64_t{byte == '\n' || byte == '\r'} << i;
      small |= std::uint64_t{byte >= 'a' && byte <= 'z'} << i;
      is_ascii = is_ascii && byte < 128;
      is_below_small = is_below_small && byte < 'a';
    }
  }

  std::uint64_t spaces = 0;
  std::uint64_t line_ends = 0;
  std::uint64_t small = 0;
  bool is_ascii = true;
  bool is_below_small = true;
};

// Mostly bytes near the borders that groups look for; now and then a group without any small letter.
Bytes RandomBytes(std::mt19937& random) {
  static const std::string kBytes = "AZ@[ \n\r.09`az{" + std::string("\x7F\x80\xFF\xE1\xFA\0", 6);
  static constexpr std::array<std::size_t, 4> kMost = {11, 14, 15, 21};
  const std::size_t most = kMost[random() % kMost.size()];
  Bytes bytes;
  for (char& byte : bytes) byte = kBytes[random() % most];
  return bytes;
}

template <class Group>
void ExpectTruth() {
  std::mt19937 random(17);
  std::size_t below_small = 0;
  std::size_t ascii = 0;
  for (int round = 0; round < 20000; ++round) {
    const Bytes bytes = RandomBytes(random);
    const Expected expected(bytes);
    const Group group(bytes.data());
    ASSERT_EQ(group.Spaces(), expected.spaces);
    ASSERT_EQ(group.LineEnds(), expected.line_ends);
    ASSERT_EQ(group.IsAscii(), expected.is_ascii);
    ASSERT_EQ(group.IsBelowSmallLetters(), expected.is_below_small);
    below_small += expected.is_below_small;
    if (!expected.is_ascii) continue;
    ++ascii;
    ASSERT_EQ(group.SmallLetters(), expected.small);
  }
  EXPECT_GT(below_small, 1000u);
  EXPECT_GT(ascii, below_small);
}

TEST(ByteGroup, MarksBytesByTheirPlace) { ExpectTruth<ByteGroup>(); }

TEST(ByteGroup, MarksBytesByTheirPlaceWithAvx2) {
#if defined(QUARVEL_HAS_AVX2_GROUPS)
  if (HasAvx2()) return ExpectTruth<Avx2ByteGroup>();
#endif
  GTEST_SKIP() << "this processor or this build has no AVX2";
}

}  // namespace
}  // namespace quarvel::text
