#include "text/picture.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "text/numbers.h"

namespace quarvel {
namespace {

using text::PercentText;
using text::Picture;
using text::PictureText;

constexpr Picture kAllPictures[] = {Picture::kElement, Picture::kBound, Picture::kWideBound};

struct PictureCase {
  double value;
  std::string text;
};

void ExpectTexts(Picture picture, std::initializer_list<PictureCase> cases) {
  for (const PictureCase& c : cases) EXPECT_EQ(PictureText(c.value, picture), c.text);
}

void ExpectTextsInEveryPicture(std::initializer_list<PictureCase> cases) {
  for (const Picture picture : kAllPictures) ExpectTexts(picture, cases);
}

TEST(PictureText, AlwaysPrintsThePoint) {
  ExpectTextsInEveryPicture({{5, "5."}, {3, "3."}, {-7, "-7."}, {0, "0."}, {100, "100."}});
}

TEST(PictureText, PrintsAtLeastOneIntegerDigit) {
  ExpectTextsInEveryPicture({{0.5, "0.5"}, {-0.25, "-0.25"}, {0.001, "0.001"}});
}

TEST(PictureText, DropsTrailingFractionZeros) {
  ExpectTextsInEveryPicture({{-2.25, "-2.25"}, {1.1, "1.1"}, {1234.5, "1234.5"}});
}

TEST(PictureText, NeedsTwelveCharactersForThePositiveBoundLimitAndThirteenForTheNegative) {
  ExpectTextsInEveryPicture({{1e10, "10000000000."}, {-1e10, "-10000000000."}});
  EXPECT_EQ(PictureText(1e10, Picture::kBound).size(), 12u);
  EXPECT_EQ(PictureText(-1e10, Picture::kBound).size(), 13u);
}

TEST(PictureText, KeepsTenFractionDigitsOfAnElementAndElevenOfABound) {
  ExpectTexts(Picture::kElement, {{1.0 / 3, "0.3333333333"}, {2.0 / 3, "0.6666666667"}});
  ExpectTexts(Picture::kBound, {{1.0 / 3, "0.33333333333"}, {2.0 / 3, "0.66666666667"}});
  ExpectTexts(Picture::kWideBound, {{1.0 / 3, "0.33333333333"}, {2.0 / 3, "0.66666666667"}});
}

TEST(PictureText, RoundsHalfAwayFromZero) {
  ExpectTexts(Picture::kElement, {{0.00000000005, "0.0000000001"},
                                  {-0.00000000005, "-0.0000000001"},
                                  {0.00000000015, "0.0000000002"},
                                  {0.00000000025, "0.0000000003"},
                                  {1.00000000005, "1.0000000001"},
                                  {1.00000000025, "1.0000000003"},
                                  {-1.00000000045, "-1.0000000005"},
                                  {0.00000000004, "0."},
                                  {1.00000000004, "1."}});
  ExpectTexts(Picture::kBound, {{0.000000000005, "0.00000000001"},
                                {-0.000000000025, "-0.00000000003"},
                                {2.000000000005, "2.00000000001"}});
}

TEST(PictureText, RoundsTheDecimalTextAndNotTheBinaryValue) {
  // The double nearest to 1.00000000035 lies below it, that nearest to 1.00000000015 above.
  ExpectTexts(Picture::kElement, {{1.00000000035, "1.0000000004"},
                                  {1.00000000015, "1.0000000002"},
                                  {0.12345678905, "0.1234567891"},
                                  // The fifteenth digit has been rounded up to a 5 already.
                                  {0.000012345649999999999, "0.0000123457"},
                                  {1000.00000000004999, "1000.0000000001"},
                                  {0.1 + 0.2, "0.3"}});
}

TEST(PictureText, CarriesIntoTheInteger) {
  ExpectTexts(Picture::kElement, {{0.99999999999, "1."},
                                  {9.99999999996, "10."},
                                  {-99.99999999996, "-100."},
                                  {0.19999999999, "0.2"}});
  ExpectTexts(Picture::kBound, {{0.999999999999, "1."}, {9.999999999996, "10."}});
}

TEST(PictureText, GivesZeroNoSign) {
  ExpectTextsInEveryPicture(
      {{-0.0, "0."}, {-1e-300, "0."}, {1e-300, "0."}, {-1e-12, "0."}, {-4e-12, "0."}});
  ExpectTexts(Picture::kElement, {{-0.00000000004, "0."}});
}

TEST(PictureText, PrintsEveryIntegerDigit) {
  ExpectTextsInEveryPicture({
      {123456789012345, "123456789012345."},
      {1e15, "1000000000000000."},
      {1234567890123456, "1234567890123460."},
      {-1e22, "-10000000000000000000000."},
      {1e300, "1" + std::string(300, '0') + "."},
      {std::numeric_limits<double>::max(), "179769313486232" + std::string(294, '0') + "."},
      {999999999999999.9, "1000000000000000."},
      {12345678901234.5, "12345678901234.5"},
  });
  EXPECT_EQ(PictureText(1e300, Picture::kElement).size(), 302u);
}

TEST(PictureText, NamesWhatIsNotFinite) {
  ExpectTextsInEveryPicture({{std::numeric_limits<double>::infinity(), "Infinity"},
                             {-std::numeric_limits<double>::infinity(), "-Infinity"},
                             {std::numeric_limits<double>::quiet_NaN(), "NaN"}});
}

TEST(PictureText, AppendsBehindWhatIsThere) {
  std::string text = "    ";
  text::AppendPictureText(text, 1.5, Picture::kElement);
  text::AppendPictureText(text, 2, Picture::kBound);
  EXPECT_EQ(text, "    1.52.");
}

TEST(PictureText, ReadsBackWithinItsRounding) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> exponent(-14, 20);
  for (int i = 0; i < 20000; ++i) {
    const double magnitude = std::pow(10, exponent(random));
    const double value = i % 2 == 0 ? magnitude : -magnitude;
    for (const Picture picture : kAllPictures) {
      const double half_unit = picture == Picture::kElement ? 0.5e-10 : 0.5e-11;
      const std::string text = PictureText(value, picture);
      ASSERT_NE(text.find('.'), std::string::npos) << text;
      ASSERT_NEAR(text::ParseNumber(text).value(), value, half_unit + magnitude * 1e-14) << text;
    }
  }
}

TEST(PictureText, GivesBackEveryDecimalThatFits) {
  std::mt19937_64 random(12);
  for (int i = 0; i < 20000; ++i) {
    const double value = static_cast<double>(random() % 1000000000000000) / 1e10;
    ASSERT_EQ(text::ParseNumber(PictureText(value, Picture::kElement)), value);
  }
}

TEST(PercentText, AlwaysPrintsThePoint) {
  EXPECT_EQ(PercentText(0), "0.%");
  EXPECT_EQ(PercentText(0.25), "25.%");
  EXPECT_EQ(PercentText(1), "100.%");
  EXPECT_EQ(PercentText(-0.5), "-50.%");
}

TEST(PercentText, KeepsTwoFractionDigits) {
  EXPECT_EQ(PercentText(0.125), "12.5%");
  EXPECT_EQ(PercentText(0.1225), "12.25%");
  EXPECT_EQ(PercentText(1.0 / 3), "33.33%");
  EXPECT_EQ(PercentText(2.0 / 3), "66.67%");
  EXPECT_EQ(PercentText(0.005), "0.5%");
}

TEST(PercentText, RoundsHalfAwayFromZero) {
  EXPECT_EQ(PercentText(0.12345), "12.35%");
  EXPECT_EQ(PercentText(0.12335), "12.34%");
  EXPECT_EQ(PercentText(0.00005), "0.01%");
  EXPECT_EQ(PercentText(-0.12345), "-12.35%");
  EXPECT_EQ(PercentText(0.99996), "100.%");
}

TEST(PercentText, GivesZeroNoSign) {
  EXPECT_EQ(PercentText(-0.0), "0.%");
  EXPECT_EQ(PercentText(-0.00004), "0.%");
}

TEST(PercentText, NeverOverflows) {
  EXPECT_EQ(PercentText(1e308), "1" + std::string(310, '0') + ".%");
}

}  // namespace
}  // namespace quarvel
