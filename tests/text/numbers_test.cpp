#include "text/numbers.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace quarvel {
namespace {

using text::GeneralText;
using text::IntegerText;
using text::ParseNumber;

constexpr double kGreatest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberText {
  double value;
  const char* text;
};

struct TextNumber {
  std::string text;
  double value;
};

void ExpectGeneralTexts(std::initializer_list<NumberText> cases) {
  for (const NumberText& c : cases) EXPECT_EQ(GeneralText(c.value), c.text);
}

// Equal in every bit, so that zeros of either sign differ.
void ExpectParsed(std::string_view text, double expected) {
  const std::optional<double> value = ParseNumber(text);
  ASSERT_TRUE(value.has_value()) << text;
  EXPECT_EQ(*value, expected) << text;
  EXPECT_EQ(std::signbit(*value), std::signbit(expected)) << text;
}

void ExpectParsed(std::initializer_list<TextNumber> cases) {
  for (const TextNumber& c : cases) ExpectParsed(c.text, c.value);
}

void ExpectNotNumeric(std::initializer_list<std::string> texts) {
  for (const std::string& text : texts) EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

std::string Zeros(std::size_t count) { return std::string(count, '0'); }

// Any finite double with equal chance for every bit pattern.
double RandomDouble(std::mt19937_64& random) {
  for (;;) {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) return value;
  }
}

// A decimal of up to `max_digits` digits with an exponent up to `max_exponent` either way.
std::string RandomDecimal(std::mt19937_64& random, int max_digits, int max_exponent) {
  const auto below = [&random](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  std::string text = below(2) == 0 ? "" : "-";
  const int digits = 1 + below(max_digits);
  const int point = below(digits + 1);
  for (int i = 0; i < digits; ++i) {
    if (i == point) text += '.';
    text += static_cast<char>('0' + below(10));
  }
  return text + "E" + std::to_string(below(2 * max_exponent + 1) - max_exponent);
}

std::string Printed(const char* format, double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, value);
  return buffer;
}

TEST(GeneralText, WritesWholeNumbersPlainly) {
  ExpectGeneralTexts({{1, "1"},
                      {-7, "-7"},
                      {10, "10"},
                      {1e10, "10000000000"},
                      {-1e10, "-10000000000"},
                      {123456789012345, "123456789012345"},
                      {2147483648.0, "2147483648"}});
}

TEST(GeneralText, WritesFractionsPlainly) {
  ExpectGeneralTexts({{-3.5, "-3.5"},
                      {0.5, "0.5"},
                      {0.1, "0.1"},
                      {0.0001, "0.0001"},
                      {-0.00012, "-0.00012"},
                      {1234.5678, "1234.5678"},
                      {99999999999999.5, "99999999999999.5"},
                      {0.3, "0.3"}});
}

TEST(GeneralText, KeepsFifteenDigits) {
  ExpectGeneralTexts({{1.0 / 3, "0.333333333333333"},
                      {2.0 / 3, "0.666666666666667"},
                      {0.1 + 0.2, "0.3"},
                      {3.14159265358979312, "3.14159265358979"},
                      {100.0 / 3, "33.3333333333333"},
                      {123456789.123456789, "123456789.123457"}});
}

TEST(GeneralText, DropsTheZerosThatRoundingLeaves) {
  ExpectGeneralTexts({{0.99999999999999989, "1"},
                      {4.99999999999999911, "5"},
                      {999999999999999.9, "1E+15"},
                      {0.000099999999999999991, "0.0001"}});
}

TEST(GeneralText, TurnsToExponentsAtSixteenIntegerDigits) {
  ExpectGeneralTexts({{1e14, "100000000000000"},
                      {999999999999999, "999999999999999"},
                      {1e15, "1E+15"},
                      {-1.5e15, "-1.5E+15"},
                      {1234567890123456, "1.23456789012346E+15"},
                      {1e22, "1E+22"},
                      {1e100, "1E+100"},
                      {1e300, "1E+300"}});
}

TEST(GeneralText, TurnsToExponentsBelowTheFourthPlaceOrFifteenPlaces) {
  ExpectGeneralTexts({{0.00001, "1E-05"},
                      {0.000099, "9.9E-05"},
                      {1.5e-7, "1.5E-07"},
                      {0.123456789012345, "0.123456789012345"},
                      {0.0123456789012346, "1.23456789012346E-02"},
                      {0.0123456789012345678, "1.23456789012346E-02"},
                      {0.012345678901234, "0.012345678901234"},
                      {0.00012345678901, "0.00012345678901"},
                      {0.000123456789012, "0.000123456789012"},
                      {0.0001234567890123, "1.234567890123E-04"},
                      {-1e-300, "-1E-300"}});
}

TEST(GeneralText, WritesZeroOfEitherSignAlike) { ExpectGeneralTexts({{0.0, "0"}, {-0.0, "0"}}); }

TEST(GeneralText, NamesWhatIsNotFinite) {
  ExpectGeneralTexts({{std::numeric_limits<double>::quiet_NaN(), "NaN"},
                      {kInfinity, "Infinity"},
                      {-kInfinity, "-Infinity"}});
}

TEST(GeneralText, KeepsFifteenDigitsAtTheEndsOfTheRange) {
  ExpectGeneralTexts({{kGreatest, "1.79769313486232E+308"},
                      {-kGreatest, "-1.79769313486232E+308"},
                      {std::numeric_limits<double>::min(), "2.2250738585072E-308"},
                      {kSmallest, "4.94065645841247E-324"}});
}

TEST(GeneralText, AppendsBehindWhatIsThere) {
  std::string text = "x = ";
  text::AppendGeneralText(text, 2.5);
  text::AppendGeneralText(text, -1);
  EXPECT_EQ(text, "x = 2.5-1");
}

// In scientific form the C library prints the same fifteen digits, with zeros at the end.
TEST(GeneralText, HasTheDigitsOfTheCLibrary) {
  std::mt19937_64 random(20240611);
  for (int i = 0; i < 50000; ++i) {
    const double value =
        i % 2 == 0 ? RandomDouble(random) : static_cast<double>(random() % 2000000000) / 1e5 - 1e4;
    const std::string text = GeneralText(value);
    const std::optional<double> parsed = ParseNumber(text);
    ASSERT_TRUE(parsed.has_value()) << text;
    ASSERT_EQ(Printed("%.14e", *parsed), Printed("%.14e", value)) << text;
  }
}

TEST(GeneralText, AgreesWithTheCLibraryWhereBothArePlain) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const double value = 1 + static_cast<double>(random() % 1000000000) / 4096;
    ASSERT_EQ(GeneralText(value), Printed("%.15g", value));
  }
}

