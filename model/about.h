// The about box: versions and where to reach the people behind the component.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::model {

inline constexpr std::string_view kAboutTitle = "Authors of Quarvel Object";
// README.md and the delivered readme have the same sentence.
inline constexpr std::string_view kWhereToReport =
    "Questions and problems are welcome in the issue tracker of the repository that Quarvel comes "
    "from.";

// Of the product: what `quarvel --version` prints.
std::string_view ProductVersion();
// Of the component, as hosts know it.
std::string_view ComponentVersion();

std::string AboutText();

}  // namespace quarvel::model
