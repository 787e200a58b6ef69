// Texts between the component's words and a terminal's.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarvel::platform::console {

// With a terminal's own line ends, and one at the end.
std::string AsLines(std::string_view text);

// Without the marks of access keys: "&OK" is "OK", "&&" is "&".
std::string PlainCaption(std::string_view caption);

// The text's first `count` characters, or all of it.
std::string FirstCharacters(std::string_view utf8, std::size_t count);

// Without blanks and line ends at its ends.
std::string_view Trimmed(std::string_view text);

// Whether two words differ in nothing but the case of ASCII letters.
bool SameWord(std::string_view a, std::string_view b);

}  // namespace quarvel::platform::console