TEST(GeneralText, ReadsBackToTheSameText) {
  std::mt19937_64 random(42);
  for (int i = 0; i < 50000; ++i) {
    const std::string text = GeneralText(RandomDouble(random));
    const std::optional<double> parsed = ParseNumber(text);
    ASSERT_TRUE(parsed.has_value()) << text;
    ASSERT_EQ(GeneralText(*parsed), text);
  }
}

TEST(GeneralText, GivesBackEveryDecimalOfFifteenDigits) {
  std::mt19937_64 random(43);
  for (int i = 0; i < 20000; ++i) {
    const double value = static_cast<double>(random() % 1000000000000000) / 1e7;
    ASSERT_EQ(ParseNumber(GeneralText(value)), value);
  }
}

TEST(IntegerText, WritesTheWholeRange) {
  EXPECT_EQ(IntegerText(0), "0");
  EXPECT_EQ(IntegerText(-1), "-1");
  EXPECT_EQ(IntegerText(2147483647), "2147483647");
  EXPECT_EQ(IntegerText(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
  EXPECT_EQ(IntegerText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(ParseNumber, AcceptsDigitsWithAnOptionalPoint) {
  ExpectParsed({{"5", 5}, {"5.", 5}, {".5", 0.5}, {"5.25", 5.25}, {"007", 7}, {"0", 0}, {"0.", 0}});
}

TEST(ParseNumber, AcceptsASign) {
  ExpectParsed({{"+5", 5}, {"-5", -5}, {"-.5", -0.5}, {"+5.", 5}, {"-0", -0.0}, {"+0.0", 0.0}});
}

TEST(ParseNumber, AcceptsExponentsWithEAndDInEitherCase) {
  ExpectParsed({{"1E3", 1000},
                {"1e3", 1000},
                {"1D3", 1000},
                {"1d3", 1000},
                {"1.5E+2", 150},
                {"1.5D-2", 0.015},
                {".5E1", 5},
                {"5.E1", 50},
                {"1E+010", 1e10},
                {"1E-000", 1},
                {"-2.5e00000000000000000000000000000001", -25}});
}

TEST(ParseNumber, AcceptsLongMantissasBeforeEitherExponentLetter) {
  ExpectParsed({{"0.3333333333333333314829616256247391E0", 1.0 / 3},
                {"0.3333333333333333314829616256247391D0", 1.0 / 3},
                {"+333333333333333331.4829616256247391d-18", 1.0 / 3}});
}

TEST(ParseNumber, AcceptsBlanksAround) {
  ExpectParsed({{" 5", 5}, {"5 ", 5}, {"   -1.5E1   ", -15}});
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
  ExpectNotNumeric({"", " ", ".", "+", "-", "+.", "E", "E5", ".E5", "-E5", "ABC", "RHS", "5X"});
}

TEST(ParseNumber, RefusesIncompleteExponents) {
  ExpectNotNumeric({"5E", "5E+", "5D-", "5E ", "5E1.5", "5E1E1", "5EE1", "5E+-1", "5F1"});
}

TEST(ParseNumber, RefusesBlanksAndSignsInside) {
  ExpectNotNumeric({"1 2", "- 5", "+-5", "--5", "5-", "5+", "1 E5", "1E 5", "1. 5"});
}

TEST(ParseNumber, RefusesOtherWhiteSpace) {
  const std::string no_break_space = "\xC2\xA0";
  ExpectNotNumeric({"\t5", "5\t", "5\n", "5\r", "\v5", no_break_space + "5"});
}

TEST(ParseNumber, RefusesOtherNotations) {
  ExpectNotNumeric({"0X1F", "0x1f", "1P3", "INF", "-INF", "Infinity", "NAN", "nan(1)", "1,5",
                    "1,000", "1_000", "1'000", "$5", "5%", "(5)", "&H1F", "1.2.3", "5#", "5!"});
}

TEST(ParseNumber, RefusesNulBytes) {
  ExpectNotNumeric({std::string("5\0", 2), std::string("\0", 1), std::string("5\0005", 3)});
}

TEST(ParseNumber, RefusesMagnitudesAboveADouble) {
  ExpectNotNumeric({"1E309", "-1E309", "1.8E308", "1.79769313486232E+308", "179769313486232E+294",
                    "1E400", "1D999999999", "0.0001E400", "1E+99999999999999999999999999999999",
                    "1" + Zeros(309), "-1" + Zeros(5000) + ".5", "." + Zeros(10) + "1E1000"});
}

TEST(ParseNumber, RoundsAtTheGreatestDouble) {
  ExpectParsed({{"1.7976931348623157E308", kGreatest},
                {"1.7976931348623158E308", kGreatest},
                {"1.79769313486231E+308", 1.79769313486231e308},
                // Just below the midpoint of the greatest double and the next power of two.
                {"1.797693134862315807e308", kGreatest}});
  ExpectNotNumeric({"1.797693134862315808e308", "1.7976931348623159E308"});
}

TEST(ParseNumber, TakesTooSmallMagnitudesAsZeroOfTheSameSign) {
  ExpectParsed({{"1E-400", 0.0},
                {"-1E-400", -0.0},
                {"1E-999999999", 0.0},
                {"-1D-99999999999999999999999999999999999", -0.0},
                {"." + Zeros(400) + "1", 0.0},
                {"-1" + Zeros(100) + "E-500", -0.0},
                {"2.4703282292062327e-324", 0.0},
                {"1E-324", 0.0}});
}

TEST(ParseNumber, KeepsSubnormals) {
  ExpectParsed({{"4.94065645841247E-324", kSmallest},
                {"5E-324", kSmallest},
                {"2.4703282292062328e-324", kSmallest},
                {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},
                {"2.2250738585072014e-308", 0x1p-1022}});
}

TEST(ParseNumber, TakesZeroWithAnyExponent) {
  ExpectParsed({{"0E999999999", 0.0},
                {"-0E999999999", -0.0},
                {"0.000E-99999999999999999999999999", 0.0},
                {Zeros(1000) + "." + Zeros(1000) + "E" + std::string(500, '9'), 0.0}});
}

TEST(ParseNumber, BalancesLongDigitStringsAgainstTheirExponents) {
  ExpectParsed({{"1" + Zeros(100000) + "E-100000", 1},
                {"0." + Zeros(100000) + "25E100002", 25},
                {"-0." + Zeros(99999) + "5E+0000100000", -5},
                {Zeros(100000) + "12.5", 12.5},
                {"12.5" + Zeros(100000), 12.5},
                {"7" + Zeros(70000) + "." + Zeros(70000) + "E-70000", 7}});
}

TEST(ParseNumber, RoundsHalfwayCasesToEven) {
  ExpectParsed({{"9007199254740993", 9007199254740992.0},
                {"9007199254740995", 9007199254740996.0},
                {"9007199254740993.0", 9007199254740992.0},
                {"9007199254740992.999999999999999999999", 9007199254740992.0},
                {"1.00000000000000011102230246251565404236316680908203125", 1},
                {"1.00000000000000033306690738754696212708950042724609375", 0x1.0000000000002p0}});
}

TEST(ParseNumber, SeesADigitFarBehindAHalfwayCase) {
  const std::string halfway = "1.00000000000000011102230246251565404236316680908203125";
  ExpectParsed({{halfway + Zeros(2000) + "1", 0x1.0000000000001p0},
                {halfway + Zeros(2000), 1},
                {"9007199254740993." + Zeros(5000) + "1", 9007199254740994.0},
                {"9007199254740993." + Zeros(5000) + "0E0", 9007199254740992.0}});
}

TEST(ParseNumber, IsExactAroundItsShortestWay) {
  ExpectParsed({{"9007199254740992E22", 9007199254740992e22},
                {"9007199254740991E-22", 9007199254740991e-22},
                {"123456789012345678", 123456789012345678.0},
                {"9999999999999999999", 9999999999999999999.0},
                {"18446744073709551615", 18446744073709551615.0},
                {"18446744073709551616", 18446744073709551616.0},
                {"99999999999999999999", 99999999999999999999.0},
                {"1E23", 1e23},
                {"8.5E-23", 8.5e-23},
                {"0.30000000000000000000000000000", 0.3},
                {"0000000000000000000000000000.1", 0.1}});
}

TEST(ParseNumber, GivesBackEveryDoubleFromSeventeenDigits) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 50000; ++i) {
    const double value = RandomDouble(random);
    ASSERT_EQ(ParseNumber(Printed("%.16e", value)), value);
  }
}

TEST(ParseNumber, AgreesWithTheCLibrary) {
  std::mt19937_64 random(2);
  const struct {
    int max_digits;
    int max_exponent;
  } shapes[] = {{6, 3}, {17, 20}, {19, 30}, {25, 300}, {60, 350}, {1000, 30}};
  for (const auto& shape : shapes) {
    for (int i = 0; i < 5000; ++i) {
      const std::string text = RandomDecimal(random, shape.max_digits, shape.max_exponent);
      const double expected = std::strtod(text.c_str(), nullptr);
      if (std::isinf(expected)) {
        ASSERT_EQ(ParseNumber(text), std::nullopt) << text;
      } else {
        ASSERT_EQ(ParseNumber(text), expected) << text;
      }
    }
  }
}

}  // namespace
}  // namespace quarvel
