// What the component's writer (mps_writer.h) and the exact one (exact_writer.h) both put into a file: the
// headers of the sections and where fixed columns begin and end.
#pragma once

#include <cstddef>
#include <string_view>

namespace quarvel::mps {

// In characters: a name takes up to 8 of 10, a value stands at the right end of 12.
inline constexpr std::size_t kLongestFixedName = 8;
inline constexpr std::size_t kNameWidth = 10;
inline constexpr std::size_t kValueWidth = 12;

inline constexpr std::string_view kNewLine = "\r\n";
inline constexpr std::string_view kWordGap = "  ";  // behind what left the fixed columns
inline constexpr std::string_view kCommentStart = "* ";
inline constexpr std::string_view kEntryIndent = "    ";
inline constexpr std::string_view kRowsHeader = "ROWS";
inline constexpr std::string_view kColumnsHeader = "COLUMNS";
inline constexpr std::string_view kRhsHeader = "RHS";
inline constexpr std::string_view kRangesHeader = "RANGES";
inline constexpr std::string_view kBoundsHeader = "BOUNDS";
inline constexpr std::string_view kEndHeader = "ENDATA";

// A writer hands its lines over once it has so many bytes of them.
inline constexpr std::size_t kHandOverSize = std::size_t{1} << 18;

}  // namespace quarvel::mps
