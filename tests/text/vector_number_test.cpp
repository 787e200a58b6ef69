#include "text/vector_number.h"

#include <cmath>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "text/numbers.h"

namespace quarvel::text {
namespace {

#if defined(QUARVEL_HAS_AVX2_GROUPS)

// In a buffer with that byte behind it; none where the text is left to others.
QUARVEL_AVX2 std::optional<double> VectorNumber(const std::string& text, char behind) {
  const std::string buffer = text + std::string(kNumberPadding, behind);
  double value = 0;
  if (!ParseVectorNumber(std::string_view(buffer).substr(0, text.size()), value)) return {};
  return value;
}

void ExpectTrueOrNone(const std::string& text, bool is_short) {
  for (const char behind : {'0', '9', '.', ' ', '\n', 'E', '\0', '\xB0'}) {
    const std::optional<double> value = VectorNumber(text, behind);
    ASSERT_TRUE(value.has_value() || !is_short) << text;
    if (!value) continue;
    const std::optional<double> expected = ParseNumber(text);
    ASSERT_TRUE(expected.has_value()) << text;
    ASSERT_EQ(*value, *expected) << text;
    ASSERT_EQ(std::signbit(*value), std::signbit(*expected)) << text;
  }
}

TEST(VectorNumber, AgreesForEveryPlaceOfThePoint) {
  if (!HasAvx2()) GTEST_SKIP() << "this processor has no AVX2";
  for (std::size_t size = 1; size <= 18; ++size) {
    for (std::size_t point = 0; point <= size; ++point) {
      std::string text;
      for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('9' - i % 9);
      if (point < size) text[point] = '.';
      const bool is_short = size <= 15 && (size > 1 || point == size);
      ExpectTrueOrNone(text, is_short);
      ExpectTrueOrNone("-" + text, is_short);
    }
  }
}

TEST(VectorNumber, LeavesOtherTexts) {
  if (!HasAvx2()) GTEST_SKIP() << "this processor has no AVX2";
  for (const char* text : {"-", ".", "-.", "+1", "1..5", "1E5", "--1", "1-", "1 2", "1/",
                           "1:", "INF", "0X1", "\xB1", "1234567890123456"}) {
    EXPECT_FALSE(VectorNumber(text, ' ').has_value()) << text;
  }
}

TEST(VectorNumber, AgreesForRandomTexts) {
  if (!HasAvx2()) GTEST_SKIP() << "this processor has no AVX2";
  static const std::string kCharacters = "0123456789012345678901234567890123456789..-+eD /:\x80";
  std::mt19937 random(7);
  for (int round = 0; round < 50'000; ++round) {
    std::string text;
    const std::size_t size = 1 + random() % 18;
    for (std::size_t i = 0; i < size; ++i) text += kCharacters[random() % kCharacters.size()];
    ExpectTrueOrNone(text, false);
    if (testing::Test::HasFatalFailure()) return;
  }
}

#else

TEST(VectorNumber, IsForProcessorsWithAvx2) { GTEST_SKIP() << "this build has no AVX2"; }

#endif

}  // namespace
}  // namespace quarvel::text
