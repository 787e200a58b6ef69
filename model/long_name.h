// Names that no standard MPS file can hold are accepted, with a warning.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/encoding.h"

namespace quarvel::model {

inline constexpr std::string_view kLongNameWarning =
    "The name you entered had more than 8 characters.  In a standard MPS file, names can be no "
    "longer than 8 characters.  If you wish your model to be standard, please reset the name to "
    "have 8 or fewer characters";

// Counts characters, not bytes.
inline bool IsLongName(std::string_view name) {
  constexpr std::size_t kStandardLength = 8;
  return name.size() > kStandardLength && text::CharacterCount(name) > kStandardLength;
}

}  // namespace quarvel::model
