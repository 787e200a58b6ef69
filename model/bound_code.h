// The codes by which files and the command line say what becomes of a column's bounds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/bounds.h"

namespace quarvel::model {

enum class BoundCode : std::uint8_t { kLower, kUpper, kFixed, kFree, kNoLower, kNoUpper };

struct BoundCodeTraits {
  BoundCode code;
  std::string_view letters;
  BoundsChange change;
  bool needs_value;
};

// clang-format off
inline constexpr std::array<BoundCodeTraits, 6> kBoundCodes = {{
    // code                letters lower                 upper                   needs_value
    {BoundCode::kLower,    "LO",   {BoundChange::kGiven,  BoundChange::kKept},   true},
    {BoundCode::kUpper,    "UP",   {BoundChange::kKept,   BoundChange::kGiven},  true},
    {BoundCode::kFixed,    "FX",   {BoundChange::kGiven,  BoundChange::kGiven},  true},
    {BoundCode::kFree,     "FR",   {BoundChange::kAbsent, BoundChange::kAbsent}, false},
    {BoundCode::kNoLower,  "MI",   {BoundChange::kAbsent, BoundChange::kKept},   false},
    {BoundCode::kNoUpper,  "PL",   {BoundChange::kKept,   BoundChange::kAbsent}, false},
}};
// clang-format on

constexpr const BoundCodeTraits& TraitsOf(BoundCode code) {
  return kBoundCodes[static_cast<std::size_t>(code)];
}

// The line of those letters, null for every other text.
constexpr const BoundCodeTraits* FindBoundCode(std::string_view letters) {
  for (const BoundCodeTraits& known : kBoundCodes) {
    if (known.letters == letters) return &known;
  }
  return nullptr;
}

// All codes in the order of the table, with a bar between them: "LO|UP|...".
inline std::string BoundCodeLetters() {
  std::string letters;
  for (const BoundCodeTraits& known : kBoundCodes) {
    if (!letters.empty()) letters += '|';
    letters += known.letters;
  }
  return letters;
}

}  // namespace quarvel::model
