// The types of rows and of columns, with one table each. Whatever depends on a type is read off
// its line there; a letter stands for a type only at the public operations and in files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/bounds.h"

namespace quarvel::model {

// A fresh row has no type until it is given one.
enum class RowType : std::uint8_t { kNone, kFree, kGreater, kLess, kEqual, kRanged };

// What an entry of RANGES does to a row of that type.
enum class RangeEffect : std::uint8_t {
  kNothing,
  kSetsUpper,  // the size of the range above the lower bound
  kSetsLower,  // the size of the range below the upper bound
  kBySign,     // widens upwards when positive, else moves the lower bound by it
};

struct RowTypeTraits {
  RowType type;
  std::string_view letter;  // at the public operations
  // In ROWS of a file. A ranged row is written as another type and gets its range from RANGES.
  std::string_view file_letter;
  std::string_view word;  // in lists
  std::string_view noun;  // in sentences
  std::string_view sign;  // between a row and its bound, the upper one where it has both
  bool has_lower;
  bool has_upper;
  bool binds;  // counts as a binding row
  BoundsChange right_hand_side;
  RangeEffect range;

  // The letter may stand in ROWS of a file.
  constexpr bool in_files() const { return !letter.empty() && letter == file_letter; }
  // The bounds of a row that nobody has given any.
  constexpr double FreshLower() const { return has_lower ? 0 : -BoundLimit; }
  constexpr double FreshUpper() const { return has_upper ? 0 : BoundLimit; }
};

inline constexpr BoundsChange kNoChange{};
inline constexpr BoundsChange kSetsLower{BoundChange::kGiven, BoundChange::kKept};
inline constexpr BoundsChange kSetsUpperOnly{BoundChange::kAbsent, BoundChange::kGiven};
inline constexpr BoundsChange kSetsBoth{BoundChange::kGiven, BoundChange::kGiven};

// clang-format off
inline constexpr std::array<RowTypeTraits, 6> kRowTypes = {{
    // type, letter, file_letter, word, noun, sign,
    //     has_lower, has_upper, binds, right_hand_side, range
    {RowType::kNone, "", "", "", "", "",
         false, false, true,  kNoChange,      RangeEffect::kNothing},
    {RowType::kFree, "N", "N", "objective", "non-binding/objective", "",
         false, false, false, kNoChange,      RangeEffect::kNothing},
    {RowType::kGreater, "G", "G", "greater than", "greater-than constraint", ">=",
         true,  false, true,  kSetsLower,     RangeEffect::kSetsUpper},
    {RowType::kLess, "L", "L", "less than", "less-than constraint", "<=",
         false, true,  true,  kSetsUpperOnly, RangeEffect::kSetsLower},
    {RowType::kEqual, "E", "E", "equality", "equality constraint", "=",
         true,  true,  true,  kSetsBoth,      RangeEffect::kBySign},
    {RowType::kRanged, "R", "G", "ranged", "ranged constraint", "<=",
         true,  true,  true,  kNoChange,      RangeEffect::kNothing},
}};
// clang-format on

constexpr const RowTypeTraits& TraitsOf(RowType type) {
  return kRowTypes[static_cast<std::size_t>(type)];
}

// The type of that letter; kNone for every other text.
RowType RowTypeOf(std::string_view letter);
// The type of a row by its bounds alone.
RowType RowTypeOf(double lower, double upper);

// A binary column can be shown; no operation makes one.
enum class ColumnType : std::uint8_t { kNone, kContinuous, kInteger, kBinary };

struct ColumnTypeTraits {
  ColumnType type;
  std::string_view letter;  // at the public operations
  bool settable;            // by the public operations
  std::string_view word;    // in lists
  std::string_view marker;  // in COLUMNS of a file: columns from here on are of this type
};

// clang-format off
inline constexpr std::array<ColumnTypeTraits, 4> kColumnTypes = {{
    // type                   letter settable word     marker
    {ColumnType::kNone,       "",    false, "",        ""},
    {ColumnType::kContinuous, "R",   true,  "real",    "'INTEND'"},
    {ColumnType::kInteger,    "I",   true,  "integer", "'INTORG'"},
    {ColumnType::kBinary,     "B",   false, "binary",  ""},
}};
// clang-format on

constexpr const ColumnTypeTraits& TraitsOf(ColumnType type) {
  return kColumnTypes[static_cast<std::size_t>(type)];
}

// The type of that letter; kNone for every other text.
ColumnType ColumnTypeOf(std::string_view letter);

// The letter as public operations give it, empty for kNone.
inline std::string TypeText(RowType type) { return std::string(TraitsOf(type).letter); }
inline std::string TypeText(ColumnType type) { return std::string(TraitsOf(type).letter); }

// The letters that may be set, in the order of the table, with a bar between them: "N|G|L|E|R".
std::string RowTypeLetters();
std::string ColumnTypeLetters();

}  // namespace quarvel::model
