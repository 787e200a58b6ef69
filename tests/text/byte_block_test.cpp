#include "text/byte_block.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

// Bytes near every border that the blocks look for.
std::string RandomBlock(std::mt19937& random) {
  static const std::string kBytes = "aAzZ`{@[ \n\r.09" + std::string("\x7F\x80\xFF\xE1\xFA\0", 6);
  std::string block;
  for (std::size_t i = 0; i < kBlockSize; ++i) {
    block +=
        random() % 4 == 0 ? static_cast<char>(random() % 256) : kBytes[random() % kBytes.size()];
  }
  return block;
}

TEST(ByteBlock, MarksEqualBytesByTheirPlace) {
  const std::string text = "x..............x";
  EXPECT_EQ(ByteBlock(text.data()).Equal('x'), 0x8001u);
  EXPECT_EQ(PlainByteBlock(text.data()).Equal('x'), 0x8001u);
}

TEST(ByteBlock, UpperCasesOnlyTheFirstBytes) {
  const std::string text = "abcdefghijklmnop";
  char block[kBlockSize];
  PlainByteBlock(text.data()).StoreUpperCase(block, 3);
  EXPECT_EQ(std::string(block, kBlockSize), "ABCdefghijklmnop");
}

TEST(ByteBlock, AgreesWithThePlainOne) {
  std::mt19937 random(11);
  for (int round = 0; round < 20000; ++round) {
    const std::string bytes = RandomBlock(random);
    const ByteBlock block(bytes.data());
    const PlainByteBlock plain(bytes.data());
    for (const char c : {' ', '\n', '\r', bytes[0]}) EXPECT_EQ(block.Equal(c), plain.Equal(c));
    EXPECT_EQ(block.EqualEither('\n', 'z'), plain.EqualEither('\n', 'z'));
    EXPECT_EQ(block.NotAscii(), plain.NotAscii());
    EXPECT_EQ(block.Digits(), plain.Digits());
    const std::string others = RandomBlock(random);
    const ByteBlock greater = block.Greater(ByteBlock(others.data()));
    const PlainByteBlock plain_greater = plain.Greater(PlainByteBlock(others.data()));
    for (const int c : {0x00, 0x61, 0x80, 0xFF}) {
      const auto byte = static_cast<unsigned char>(c);
      EXPECT_EQ(block.AtLeast(byte), plain.AtLeast(byte));
      EXPECT_EQ(greater.AtLeast(byte), plain_greater.AtLeast(byte));
    }
    const std::size_t count = random() % 20;
    char upper[kBlockSize];
    char plain_upper[kBlockSize];
    block.StoreUpperCase(upper, count);
    plain.StoreUpperCase(plain_upper, count);
    EXPECT_EQ(std::string(upper, kBlockSize), std::string(plain_upper, kBlockSize)) << count;
  }
}

}  // namespace
}  // namespace quarvel::text
