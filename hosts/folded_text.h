// Lines that are no longer than a terminal is wide.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarvel::hosts {

// A line (without its end) in lines of no more than so many cells, broken at blanks; those after the first
// have `indent` blanks before them. A word that is longer than a line stays whole. With a width of 0, or one
// that leaves no room behind the indent, the line is given as it is. No line end at the end.
std::string FoldedLine(std::string_view line, std::size_t width, std::size_t indent);

// A help text, whose lines are already short enough for most: paragraphs and entries of lists with a line
// that is too long are filled anew, command lines ("  quarvel ...") stay as they are.
std::string FoldedHelp(std::string_view help, std::size_t width);

}  // namespace quarvel::hosts
