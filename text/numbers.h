// Numbers to text and back. Nothing here looks at a locale: the decimal point is always ".", there
// are no digit separators, and the conversions are those of <charconv>.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quarvel::text {

// The general text of a double: the shortest text that reads back to the same 15 significant
// digits. Plain digits ("10000000000", "-3.5", "0.0001") while the first digit stands at most 15
// places left of the point or 4 places right of it and at most 15 digits stand on either side of
// the point; otherwise exponent form with a sign and at least two exponent digits ("1E+15",
// "1.5E-07", "1.23456789012346E-02"). Zero of either sign is "0". A NaN is "NaN", an infinity
// "Infinity" or "-Infinity"; no file and no input text gives these.
std::string GeneralText(double value);
void AppendGeneralText(std::string& out, double value);

// The shortest text that reads back to the same double: the general text where that does, else with
// the 16th and 17th digit. For boxes whose text is taken back: what nobody touched does not change.
std::string RoundTripText(double value);

// Decimal digits with a leading "-" when negative, no padding.
std::string IntegerText(std::int64_t value);

// The numeric test and the conversion in one: the value when `text` is numeric, nothing otherwise.
// Numeric: an optional sign, digits with an optional point ("5", "5.", ".5"), an optional exponent
// "E" or "D" (either case) with an optional sign and at least one digit; blanks (code 32) around it
// are allowed. Not numeric: "", "." , hexadecimal, "INF", "NAN", digit separators, and any number
// whose magnitude does not fit a double. A magnitude too small for a double is 0 of the same sign.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace quarvel::text
