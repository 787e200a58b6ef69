// Numbers keep their point whatever the process's locale says.
#include <clocale>
#include <cstdio>
#include <initializer_list>
#include <locale>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "text/numbers.h"
#include "text/picture.h"
#include "text/upper_case.h"

namespace quarvel {
namespace {

class DecimalCommaPunctuation : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

// A decimal comma in the C++ streams always and, where the system has such a locale, in the C
// library.
class DecimalCommaLocale {
 public:
  DecimalCommaLocale()
      : previous_(std::locale::global(std::locale(std::locale(), new DecimalCommaPunctuation))),
        previous_c_(std::setlocale(LC_ALL, nullptr)) {
    for (const char* name :
         {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8", "de-DE", "German"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
  }
  ~DecimalCommaLocale() {
    std::locale::global(previous_);
    std::setlocale(LC_ALL, previous_c_.c_str());
  }
  DecimalCommaLocale(const DecimalCommaLocale&) = delete;
  DecimalCommaLocale& operator=(const DecimalCommaLocale&) = delete;

 private:
  std::locale previous_;
  std::string previous_c_;
};

std::string StreamText(double value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

TEST(DecimalComma, IsInForceDuringTheseTests) {
  {
    const DecimalCommaLocale locale;
    EXPECT_EQ(StreamText(12345.5), "12.345,5");
  }
  EXPECT_EQ(StreamText(12345.5), "12345.5");
}

TEST(DecimalComma, DoesNotReachGeneralText) {
  const DecimalCommaLocale locale;
  EXPECT_EQ(text::GeneralText(12345.5), "12345.5");
  EXPECT_EQ(text::GeneralText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(text::GeneralText(1.5e-7), "1.5E-07");
  EXPECT_EQ(text::GeneralText(1e10), "10000000000");
  EXPECT_EQ(text::IntegerText(1234567), "1234567");
}

TEST(DecimalComma, DoesNotReachPictures) {
  const DecimalCommaLocale locale;
  EXPECT_EQ(text::PictureText(12345.5, text::Picture::kElement), "12345.5");
  EXPECT_EQ(text::PictureText(2.0 / 3, text::Picture::kBound), "0.66666666667");
  EXPECT_EQ(text::PictureText(5, text::Picture::kWideBound), "5.");
  EXPECT_EQ(text::PercentText(0.12345), "12.35%");
}

TEST(DecimalComma, DoesNotReachParsing) {
  const DecimalCommaLocale locale;
  EXPECT_EQ(text::ParseNumber("2.5"), 2.5);
  EXPECT_EQ(text::ParseNumber("0.33333333333333331482961625624739"), 1.0 / 3);
  EXPECT_EQ(text::ParseNumber("1.5D-300"), 1.5e-300);
  EXPECT_EQ(text::ParseNumber("2,5"), std::nullopt);
  EXPECT_EQ(text::ParseNumber("12.345,5"), std::nullopt);
}

TEST(DecimalComma, DoesNotReachUpperCase) {
  const DecimalCommaLocale locale;
  EXPECT_EQ(text::UpperCase("iı\xC3\xA4"), "Iı\xC3\x84");
}

}  // namespace
}  // namespace quarvel
