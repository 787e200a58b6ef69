// Any bytes as a number text, and their first eight as a double to be printed. The C library in its
// own locale is the second opinion on every value.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "text/numbers.h"
#include "text/picture.h"

namespace {

using quarvel::text::GeneralText;
using quarvel::text::ParseNumber;
using quarvel::text::Picture;
using quarvel::text::PictureText;

void Check(bool holds) {
  if (!holds) std::abort();
}

bool SameValue(double a, double b) { return a == b && std::signbit(a) == std::signbit(b); }

// Consumes the characters of `set` at the front of `text` and says how many there were.
std::size_t Skip(std::string_view& text, std::string_view set, std::size_t limit) {
  std::size_t count = 0;
  while (count < limit && !text.empty() && set.find(text.front()) != std::string_view::npos) {
    text.remove_prefix(1);
    ++count;
  }
  return count;
}

// The grammar once more, as plainly as it can be said.
bool LooksNumeric(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::size_t kAny = std::string_view::npos;
  Skip(text, " ", kAny);
  Skip(text, "+-", 1);
  std::size_t digits = Skip(text, kDigits, kAny);
  Skip(text, ".", 1);
  digits += Skip(text, kDigits, kAny);
  if (digits == 0) return false;
  if (Skip(text, "EeDd", 1) == 1) {
    Skip(text, "+-", 1);
    if (Skip(text, kDigits, kAny) == 0) return false;
  }
  Skip(text, " ", kAny);
  return text.empty();
}

double LibraryValue(std::string_view text) {
  std::string copy(text);
  for (char& c : copy) {
    if (c == 'D' || c == 'd') c = 'E';
  }
  return std::strtod(copy.c_str(), nullptr);
}

void CheckParsing(std::string_view text) {
  const std::optional<double> value = ParseNumber(text);
  if (!LooksNumeric(text)) {
    Check(!value);
    return;
  }
  const double expected = LibraryValue(text);
  Check(value ? SameValue(*value, expected) : std::isinf(expected));
  Check(ParseNumber(" " + std::string(text) + "  ") == value);
}

// The greatest doubles round up to a text that no double holds any more.
bool FifteenDigitsFit(double value) { return std::fabs(value) < 1.797693134862315e308; }

void CheckGeneralText(double value) {
  const std::string text = GeneralText(value);
  Check(text != "-0");
  if (!FifteenDigitsFit(value)) return;
  const std::optional<double> back = ParseNumber(text);
  Check(back.has_value());
  Check(GeneralText(*back) == text);
  Check(std::fabs(*back - value) <= std::fabs(value) * 1e-14);
}

void CheckPicture(double value, Picture picture, double half_unit) {
  const std::string text = PictureText(value, picture);
  Check(text.find('.') != std::string::npos);
  Check(text.find_first_not_of("-0123456789.") == std::string::npos);
  // A sign goes with a digit other than zero.
  Check(text[0] != '-' || text.find_first_of("123456789") != std::string::npos);
  if (!FifteenDigitsFit(value)) return;
  const std::optional<double> back = ParseNumber(text);
  Check(back.has_value());
  Check(std::fabs(*back - value) <= half_unit + std::fabs(value) * 1e-14);
  Check(PictureText(*back, picture) == text);
}

void CheckPrinting(double value) {
  CheckGeneralText(value);
  CheckPicture(value, Picture::kElement, 0.5000001e-10);
  CheckPicture(value, Picture::kBound, 0.5000001e-11);
  CheckPicture(value, Picture::kWideBound, 0.5000001e-11);
  const std::string percentage = quarvel::text::PercentText(value);
  Check(percentage.back() == '%' && percentage.find('.') != std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  CheckParsing(text);
  if (const std::optional<double> value = ParseNumber(text)) CheckPrinting(*value);
  double value = 0;
  if (size >= sizeof value) {
    std::memcpy(&value, data, sizeof value);
    if (std::isfinite(value)) CheckPrinting(value);
  }
  return 0;
}
