#include "text/glob.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "text/upper_case.h"
#include "text/visible_text.h"

namespace quarvel::text {
namespace {

std::u32string CharactersOf(std::string_view utf8) {
  std::u32string characters;
  characters.reserve(utf8.size());
  while (!utf8.empty()) {
    const Character character = FirstCharacter(utf8);
    characters += character.code;
    utf8.remove_prefix(character.size);
  }
  return characters;
}

}  // namespace

Glob::Glob(std::string_view pattern) : spelled_(UpperCase(pattern)) {
  const std::u32string characters = CharactersOf(spelled_);
  std::u32string_view left = characters;
  while (!left.empty()) {
    if (left.front() == U'[' && TakeClass(left)) continue;
    if (left.front() == U'\\' && left.size() > 1) {
      left.remove_prefix(1);
      parts_.push_back({.ranges = {{left.front(), left.front()}}});
    } else if (left.front() == U'*' || left.front() == U'?') {
      parts_.push_back({.any_number = left.front() == U'*', .ranges = {}});
    } else {
      has_open_bracket_ = has_open_bracket_ || left.front() == U'[';
      parts_.push_back({.ranges = {{left.front(), left.front()}}});
    }
    left.remove_prefix(1);
  }
}

bool Glob::TakeClass(std::u32string_view& pattern) {
  Part part;
  std::size_t at = 1;
  if (at < pattern.size() && (pattern[at] == U'!' || pattern[at] == U'^')) {
    part.is_negated = true;
    ++at;
  }
  const std::size_t first = at;
  while (at < pattern.size() && (pattern[at] != U']' || at == first)) {
    const bool is_range =
        at + 2 < pattern.size() && pattern[at + 1] == U'-' && pattern[at + 2] != U']';
    part.ranges.push_back({pattern[at], pattern[is_range ? at + 2 : at]});
    at += is_range ? 3 : 1;
  }
  if (at >= pattern.size()) return false;
  parts_.push_back(std::move(part));
  pattern.remove_prefix(at + 1);
  return true;
}

bool Glob::Fits(const Part& part, char32_t c) {
  if (part.ranges.empty()) return true;
  const bool is_one = std::any_of(part.ranges.begin(), part.ranges.end(), [c](const Range& range) {
    return range.first <= c && c <= range.last;
  });
  return is_one != part.is_negated;
}

bool Glob::Matches(std::string_view name) const {
  const std::string upper = UpperCase(name);
  return upper == spelled_ || MatchesParts(CharactersOf(upper));
}

// What stands behind the last "*" is tried at each place; an earlier "*" need not be looked at again,
// as taking more there wins nothing.
bool Glob::MatchesParts(std::u32string_view name) const {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t at = 0;
  std::size_t part = 0;
  std::size_t star = kNone;
  std::size_t at_of_star = 0;
  while (at < name.size()) {
    if (part < parts_.size() && parts_[part].any_number) {
      star = part++;
      at_of_star = at;
    } else if (part < parts_.size() && Fits(parts_[part], name[at])) {
      ++part;
      ++at;
    } else if (star != kNone) {
      part = star + 1;
      at = ++at_of_star;
    } else {
      return false;
    }
  }
  while (part < parts_.size() && parts_[part].any_number) ++part;
  return part == parts_.size();
}

}  // namespace quarvel::text
