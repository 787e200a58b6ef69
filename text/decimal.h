// The decimal text of a double with 15 significant digits, held as two integers. General text and
// the picture formats both start from it, so that they agree on which digits a value has.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quarvel::text {

inline constexpr int kSignificantDigits = 15;

// digits * 10^exponent. Digits end in no zero and are at most 15; zero is {0, 0, false}.
struct Decimal {
  std::uint64_t digits = 0;
  int exponent = 0;
  bool negative = false;
};

// The nearest decimal of 15 significant digits to a finite value.
Decimal ToDecimal(double value);

// The fewest digits that read back to the same finite value, 17 at the most.
Decimal ToShortestDecimal(double value);

// The same number with its trailing zeros moved into the exponent; zero loses sign and exponent.
Decimal DropTrailingZeros(Decimal decimal);

// The digits of an unsigned integer, written into the object itself.
class DigitText {
 public:
  explicit DigitText(std::uint64_t integer);

  std::string_view view() const { return {buffer_, size_}; }
  int size() const { return static_cast<int>(size_); }

 private:
  char buffer_[20];
  std::size_t size_;
};

// Sign, digits and zeros without an exponent form, the point only in front of fraction digits.
void AppendPlainText(std::string& out, Decimal decimal);

// True for integers that 15 digits hold: they have a text without any rounding.
bool IsShortInteger(double value);

// The powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> kExactPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

}  // namespace quarvel::text
