// What a page of HTML is made of, as a browser would take it apart.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace quarvel::testing {

struct HtmlTags {
  std::set<std::string> elements;    // "table"
  std::set<std::string> attributes;  // "class"
};

// Those of the page, but for what stands in its style. A failed test where a tag or a value has no end.
HtmlTags TagsOf(std::string_view page);

}  // namespace quarvel::testing
