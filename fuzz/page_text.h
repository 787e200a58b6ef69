// Whether a text is a page of HTML, or a picture of SVG, that runs nothing and closes what it opens.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::fuzz {

class PageText {
 public:
  // What is wrong with it, or nothing.
  static std::string FaultOf(std::string_view page) {
    PageText text(page);
    while (text.fault_.empty() && text.TakeTag()) continue;
    if (text.fault_.empty() && !text.open_.empty()) return "<" + text.open_.back() + "> stays open";
    return text.fault_;
  }

 private:
  explicit PageText(std::string_view page) : rest_(page) {}

  bool TakeTag() {
    const std::size_t start = rest_.find('<');
    if (rest_.substr(0, start).find('>') != std::string_view::npos) fault_ = "a > outside of tags";
    if (start == std::string_view::npos) return false;
    const std::size_t end = rest_.find('>', start);
    if (end == std::string_view::npos) {
      fault_ = "a tag without an end";
      return false;
    }
    const std::string_view tag = rest_.substr(start + 1, end - start - 1);
    rest_.remove_prefix(end + 1);
    if (!tag.starts_with('!') && !tag.starts_with('?')) TakeElement(tag);
    return true;
  }

  void TakeElement(std::string_view tag) {
    const bool closes = tag.starts_with('/');
    if (closes) tag.remove_prefix(1);
    const std::string name(tag.substr(0, tag.find_first_of(" \n/")));
    if (name == "script" || name == "iframe" || name == "object") fault_ = "<" + name + ">";
    CheckAttributes(tag);
    if (closes) {
      if (open_.empty() || open_.back() != name) fault_ = "</" + name + "> closes another";
      if (!open_.empty()) open_.pop_back();
    } else if (!IsVoid(name) && !tag.ends_with('/')) {
      open_.push_back(name);
      // A style sheet is no text of the page.
      if (name == "style") rest_.remove_prefix(std::min(rest_.find("</style>"), rest_.size()));
    }
  }

  // A value in quotes holds no quote, so that each second one ends a value.
  void CheckAttributes(std::string_view tag) {
    bool quoted = false;
    for (std::size_t i = 0; i < tag.size(); ++i) {
      if (tag[i] == '"') quoted = !quoted;
      if (!quoted && tag.substr(i).starts_with(" on")) fault_ = "an attribute that runs something";
    }
    if (quoted) fault_ = "a value without an end";
  }

  static bool IsVoid(std::string_view name) {
    constexpr std::array<std::string_view, 8> kVoid = {"meta", "link", "br",  "hr",
                                                       "img",  "col",  "wbr", "input"};
    return std::find(kVoid.begin(), kVoid.end(), name) != kVoid.end();
  }

  std::string_view rest_;
  std::string fault_;
  std::vector<std::string> open_;
};

}  // namespace quarvel::fuzz
