#include "inspect/name_families.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>

namespace quarvel::inspect {
namespace {

constexpr char kNumber = '#';
constexpr char kIndex = '*';
constexpr std::string_view kSeparators = "_.-:/|~ ";
// Parts from the end of a name that may be indexes.
constexpr int kMostIndexes = 4;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSeparator(char c) { return kSeparators.find(c) != std::string_view::npos; }

// Appends the pattern of what has no brackets.
void AppendPlain(std::string& pattern, std::string_view text) {
  bool in_number = false;
  for (const char c : text) {
    const bool is_digit = IsDigit(c);
    if (!is_digit) {
      pattern += c;
    } else if (!in_number) {
      pattern += kNumber;
    }
    in_number = is_digit;
  }
}

void AppendIndexes(std::string& pattern, std::string_view indexes) {
  while (true) {
    const std::size_t comma = indexes.find_first_of(",;");
    const std::string_view index = indexes.substr(0, comma);
    if (!index.empty()) {
      pattern += std::all_of(index.begin(), index.end(), IsDigit) ? kNumber : kIndex;
    }
    if (comma == std::string_view::npos) return;
    pattern += indexes[comma];
    indexes.remove_prefix(comma + 1);
  }
}

void AppendPattern(std::string& pattern, std::string_view name) {
  while (!name.empty()) {
    const std::size_t open = name.find_first_of("[(");
    const std::size_t close =
        open == std::string_view::npos ? open : name.find(name[open] == '[' ? ']' : ')', open);
    if (close == std::string_view::npos) return AppendPlain(pattern, name);
    AppendPlain(pattern, name.substr(0, open));
    pattern += name[open];
    AppendIndexes(pattern, name.substr(open + 1, close - open - 1));
    pattern += name[close];
    name.remove_prefix(close + 1);
  }
}

// Whether a name without brackets has that pattern: most names have the pattern of the one before.
bool HasPattern(std::string_view name, std::string_view pattern) {
  std::size_t place = 0;
  bool in_number = false;
  for (const char c : name) {
    if (c == '[' || c == '(') return false;
    const bool is_digit = IsDigit(c);
    if (!is_digit || !in_number) {
      if (place == pattern.size() || pattern[place] != (is_digit ? kNumber : c)) return false;
      ++place;
    }
    in_number = is_digit;
  }
  return place == pattern.size();
}

// The pattern with its part number `back` from the end (0 for the last) replaced; nothing when it has
// no such part behind its first, or the part is an index already.
std::optional<std::string> WithIndexAt(const std::string& pattern, int back) {
  std::size_t end = pattern.size();
  while (true) {
    while (end > 0 && IsSeparator(pattern[end - 1])) --end;
    std::size_t start = end;
    while (start > 0 && !IsSeparator(pattern[start - 1])) --start;
    if (start == 0) return std::nullopt;
    if (back-- == 0) {
      if (pattern[end - 1] == ']' || pattern[end - 1] == ')') return std::nullopt;
      return pattern.substr(0, start) + kIndex + pattern.substr(end);
    }
    end = start;
  }
}

// Joins the patterns that differ in one part alone. Numbers of patterns are handed on to what they
// have become.
class Joining {
 public:
  explicit Joining(const std::vector<std::string>& patterns) {
    joined_.patterns = patterns;
    joined_.family_of.resize(patterns.size());
    std::iota(joined_.family_of.begin(), joined_.family_of.end(), 0);
  }

  void JoinAt(int back) {
    std::vector<std::optional<std::string>> others;
    std::unordered_map<std::string, int> texts;
    for (const std::string& pattern : joined_.patterns) {
      others.push_back(WithIndexAt(pattern, back));
      if (others.back()) ++texts[*others.back()];
    }
    if (texts.empty()) return;
    for (std::size_t i = 0; i < others.size(); ++i) {
      if (others[i] && texts[*others[i]] > NameFamilies::kFewTexts) {
        joined_.patterns[i] = *others[i];
      }
    }
    Renumber();
  }

  NameFamilies::Joined Take() { return std::move(joined_); }

 private:
  // One number for each pattern that is there several times now.
  void Renumber() {
    std::unordered_map<std::string, std::int32_t> numbers;
    std::vector<std::string> patterns;
    std::vector<std::int32_t> new_number;
    for (std::string& pattern : joined_.patterns) {
      const auto [found, is_new] =
          numbers.try_emplace(pattern, static_cast<std::int32_t>(patterns.size()));
      new_number.push_back(found->second);
      if (is_new) patterns.push_back(std::move(pattern));
    }
    for (std::int32_t& family : joined_.family_of) {
      family = new_number[static_cast<std::size_t>(family)];
    }
    joined_.patterns = std::move(patterns);
  }

  NameFamilies::Joined joined_;
};

}  // namespace

std::string NameFamilies::PatternOf(std::string_view name) {
  std::string pattern;
  AppendPattern(pattern, name);
  return pattern;
}

std::int32_t NameFamilies::Add(std::string_view name) {
  if (last_number_ >= 0 && HasPattern(name, last_)) return last_number_;
  std::string pattern;
  AppendPattern(pattern, name);
  if (last_number_ >= 0 && pattern == last_) return last_number_;
  const auto [found, is_new] = numbers_.try_emplace(pattern, count());
  if (is_new) patterns_.push_back(pattern);
  last_ = std::move(pattern);
  last_number_ = found->second;
  return last_number_;
}

NameFamilies::Joined NameFamilies::Join() const {
  Joining joining(patterns_);
  for (int back = 0; back < kMostIndexes; ++back) joining.JoinAt(back);
  return joining.Take();
}

}  // namespace quarvel::inspect
