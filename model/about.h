// The about box: version and where to reach the people behind the component.
#pragma once

#include <string>
#include <string_view>

namespace quarvel {

inline constexpr std::string_view kVersion = "1.00.0001";
inline constexpr std::string_view kAboutTitle = "Authors of Quarvel Object";

std::string AboutText();

}  // namespace quarvel
