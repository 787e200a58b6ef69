#include "tests/support/naive_wide_words.h"

#include <cstddef>

#include "text/numbers.h"

namespace quarvel::testing {
namespace {

bool IsOneOf(const std::string& word, const NaiveWords& words) {
  for (const std::string& other : words) {
    if (word == other) return true;
  }
  return false;
}

bool IsNumeric(const std::string& word) { return text::ParseNumber(word).has_value(); }

bool PairsMakeSense(const NaiveWords& words, const NaiveNames& names) {
  if (words.size() != 3 && words.size() != 5) return false;
  for (std::size_t i = 1; i < words.size(); i += 2) {
    if (names.rows.count(words[i]) == 0 || !IsNumeric(words[i + 1])) return false;
  }
  return true;
}

bool BoundMakesSense(const NaiveWords& words, const NaiveNames& names) {
  if (words.size() != 3 && words.size() != 4) return false;
  const std::string use = NaiveUseOfValue(words[0]);
  if (use.empty() || names.columns.count(words[2]) == 0) return false;
  if (words.size() == 3) return use != "needed";
  return use == "ignored" || IsNumeric(words[3]) || IsNaiveInfinity(words[0], words[3]);
}

// Each a character of the line.
std::vector<std::string> CharactersOf(const std::string& line) {
  std::vector<std::string> characters;
  for (const char c : line) {
    const bool goes_on = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    if (goes_on && !characters.empty()) {
      characters.back() += c;
    } else {
      characters.emplace_back(1, c);
    }
  }
  return characters;
}

// What stands in the columns `first` to `last`, from 1, without the blanks around it.
std::string TextIn(const std::vector<std::string>& characters, std::size_t first,
                   std::size_t last) {
  std::string text;
  for (std::size_t column = first; column <= last && column <= characters.size(); ++column) {
    if (!text.empty() || characters[column - 1] != " ") text += characters[column - 1];
  }
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

}  // namespace

std::int32_t NaiveNumber(const std::map<std::string, std::int32_t>& numbers,
                         const std::string& name) {
  const auto found = numbers.find(name);
  return found == numbers.end() ? 0 : found->second;
}

NaiveWords NaiveWordsOf(const std::string& line) {
  NaiveWords words;
  std::string word;
  for (const char c : line + " ") {
    if (c != ' ' && c != '\t') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(word);
      word.clear();
    }
  }
  return words;
}

bool IsNaiveMarker(const NaiveWords& words, NaiveSection section) {
  return section == NaiveSection::kColumns && words.size() >= 3 && words[1] == "'MARKER'";
}

std::string NaiveUseOfValue(const std::string& code) {
  if (IsOneOf(code, {"FR", "MI", "PL", "BV"})) return "ignored";
  if (IsOneOf(code, {"SC", "SI"})) return "optional";
  return IsOneOf(code, {"LO", "UP", "FX", "LI", "UI"}) ? "needed" : "";
}

bool IsNaiveInfinity(const std::string& code, const std::string& word) {
  if (IsOneOf(code, {"LO", "LI"})) return word == "-INF" || word == "-INFINITY";
  if (!IsOneOf(code, {"UP", "UI", "SC", "SI"})) return false;
  return IsOneOf(word, {"INF", "+INF", "INFINITY", "+INFINITY"});
}

bool MakesSense(const NaiveWords& words, NaiveSection section, const NaiveNames& names) {
  if (words.empty()) return false;
  switch (section) {
    case NaiveSection::kStart:
      return false;
    case NaiveSection::kRows:
      return words.size() == 2 && IsOneOf(words[0], {"E", "G", "L", "N"}) &&
             names.rows.count(words[1]) == 0;
    case NaiveSection::kColumns:
      if (words[0].empty()) return false;
      if (IsNaiveMarker(words, section)) return words.size() == 3;
      return PairsMakeSense(words, names);
    case NaiveSection::kRhs:
    case NaiveSection::kRanges:
      return PairsMakeSense(words, names);
    case NaiveSection::kBounds:
      return BoundMakesSense(words, names);
  }
  return false;
}

std::optional<NaiveBlankWords> SenseByBlanks(const NaiveWords& words, NaiveSection section,
                                             const NaiveNames& names) {
  if (MakesSense(words, section, names)) return NaiveBlankWords{words};
  NaiveBlankWords shorter;
  for (const std::string& word : words) {
    if (!shorter.words.empty() && word[0] == '$') {
      shorter.has_comment = true;
      break;
    }
    shorter.words.push_back(word);
  }
  if (shorter.has_comment && MakesSense(shorter.words, section, names)) return shorter;
  const bool has_sets = section == NaiveSection::kRhs || section == NaiveSection::kRanges ||
                        section == NaiveSection::kBounds;
  if (!has_sets || words.empty()) return std::nullopt;
  const std::ptrdiff_t place = section == NaiveSection::kBounds ? 1 : 0;
  shorter.words.insert(shorter.words.begin() + place, "");
  shorter.is_nameless = true;
  if (!MakesSense(shorter.words, section, names)) return std::nullopt;
  return shorter;
}

NaiveFields::NaiveFields(const std::string& line, NaiveSection section) {
  static constexpr std::size_t kPlaces[6][2] = {{2, 3},   {5, 12},  {15, 22},
                                                {25, 36}, {40, 47}, {50, 61}};
  const std::vector<std::string> characters = CharactersOf(line);
  const bool uses_first = section == NaiveSection::kRows || section == NaiveSection::kBounds;
  std::size_t done = 0;
  bool is_cut = false;
  for (std::size_t field = 1; field <= 6 && !is_cut; ++field) {
    const auto [first, last] = kPlaces[field - 1];
    if (!TextIn(characters, done + 1, first - 1).empty()) has_text_between = true;
    const std::string text = TextIn(characters, first, last);
    is_cut = (field == 3 || field == 5) && !text.empty() && text[0] == '$';
    if (is_cut) break;
    if (field == 1 && !uses_first) {
      if (!text.empty()) has_text_between = true;
    } else {
      words.push_back(text);
    }
    done = last;
  }
  // Columns 61 and 62.
  if (!is_cut && characters.size() > 61 && characters[60] != " " && characters[61] != " ") {
    has_text_between = true;
  }
  has_text_behind = !is_cut && !TextIn(characters, done + 1, characters.size()).empty();
  while (!words.empty() && words.back().empty()) words.pop_back();
}

bool MakesSenseByFields(const std::string& line, NaiveSection section, const NaiveNames& names) {
  const NaiveFields fields(line, section);
  return !fields.has_text_between && !fields.has_text_behind &&
         MakesSense(fields.words, section, names);
}

}  // namespace quarvel::testing
