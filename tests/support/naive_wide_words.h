// The ways in which a data line of the wide dialect may be taken apart, and when what comes out makes
// sense, as plainly as docs/dialect.md says it: every word a string of its own, lists in std::vector.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::testing {

using NaiveWords = std::vector<std::string>;

enum class NaiveSection { kStart, kRows, kColumns, kRhs, kRanges, kBounds };

// Numbers from 1 by name.
struct NaiveNames {
  std::map<std::string, std::int32_t> rows;
  std::map<std::string, std::int32_t> columns;
};

// 0 when there is none.
std::int32_t NaiveNumber(const std::map<std::string, std::int32_t>& numbers,
                         const std::string& name);

// Between blanks and tabs.
NaiveWords NaiveWordsOf(const std::string& line);
bool IsNaiveMarker(const NaiveWords& words, NaiveSection section);
// "ignored", "optional" or "needed"; empty for no code of a bound.
std::string NaiveUseOfValue(const std::string& code);
// An infinity that says of a bound of that code that there is none.
bool IsNaiveInfinity(const std::string& code, const std::string& word);

bool MakesSense(const NaiveWords& words, NaiveSection section, const NaiveNames& names);

struct NaiveBlankWords {
  NaiveWords words;
  bool has_comment = false;
  bool is_nameless = false;
};
// Nothing when no way makes sense.
std::optional<NaiveBlankWords> SenseByBlanks(const NaiveWords& words, NaiveSection section,
                                             const NaiveNames& names);

struct NaiveFields {
  explicit NaiveFields(const std::string& line, NaiveSection section);

  NaiveWords words;  // without the empty ones at the end
  bool has_text_between = false;
  bool has_text_behind = false;
};
bool MakesSenseByFields(const std::string& line, NaiveSection section, const NaiveNames& names);

}  // namespace quarvel::testing
