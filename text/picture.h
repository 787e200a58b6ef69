// Picture formats: the fixed-point number texts of MPS files, length checks and percentages.
//
// A picture shows every integer digit (at least one), always the decimal point, and a limited
// number of fraction digits with trailing zeros dropped: 5 is "5.", -2.25 is "-2.25", 0.5 is "0.5".
// The value is first taken as its decimal text of 15 significant digits and that text is rounded
// half away from zero. Zero, and what rounds to it, carries no sign. Never an exponent: 1E+300
// prints all of its 301 digits. A NaN or an infinity prints its general text.
#pragma once

#include <string>

namespace quarvel::text {

enum class Picture {
  // Element, right-hand side and range values: "#########0.##########", 10 fraction digits.
  kElement,
  // Bound values that fit their field: "###########0.###########", 11 fraction digits.
  kBound,
  // Upper bounds that do not fit: "###################0.###########", 11 fraction digits.
  kWideBound,
};

std::string PictureText(double value, Picture picture);
void AppendPictureText(std::string& out, double value, Picture picture);

// The pattern "0.##%": 100 times the ratio with at most two fraction digits, the point always
// printed: 0.25 is "25.%", 0.12345 is "12.35%", 0 is "0.%".
std::string PercentText(double ratio);

}  // namespace quarvel::text
