#include "text/numbers.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <system_error>

#include "text/decimal.h"

namespace quarvel::text {
namespace {

// A digit string below 2^53 times or over an exact power of ten is rounded once, so correctly,
// unless the processor keeps more bits than a double has.
static_assert(FLT_EVAL_METHOD == 0, "compile with plain double arithmetic (-msse2 -mfpmath=sse)");

constexpr int kLargestPlainPlace = kSignificantDigits - 1;
constexpr int kSmallestPlainPlace = -4;

// `place` is that of the first digit: 0 for the one in front of the point.
void AppendExponentText(std::string& out, Decimal decimal, int place) {
  if (decimal.negative) out += '-';
  const DigitText text(decimal.digits);
  const std::string_view digits = text.view();
  out += digits[0];
  if (digits.size() > 1) {
    out += '.';
    out += digits.substr(1);
  }
  out += place < 0 ? "E-" : "E+";
  const DigitText exponent(static_cast<std::uint64_t>(std::abs(place)));
  if (exponent.size() < 2) out += '0';
  out += exponent.view();
}

void AppendRoundedText(std::string& out, Decimal decimal) {
  const int place = DigitText(decimal.digits).size() - 1 + decimal.exponent;
  if (place > kLargestPlainPlace || place < kSmallestPlainPlace ||
      -decimal.exponent > kSignificantDigits) {
    AppendExponentText(out, decimal, place);
  } else {
    AppendPlainText(out, decimal);
  }
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A numeric text taken apart: `magnitude` is all but blanks and sign. `digits` holds the digits of
// the mantissa only when there are at most kMaxAccumulated of them; the mantissa's characters are
// kept for the rest.
struct ScannedNumber {
  bool negative = false;
  bool standard_exponent = true;
  std::string_view magnitude;
  std::string_view mantissa;
  std::uint64_t digits = 0;
  std::ptrdiff_t digit_count = 0;
  std::ptrdiff_t fraction_digits = 0;
  std::int64_t exponent = 0;
};

constexpr std::ptrdiff_t kMaxAccumulated = 19;

// Accumulates in a local: the compiler must assume that a stored number is part of the text.
const char* ScanDigits(const char* at, const char* end, std::uint64_t& digits) {
  std::uint64_t accumulated = digits;
  for (; at != end && IsDigit(*at); ++at) {
    accumulated = accumulated * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  digits = accumulated;
  return at;
}

// Reads "E+12" to its very end. The magnitude stops growing where no length of digits in memory
// could bring the number back into range.
bool ScanExponent(const char* at, const char* end, std::int64_t& exponent) {
  constexpr std::int64_t kFarAway = 1'000'000'000'000'000;
  if (*at != 'E' && *at != 'e' && *at != 'D' && *at != 'd') return false;
  ++at;
  bool negative = false;
  if (at != end && (*at == '+' || *at == '-')) negative = *at++ == '-';
  if (at == end) return false;
  std::int64_t magnitude = 0;
  for (; at != end; ++at) {
    if (!IsDigit(*at)) return false;
    if (magnitude < kFarAway) magnitude = magnitude * 10 + (*at - '0');
  }
  exponent = negative ? -magnitude : magnitude;
  return true;
}

bool Scan(std::string_view text, ScannedNumber& number) {
  const char* at = text.data();
  const char* end = at + text.size();
  while (at != end && *at == ' ') ++at;
  while (at != end && end[-1] == ' ') --end;
  if (at != end && (*at == '+' || *at == '-')) number.negative = *at++ == '-';

  const char* const begin = at;
  at = ScanDigits(at, end, number.digits);
  number.digit_count = at - begin;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    at = ScanDigits(at, end, number.digits);
    number.fraction_digits = at - fraction;
    number.digit_count += number.fraction_digits;
  }
  if (number.digit_count == 0) return false;
  number.mantissa = std::string_view(begin, static_cast<std::size_t>(at - begin));
  number.magnitude = std::string_view(begin, static_cast<std::size_t>(end - begin));
  if (at == end) return true;
  number.standard_exponent = *at == 'E' || *at == 'e';
  return ScanExponent(at, end, number.exponent);
}

// True when digits * 10^exponent takes a single rounding.
bool IsExactProduct(std::uint64_t digits, std::int64_t exponent) {
  constexpr std::uint64_t kExactIntegers = std::uint64_t{1} << 53;
  constexpr std::int64_t kMaxExponent = kExactPowersOfTen.size() - 1;
  return digits <= kExactIntegers && exponent >= -kMaxExponent && exponent <= kMaxExponent;
}

double ExactProduct(std::uint64_t digits, std::int64_t exponent) {
  // Signed on purpose: 32-bit processors convert signed integers much faster.
  const auto value = static_cast<double>(static_cast<std::int64_t>(digits));
  return exponent < 0 ? value / kExactPowersOfTen[static_cast<std::size_t>(-exponent)]
                      : value * kExactPowersOfTen[static_cast<std::size_t>(exponent)];
}

// The significant digits of a mantissa without zeros at either end. No value that lies half-way
// between two doubles has more than 767 digits, so of all digits behind the first 800 only matters
// whether one is not zero; a 1 stands for them.
class SignificantDigits {
 public:
  explicit SignificantDigits(std::string_view mantissa) {
    for (const char c : mantissa) {
      if (c != '.') Add(c);
    }
    if (rest_is_nonzero_) {
      text_[count_++] = '1';
      --dropped_;
    }
    while (count_ > 0 && text_[count_ - 1] == '0') {
      --count_;
      ++dropped_;
    }
  }

  std::size_t count() const { return count_; }
  // Digits left out behind the last one kept.
  std::int64_t dropped() const { return dropped_; }

  // The value times 10^exponent by the standard conversion. The digits stand in front of the point.
  std::from_chars_result Convert(int exponent, double& value) {
    char* end = text_ + count_;
    *end++ = 'e';
    end = std::to_chars(end, text_ + sizeof text_, exponent).ptr;
    return std::from_chars(text_, end, value);
  }

  std::uint64_t Integer() const {
    std::uint64_t digits = 0;
    ScanDigits(text_, text_ + count_, digits);
    return digits;
  }

 private:
  static constexpr std::size_t kMaxKept = 800;
  static constexpr std::size_t kExponentRoom = 16;

  void Add(char digit) {
    if (count_ == 0 && digit == '0') return;
    if (count_ < kMaxKept) {
      text_[count_++] = digit;
    } else {
      ++dropped_;
      rest_is_nonzero_ = rest_is_nonzero_ || digit != '0';
    }
  }

  char text_[kMaxKept + kExponentRoom];
  std::size_t count_ = 0;
  std::int64_t dropped_ = 0;
  bool rest_is_nonzero_ = false;
};

constexpr double kDoesNotFit = std::numeric_limits<double>::infinity();

// The standard conversion reports too large and too small alike; `place`, that of some digit of the
// number, tells them apart.
double Converted(const std::from_chars_result& result, double value, std::int64_t place) {
  if (result.ec != std::errc::result_out_of_range) return value;
  return place > 0 ? kDoesNotFit : 0;
}

// Few digits that are not an exact product.
double ConvertShort(const ScannedNumber& number) {
  double value = 0;
  const char* const begin = number.magnitude.data();
  const auto result = std::from_chars(begin, begin + number.magnitude.size(), value);
  return Converted(result, value, number.exponent - number.fraction_digits);
}

// Any number of digits and any exponent.
double ConvertLong(const ScannedNumber& number) {
  constexpr std::int64_t kLargestPlace = 308;
  constexpr std::int64_t kSmallestPlace = -324;
  SignificantDigits digits(number.mantissa);
  if (digits.count() == 0) return 0;
  const std::int64_t exponent = number.exponent - number.fraction_digits + digits.dropped();
  const std::int64_t first_place = exponent + static_cast<std::int64_t>(digits.count()) - 1;
  if (first_place > kLargestPlace) return kDoesNotFit;
  if (first_place < kSmallestPlace) return 0;

  if (digits.count() <= static_cast<std::size_t>(kMaxAccumulated) &&
      IsExactProduct(digits.Integer(), exponent)) {
    return ExactProduct(digits.Integer(), exponent);
  }
  double value = 0;
  const auto result = digits.Convert(static_cast<int>(exponent), value);
  return Converted(result, value, first_place);
}

double ConvertMagnitude(const ScannedNumber& number) {
  if (number.digit_count > kMaxAccumulated) return ConvertLong(number);
  const std::int64_t exponent = number.exponent - number.fraction_digits;
  if (IsExactProduct(number.digits, exponent)) return ExactProduct(number.digits, exponent);
  return number.standard_exponent ? ConvertShort(number) : ConvertLong(number);
}

// Most numbers of a file are a few digits with or without a point: at most 15 digits are below
// 2^53, and so an exact product. False leaves the text to the full scan.
bool ParseShort(std::string_view text, double& value) {
  constexpr std::ptrdiff_t kLongest = 16;
  const char* at = text.data();
  const char* const end = at + text.size();
  const bool negative = at != end && *at == '-';
  at += negative;
  const std::ptrdiff_t size = end - at;
  if (size == 0 || size > kLongest) return false;
  std::uint64_t digits = 0;
  const char* point = nullptr;
  for (; at != end; ++at) {
    const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
    if (digit < 10) {
      digits = digits * 10 + digit;
    } else if (*at == '.' && point == nullptr) {
      point = at;
    } else {
      return false;
    }
  }
  if (point == nullptr ? size == kLongest : size == 1) return false;
  value = ExactProduct(digits, point == nullptr ? 0 : point + 1 - end);
  if (negative) value = -value;
  return true;
}

}  // namespace

std::string GeneralText(double value) {
  std::string text;
  AppendGeneralText(text, value);
  return text;
}

void AppendGeneralText(std::string& out, double value) {
  if (std::isnan(value)) {
    out += "NaN";
  } else if (std::isinf(value)) {
    out += value < 0 ? "-Infinity" : "Infinity";
  } else if (IsShortInteger(value)) {
    out += IntegerText(static_cast<std::int64_t>(value));
  } else {
    AppendRoundedText(out, ToDecimal(value));
  }
}

std::string RoundTripText(double value) {
  std::string text = GeneralText(value);
  if (!std::isfinite(value) || ParseNumber(text) == value) return text;
  text.clear();
  const Decimal decimal = ToShortestDecimal(value);
  const int place = DigitText(decimal.digits).size() - 1 + decimal.exponent;
  if (place > kLargestPlainPlace || place < kSmallestPlainPlace) {
    AppendExponentText(text, decimal, place);
  } else {
    AppendPlainText(text, decimal);
  }
  return text;
}

std::string IntegerText(std::int64_t value) {
  char digits[24];
  return std::string(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

std::optional<double> ParseNumber(std::string_view text) {
  double short_value;
  if (ParseShort(text, short_value)) return short_value;
  ScannedNumber number;
  if (!Scan(text, number)) return std::nullopt;
  const double magnitude = ConvertMagnitude(number);
  if (magnitude == kDoesNotFit) return std::nullopt;
  return number.negative ? -magnitude : magnitude;
}

}  // namespace quarvel::text
