#include "tests/support/html_tags.h"

#include <gtest/gtest.h>

namespace quarvel::testing {
namespace {

constexpr std::string_view kBlanks = " \n\r\t";

// Takes the attributes of a tag and its end from the front.
void TakeAttributes(std::string_view& page, std::set<std::string>& attributes) {
  while (true) {
    page.remove_prefix(std::min(page.find_first_not_of(kBlanks), page.size()));
    if (page.empty()) {
      ADD_FAILURE() << "a tag without an end";
      return;
    }
    if (page.front() == '>') return page.remove_prefix(1);
    const std::size_t end = page.find_first_of(" \n\r\t=>");
    if (end == std::string_view::npos) return page.remove_prefix(page.size());
    attributes.emplace(page.substr(0, end));
    page.remove_prefix(end);
    if (!page.starts_with("=\"")) continue;
    const std::size_t quote = page.find('"', 2);
    if (quote == std::string_view::npos) ADD_FAILURE() << "a value without an end";
    page.remove_prefix(std::min(quote, page.size() - 1) + 1);
  }
}

}  // namespace

HtmlTags TagsOf(std::string_view page) {
  HtmlTags tags;
  for (std::size_t at = page.find('<'); at != std::string_view::npos; at = page.find('<')) {
    page.remove_prefix(at + 1);
    if (page.starts_with('!')) continue;
    if (page.starts_with('/')) page.remove_prefix(1);
    const std::size_t end = page.find_first_of(" \n\r\t>");
    if (end == std::string_view::npos) {
      ADD_FAILURE() << "a tag without an end";
      break;
    }
    const std::string element(page.substr(0, end));
    tags.elements.insert(element);
    page.remove_prefix(end);
    TakeAttributes(page, tags.attributes);
    if (element == "style" && page.find("</style>") != std::string_view::npos) {
      page.remove_prefix(page.find("</style>"));
      page.remove_prefix(std::string_view("</style>").size());
    }
  }
  return tags;
}

}  // namespace quarvel::testing
