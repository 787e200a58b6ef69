// How much room text takes on a terminal, in cells: two for the wide letters of East Asia, none for
// marks that join the letter before them, one for all else. For text without control characters
// (text/visible_text.h).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarvel::text {

// A byte that belongs to no valid character counts one.
std::size_t CellCount(std::string_view utf8);
std::size_t CellsOf(char32_t code);

// What stands for all that was cut off.
inline constexpr std::string_view kDots = "...";

// The text when it fits into so many cells; else its beginning and dots, in no more than these.
std::string CutToCells(std::string_view utf8, std::size_t cells);

}  // namespace quarvel::text
