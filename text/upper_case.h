// Upper-casing of UTF-8 text, the same on every system and in every locale: the letters of ASCII,
// Latin-1, Latin Extended-A, Greek and Cyrillic that have a one-letter capital in Unicode. Left as
// they are: the sharp s, the micro sign, dotless i, long s, the apostrophe-n and kra (their
// capitals are missing, longer, or in another block), and every other character.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::text {

// ASCII only; any other byte is returned unchanged.
constexpr char UpperCaseAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperCase(std::string_view utf8);

}  // namespace quarvel::text
