#include "text/word_triples.h"

#include <random>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

// Words that often meet.
std::uint32_t RandomWord(std::mt19937& random) {
  static constexpr std::array<std::uint32_t, 4> kWords = {0, 1, 0x80000000u, 0xFFFFFFFFu};
  return kWords[random() % kWords.size()];
}
std::uint64_t RandomTwo(std::mt19937& random) {
  const std::uint64_t upper = RandomWord(random);
  return upper << 32 | RandomWord(random);
}

TEST(WordTriples, HoldsWhatWasSet) {
  WordTriples triples;
  EXPECT_EQ(triples.FirstTwo(2), 0u);
  triples.Set(2, 0x123456789ABCDEF0u, 0xFEDCBA98u);
  EXPECT_EQ(triples.FirstTwo(2), 0x123456789ABCDEF0u);
  EXPECT_EQ(triples.Third(2), 0xFEDCBA98u);
  EXPECT_EQ(triples.FirstTwo(1), 0u);
  EXPECT_EQ(triples.Third(3), 0u);
}

TEST(WordTriples, EachWordOfATripleCounts) {
  WordTriples triples;
  triples.Set(3, 0x0000000700000005u, 9);
  EXPECT_EQ(FindTriple(triples, 0x0000000700000005u, 9), 8u);
  EXPECT_EQ(FindTriple(triples, 0x0000000700000006u, 9), 0u);
  EXPECT_EQ(FindTriple(triples, 0x0000000800000005u, 9), 0u);
  EXPECT_EQ(FindTriple(triples, 0x0000000700000005u, 8), 0u);
  EXPECT_EQ(FindTriple(triples, 0, 0), 7u);
}

TEST(WordTriples, AreFoundAsInAPlainLoop) {
  std::mt19937 random(5);
  std::array<int, 2> found{};
  for (int round = 0; round < 20000; ++round) {
    WordTriples triples;
    for (std::size_t i = 0; i < WordTriples::kCount; ++i) {
      triples.Set(i, RandomTwo(random), RandomWord(random));
    }
    const std::uint64_t two = RandomTwo(random);
    const std::uint32_t third = RandomWord(random);
    const unsigned expected = FindTriplePlainly(triples, two, third);
    ASSERT_EQ(FindTriple(triples, two, third), expected);
    ++found[expected != 0];
  }
  EXPECT_GT(found[0], 100);
  EXPECT_GT(found[1], 100);
}

}  // namespace
}  // namespace quarvel::text
