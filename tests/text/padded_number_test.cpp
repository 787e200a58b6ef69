#include "text/padded_number.h"

#include <cmath>
#include <cstddef>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

// What the text gives in a buffer with that byte behind it: the same as ParseNumber, to the sign of
// a zero.
void ExpectAgreement(const std::string& text, char behind) {
  const std::string buffer = text + std::string(kNumberPadding, behind);
  const std::optional<double> expected = ParseNumber(text);
  double value = 0;
  const bool numeric = ParsePaddedNumber(std::string_view(buffer).substr(0, text.size()), value);
  ASSERT_EQ(numeric, expected.has_value()) << "\"" << text << "\"";
  if (!numeric) return;
  ASSERT_EQ(value, *expected) << text;
  ASSERT_EQ(std::signbit(value), std::signbit(*expected)) << text;
}

void ExpectAgreement(const std::string& text) {
  for (const char behind : {'0', '9', '.', ' ', '\n', 'E', '\0'}) ExpectAgreement(text, behind);
}

constexpr const char* kTexts[] = {"",
                                  "-",
                                  ".",
                                  "-.",
                                  "+",
                                  "+1",
                                  "0",
                                  "-0",
                                  "-0.0",
                                  "5",
                                  "5.",
                                  ".5",
                                  "-.5",
                                  "1.5",
                                  "1..5",
                                  "12345678",
                                  "123456789",
                                  "1234567.",
                                  ".1234567",
                                  ".12345678",
                                  ".123456789",
                                  "12345678.",
                                  "123456789.",
                                  "12345678.12345678",
                                  "1234567.1234567",
                                  "12345678.123456",
                                  "99999999.999999",
                                  "999999999999999",
                                  "9999999999999999",
                                  "-99999999.999999",
                                  "1E5",
                                  "1D5",
                                  "1E",
                                  "--1",
                                  "1-",
                                  "1 2",
                                  " 1",
                                  "1e400",
                                  "INF",
                                  "NAN",
                                  "0X1"};

TEST(PaddedNumber, IsTheNumberWithoutWhatStandsBehindIt) {
  for (const char* text : kTexts) ExpectAgreement(text);
}

TEST(PaddedNumber, AgreesForEveryPlaceOfThePoint) {
  for (std::size_t size = 1; size <= 18; ++size) {
    for (std::size_t point = 0; point <= size; ++point) {
      std::string text;
      for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('1' + i % 9);
      if (point < size) text[point] = '.';
      ExpectAgreement(text);
      ExpectAgreement("-" + text);
    }
  }
}

TEST(PaddedNumber, AgreesForRandomTexts) {
  static const std::string kCharacters = "0123456789012345678901234567890123456789..-+eD /:\x80";
  std::mt19937 random(7);
  for (int round = 0; round < 200'000; ++round) {
    std::string text;
    const std::size_t size = random() % 20;
    for (std::size_t i = 0; i < size; ++i) text += kCharacters[random() % kCharacters.size()];
    ExpectAgreement(text, static_cast<char>(random()));
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace quarvel::text
