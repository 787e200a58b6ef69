// Text of unknown origin as a terminal may show it. What would steer the terminal, turn round the
// direction of what stands beside it, or end a line, is shown as an escape instead:
//
//   \x1B    control characters of ASCII (U+0000 to U+001F, U+007F); each byte that is not UTF-8
//   \u009B  the others: U+0080 to U+009F, the marks of direction U+061C, U+200E, U+200F,
//           U+202A to U+202E and U+2066 to U+2069, the separators U+2028 and U+2029
//
// A backslash stays one: this is for eyes, and nobody reads it back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarvel::text {

enum class LineEnds {
  kEscaped,  // like every other control character
  kBlank,    // one blank for each CR LF; an LF or CR alone is escaped
  kKept,     // one LF for each CR LF, LF and CR
};

std::string VisibleText(std::string_view text, LineEnds line_ends = LineEnds::kEscaped);

// Words of our own, whose lines end in CR LF, with foreign ones in them, for one line of a terminal.
inline std::string OneLine(std::string_view text) { return VisibleText(text, LineEnds::kBlank); }

// The character at the front of a text that is not empty. A byte that begins no valid one is a
// character of its own.
struct Character {
  char32_t code;
  std::size_t size;  // in bytes
  bool valid;
};
Character FirstCharacter(std::string_view text);

// True for those that are never shown as they are.
bool IsSteering(char32_t code);

// Four hexadecimal digits behind "\u". Only for codes up to U+FFFF.
void AppendCodeEscape(std::string& out, char32_t code);

}  // namespace quarvel::text
