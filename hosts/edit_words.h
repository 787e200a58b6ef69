// The words of a line of the edit language. They are separated by blanks; a word in double quotes may
// hold blanks and be empty. In quotes \" \\ and \n stand for a quote, a backslash and a new line, and
// \u and four hexadecimal digits for the character of that code. A line whose first word starts with #
// has none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quarvel::hosts {

// The words of a line; none for a line that does nothing. Raises a CommandError for a quote that is
// not closed, for an escape that is none of these, and for \u without a character's code.
std::vector<std::string> SplitWords(std::string_view line);

// `word` as a line has it: as it is where that is one word, else in quotes. What would steer a
// terminal stands as its code. Gives the word back through SplitWords when it is UTF-8.
std::string QuotedWord(std::string_view word);

}  // namespace quarvel::hosts
