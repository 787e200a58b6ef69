#include "text/picture.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "text/decimal.h"
#include "text/numbers.h"

namespace quarvel::text {
namespace {

constexpr int kPercentFractionDigits = 2;

constexpr int FractionDigits(Picture picture) { return picture == Picture::kElement ? 10 : 11; }

constexpr std::array<std::uint64_t, kSignificantDigits + 1> kPowersOfTen = [] {
  std::array<std::uint64_t, kSignificantDigits + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

Decimal RoundHalfAway(Decimal decimal, int fraction_digits) {
  const int dropped = -decimal.exponent - fraction_digits;
  if (dropped <= 0) return decimal;
  if (dropped > kSignificantDigits) return {};
  const std::uint64_t unit = kPowersOfTen[static_cast<std::size_t>(dropped)];
  std::uint64_t rounded = decimal.digits / unit;
  if (decimal.digits % unit * 2 >= unit) ++rounded;
  return DropTrailingZeros({rounded, -fraction_digits, decimal.negative});
}

void AppendFixedPoint(std::string& out, Decimal decimal, int fraction_digits) {
  const Decimal rounded = RoundHalfAway(decimal, fraction_digits);
  AppendPlainText(out, rounded);
  if (rounded.exponent >= 0) out += '.';
}

}  // namespace

std::string PictureText(double value, Picture picture) {
  std::string text;
  AppendPictureText(text, value, picture);
  return text;
}

void AppendPictureText(std::string& out, double value, Picture picture) {
  if (!std::isfinite(value)) {
    AppendGeneralText(out, value);
  } else if (IsShortInteger(value)) {
    AppendGeneralText(out, value);
    out += '.';
  } else {
    AppendFixedPoint(out, ToDecimal(value), FractionDigits(picture));
  }
}

std::string PercentText(double ratio) {
  std::string text;
  if (std::isfinite(ratio)) {
    Decimal percentage = ToDecimal(ratio);
    // A shift of the decimal text cannot overflow and adds no rounding of its own.
    if (percentage.digits != 0) percentage.exponent += 2;
    AppendFixedPoint(text, percentage, kPercentFractionDigits);
  } else {
    AppendGeneralText(text, ratio);
  }
  text += '%';
  return text;
}

}  // namespace quarvel::text
