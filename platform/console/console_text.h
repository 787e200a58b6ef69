// Texts between the component's words and a terminal's.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/box.h"

namespace quarvel::platform::console {

// Everything that reaches the terminal goes through one of these three, or through
// text::VisibleText, for it may hold names and paths that would steer the terminal.

// With a terminal's own line ends, and one at the end.
std::string AsLines(std::string_view text);

// The words of a box as lines. Line ends are those of its own words: in the name of what it is about
// they are shown as escapes.
std::string BoxLines(const Box& box);

// `words` with that name in them on one line.
std::string WithNameOnOneLine(std::string_view words, std::string_view name);

// Without the marks of access keys: "&OK" is "OK", "&&" is "&".
std::string PlainCaption(std::string_view caption);

// Without blanks and line ends at its ends.
std::string_view Trimmed(std::string_view text);

// Whether two words differ in nothing but the case of ASCII letters.
bool SameWord(std::string_view a, std::string_view b);

}  // namespace quarvel::platform::console
