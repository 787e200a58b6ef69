#include "text/decimal.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace quarvel::text {
namespace {

constexpr double kFifteenDigitLimit = 1e15;
constexpr double kHalf = 0.5;

// Most values of a model have few fraction digits: 2.5, 0.001, 1234.75. When digits / 10^n divides
// back to the value itself, those digits are the value's decimal text, because every decimal of up
// to 15 digits is recovered from its nearest double.
std::optional<Decimal> ShortDecimal(double magnitude) {
  for (const int fraction_digits : {6, 10}) {
    const double scale = kExactPowersOfTen[static_cast<std::size_t>(fraction_digits)];
    if (magnitude >= kFifteenDigitLimit / scale - 1) break;
    const double near_integer = magnitude * scale + kHalf;
    const auto digits = static_cast<std::int64_t>(near_integer);
    if (static_cast<double>(digits) / scale != magnitude) continue;
    return DropTrailingZeros({static_cast<std::uint64_t>(digits), -fraction_digits, false});
  }
  return std::nullopt;
}

// Reads what to_chars wrote: "d.ddde-XX" or "de+XX".
Decimal ReadScientific(const char* begin, const char* end) {
  Decimal decimal;
  int fraction_digits = 0;
  const char* at = begin;
  for (; *at != 'e'; ++at) {
    if (*at == '.') continue;
    decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(*at - '0');
    if (at != begin) ++fraction_digits;
  }
  ++at;
  if (*at == '+') ++at;
  std::from_chars(at, end, decimal.exponent);
  decimal.exponent -= fraction_digits;
  return decimal;
}

// Rounds shortest round-trip digits to 15. They lie on the same side of every half-way point as the
// value itself: a half-way point between the two would have been as short and nearer to the value.
// Only for digits that are such a point themselves the side is not known.
std::optional<Decimal> RoundShortest(Decimal shortest) {
  constexpr std::uint64_t kDigitsLimit = 1'000'000'000'000'000;
  if (shortest.digits < kDigitsLimit) return shortest;
  const int dropped = shortest.digits < 10 * kDigitsLimit ? 1 : 2;
  const std::uint64_t unit = dropped == 1 ? 10 : 100;
  const std::uint64_t rest = shortest.digits % unit;
  if (rest * 2 == unit) return std::nullopt;
  const std::uint64_t rounded = shortest.digits / unit + (rest * 2 > unit ? 1 : 0);
  return DropTrailingZeros({rounded, shortest.exponent + dropped, false});
}

Decimal LongDecimal(double magnitude) {
  char buffer[40];
  char* const limit = buffer + sizeof buffer;
  // The shortest round-trip digits are found faster than 15 digits. Subnormals have too few of
  // them.
  if (magnitude >= std::numeric_limits<double>::min()) {
    if (const auto decimal = RoundShortest(ToShortestDecimal(magnitude))) return *decimal;
  }
  const auto written = std::to_chars(buffer, limit, magnitude, std::chars_format::scientific,
                                     kSignificantDigits - 1);
  return DropTrailingZeros(ReadScientific(buffer, written.ptr));
}

}  // namespace

Decimal ToDecimal(double value) {
  const double magnitude = std::fabs(value);
  if (magnitude == 0) return {};
  const std::optional<Decimal> short_decimal = ShortDecimal(magnitude);
  Decimal decimal = short_decimal ? *short_decimal : LongDecimal(magnitude);
  decimal.negative = value < 0;
  return decimal;
}

Decimal ToShortestDecimal(double value) {
  char buffer[40];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                     std::chars_format::scientific);
  Decimal decimal = ReadScientific(buffer, written.ptr);
  decimal.negative = value < 0;
  return decimal;
}

Decimal DropTrailingZeros(Decimal decimal) {
  if (decimal.digits == 0) return {};
  while (decimal.digits % 10 == 0) {
    decimal.digits /= 10;
    ++decimal.exponent;
  }
  return decimal;
}

DigitText::DigitText(std::uint64_t integer)
    : size_(static_cast<std::size_t>(std::to_chars(buffer_, buffer_ + sizeof buffer_, integer).ptr -
                                     buffer_)) {}

void AppendPlainText(std::string& out, Decimal decimal) {
  if (decimal.negative) out += '-';
  const DigitText text(decimal.digits);
  const std::string_view digits = text.view();
  const int integer_digits = text.size() + decimal.exponent;
  if (decimal.exponent >= 0) {
    out += digits;
    out.append(static_cast<std::size_t>(decimal.exponent), '0');
  } else if (integer_digits > 0) {
    out += digits.substr(0, static_cast<std::size_t>(integer_digits));
    out += '.';
    out += digits.substr(static_cast<std::size_t>(integer_digits));
  } else {
    out += "0.";
    out.append(static_cast<std::size_t>(-integer_digits), '0');
    out += digits;
  }
}

bool IsShortInteger(double value) {
  return std::fabs(value) < kFifteenDigitLimit && std::trunc(value) == value;
}

}  // namespace quarvel::text
