#include "mps/wide_words.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/bound_code.h"
#include "model/record_types.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

constexpr std::array<std::pair<std::string_view, WideBound>, 5> kWideBounds = {{
    {"BV", WideBound::kBinary},
    {"LI", WideBound::kIntegerLower},
    {"UI", WideBound::kIntegerUpper},
    {"SC", WideBound::kSemiContinuous},
    {"SI", WideBound::kSemiInteger},
}};

bool IsNumber(std::string_view word) { return text::ParseNumber(word).has_value(); }

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

void Keep(TokenList& words, std::string_view word) {
  words.Keep(word.data(), word.data() + word.size());
}

// Of the first `count`, at most those that are kept.
TokenList First(const TokenList& words, std::size_t count) {
  TokenList first;
  for (std::size_t word = 1; word <= std::min(count, TokenList::kKept); ++word) {
    Keep(first, words[word]);
  }
  return first;
}

// With an empty word in front of that one.
TokenList WithEmpty(const TokenList& words, std::size_t place) {
  TokenList more;
  for (std::size_t word = 1; word <= std::min(words.count(), TokenList::kKept); ++word) {
    if (word == place) Keep(more, words[word].substr(0, 0));
    Keep(more, words[word]);
  }
  return more;
}

std::size_t FirstComment(const TokenList& words) {
  for (std::size_t word = 2; word <= std::min(words.count(), TokenList::kKept); ++word) {
    if (words[word].starts_with('$')) return word;
  }
  return 0;
}

std::size_t FirstField(Section section) {
  return section == Section::kRows || section == Section::kBounds ? 1 : 2;
}

// The word that names the set; 0 in a section without sets.
std::size_t SetWord(Section section) {
  if (section == Section::kBounds) return 2;
  return section == Section::kRhs || section == Section::kRanges ? 1 : 0;
}

}  // namespace

std::optional<WideBound> FindWideBound(std::string_view letters) {
  for (const auto& [known, bound] : kWideBounds) {
    if (known == letters) return bound;
  }
  return std::nullopt;
}

std::optional<BoundValue> ValueOfBound(std::string_view code) {
  if (const model::BoundCodeTraits* const known = model::FindBoundCode(code)) {
    return known->needs_value ? BoundValue::kNeeded : BoundValue::kIgnored;
  }
  const std::optional<WideBound> wide = FindWideBound(code);
  if (!wide) return std::nullopt;
  if (wide == WideBound::kBinary) return BoundValue::kIgnored;
  const bool semi = wide == WideBound::kSemiContinuous || wide == WideBound::kSemiInteger;
  return semi ? BoundValue::kOptional : BoundValue::kNeeded;
}

bool IsNoBound(std::string_view code, std::string_view word) {
  const bool negative = word.starts_with('-');
  if (negative || word.starts_with('+')) word.remove_prefix(1);
  if (word != "INF" && word != "INFINITY") return false;
  if (negative) return code == "LO" || code == "LI";
  return code == "UP" || code == "UI" || code == "SC" || code == "SI";
}

TokenList WordsOf(std::string_view text) {
  TokenList words;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data();;) {
    at = std::find_if_not(at, end, IsBlank);
    if (at == end) return words;
    const char* const begin = at;
    at = std::find_if(at, end, IsBlank);
    words.Keep(begin, at);
  }
}

TokenList WordsOf(const FixedFields& fields, Section section) {
  const std::size_t first = FirstField(section);
  std::size_t last = kFieldCount;
  while (last >= first && fields[last].empty()) --last;
  TokenList words;
  for (std::size_t field = first; field <= last; ++field) Keep(words, fields[field]);
  return words;
}

std::string_view TextBetween(const FixedFields& fields, Section section) {
  if (!fields.between().empty()) return fields.between();
  const bool is_beside = FirstField(section) > 1 && !fields[1].empty();
  return is_beside ? fields[1] : fields.across();
}

bool IsMarker(const TokenList& words) { return words.count() >= 3 && words[2] == "'MARKER'"; }

bool BeginsComment(const TokenList& words) {
  return words.count() != 0 && words[1].starts_with('*');
}

bool IsNameless(const TokenList& words, Section section) {
  const std::size_t set = SetWord(section);
  return set != 0 && words[set].empty();
}

bool WordSense::Fits(const TokenList& words, Section section) const {
  switch (section) {
    case Section::kStart:
      return false;
    case Section::kRows:
      return words.count() == 2 && model::TraitsOf(model::RowTypeOf(words[1])).in_files() &&
             !words[2].empty() && sink_.FindRow(words[2]) == 0;
    case Section::kColumns:
      return !words[1].empty() && (IsMarker(words) ? words.count() == 3 : FitsPairs(words));
    case Section::kRhs:
    case Section::kRanges:
      return FitsPairs(words);
    case Section::kBounds:
      return FitsBound(words);
  }
  return false;
}

bool WordSense::FitsPairs(const TokenList& words) const {
  if (words.count() != 3 && words.count() != 5) return false;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    if (!IsNumber(words[first + 1]) || sink_.FindRow(words[first]) == 0) return false;
  }
  return true;
}

bool WordSense::FitsBound(const TokenList& words) const {
  if (words.count() != 3 && words.count() != 4) return false;
  const std::optional<BoundValue> use = ValueOfBound(words[1]);
  const bool has_value = words.count() == 4;
  if (!use || (use == BoundValue::kNeeded && !has_value)) return false;
  const bool counts = has_value && use != BoundValue::kIgnored;
  if (counts && !IsNumber(words[4]) && !IsNoBound(words[1], words[4])) return false;
  return sink_.FindColumn(words[3]) != 0;
}

std::optional<FreeWords> WordSense::FitFree(const TokenList& words, Section section) const {
  if (words.count() == 0) return std::nullopt;
  if (Fits(words, section)) return FreeWords{words};
  const std::size_t comment = FirstComment(words);
  const TokenList before = comment != 0 ? First(words, comment - 1) : words;
  if (comment != 0 && Fits(before, section)) return FreeWords{before, comment};
  const std::size_t set = SetWord(section);
  if (set == 0 || before.count() < set || before.count() >= TokenList::kKept) return std::nullopt;
  const TokenList nameless = WithEmpty(before, set);
  if (!Fits(nameless, section)) return std::nullopt;
  return FreeWords{nameless, comment, true};
}

std::optional<TokenList> WordSense::FitFixed(std::string_view text, Section section) const {
  const FixedFields fields(text);
  if (!TextBetween(fields, section).empty() || !fields.behind().empty()) return std::nullopt;
  const TokenList words = WordsOf(fields, section);
  if (words.count() == 0 || !Fits(words, section)) return std::nullopt;
  return words;
}

}  // namespace quarvel::mps
