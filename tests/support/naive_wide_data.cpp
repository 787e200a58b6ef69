// What the data lines of the sections do, once they are words.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "tests/support/naive_wide_reader.h"
#include "text/numbers.h"

namespace quarvel::testing {
namespace {

bool HasWidePairs(const NaiveWords& words) { return words.size() == 3 || words.size() == 5; }

// A number with a digit other than 0 before its exponent that is 0.
bool IsTooSmall(const std::string& number, double value) {
  if (value != 0) return false;
  const std::string digits = number.substr(0, number.find_first_of("ED"));
  return digits.find_first_of("123456789") != std::string::npos;
}

}  // namespace

void NaiveWideReader::UseWords(const NaiveWords& words) {
  switch (section_) {
    case NaiveSection::kStart:
      return;
    case NaiveSection::kRows:
      return UseRow(words);
    case NaiveSection::kColumns:
      return UseColumn(words);
    case NaiveSection::kRhs:
      return UseRhs(words);
    case NaiveSection::kRanges:
      return UseRanges(words);
    case NaiveSection::kBounds:
      return UseBound(words);
  }
}

NaiveRecord& NaiveWideReader::Row(std::int32_t number) {
  return model_.Rows.at(static_cast<std::size_t>(number - 1));
}

void NaiveWideReader::UseRow(const NaiveWords& words) {
  if (words.size() != 2) return Tell("E102");
  const std::string& type = words[0];
  if (type != "E" && type != "G" && type != "L" && type != "N") return Tell("E103");
  if (names_.rows.count(words[1]) > 0) return Tell("E104");
  if (type == "N") {
    objective_.free_rows.push_back(words[1]);
    objective_.mentions.push_back({line_number_, words[1], false, 0});
  }
  NaiveRecord row;
  row.Name = words[1];
  row.Type = type;
  row.LowerBound = type == "L" || type == "N" ? -1e10 : 0;
  row.UpperBound = type == "G" || type == "N" ? 1e10 : 0;
  model_.Rows.push_back(row);
  names_.rows[row.Name] = ++model_.NumberOfRows;
  CheckSpelling("row", words, 1);
}

void NaiveWideReader::UseMarker(const std::string& what) {
  if (what != "'INTORG'" && what != "'INTEND'")
    return Tell(what.starts_with("'SOS") ? "E120" : "W410");
  const bool begins = what == "'INTORG'";
  column_type_ = begins ? "I" : "R";
  const bool is_open = open_marker_line_ != 0;
  if (begins == is_open) {
    Tell("W421");
  } else {
    open_marker_line_ = begins ? line_number_ : 0;
  }
  is_behind_marker_ = true;
}

void NaiveWideReader::UseColumn(const NaiveWords& words) {
  const bool is_marker = IsNaiveMarker(words, section_);
  const bool is_known_marker = is_marker && (words[2] == "'INTORG'" || words[2] == "'INTEND'");
  if (is_marker && !is_known_marker) return UseMarker(words[2]);
  if (!HasWidePairs(words)) return Tell("E105");
  if (model_.NumberOfRows == 0) return Tell("E106");
  std::int32_t column = NaiveNumber(names_.columns, words[0]);
  if (column == 0 && is_known_marker) return UseMarker(words[2]);
  if (column == 0) {
    AddColumn(words[0]);
    column = model_.NumberOfColumns;
  }
  for (std::size_t place = 1; place < words.size(); place += 2) {
    const auto [row, value] = ReadPair(words, place);
    if (row == 0) continue;
    if (value == 0) {
      Tell(IsTooSmall(words[place + 1], value) ? "W416" : "W423");
      continue;
    }
    ++model_.NumberOfElements;
    model_.Columns.at(static_cast<std::size_t>(column - 1)).Elements.push_back({row, value});
    Row(row).Elements.push_back({column, value});
  }
  for (std::size_t place = 1; place < words.size(); place += 2) {
    if (names_.rows.count(words[place]) > 0) CheckSpelling("row", words, place);
  }
  CheckSpelling("column", words, 0);
  CheckOrder(words[0], column);
}

void NaiveWideReader::CheckOrder(const std::string& name, std::int32_t column) {
  const bool is_known = ordered_columns_.count(name) > 0;
  const bool goes_on = name == last_column_;
  const bool stays = goes_on && !is_behind_marker_;
  ordered_columns_.insert(name);
  last_column_ = name;
  is_behind_marker_ = false;
  if (!is_known || stays) return;
  if (!goes_on) Tell("W419");
  if (model_.Columns.at(static_cast<std::size_t>(column - 1)).Type != column_type_) Tell("W420");
}

void NaiveWideReader::NoteGiven(const std::string& what) {
  if (!given_.insert(what).second) Tell("W415");
}

// Which letters of the name are small, when it ends in the first 63 bytes of the line.
void NaiveWideReader::CheckSpelling(const std::string& kind, const NaiveWords& words,
                                    std::size_t place) {
  const std::string& name = words[place];
  std::size_t begin = 0;
  for (std::size_t word = 0; word < place; ++word) {
    if (!words[word].empty()) begin = raw_.find_first_not_of(" \t", begin) + words[word].size();
  }
  begin = raw_.find_first_not_of(" \t", begin);
  if (begin + name.size() > 63) return;
  std::string spelling;
  for (std::size_t at = begin; at < begin + name.size(); ++at) {
    spelling += raw_[at] >= 'a' && raw_[at] <= 'z' ? 'a' : 'A';
  }
  const auto [found, is_new] = spellings_.try_emplace(kind + " " + name, spelling);
  if (found->second != spelling) Tell("W414");
  found->second = spelling;
}

void NaiveWideReader::AddColumn(const std::string& name) {
  NaiveRecord column;
  column.Name = name;
  column.Type = column_type_;
  column.LowerBound = options_.infinite_default_bounds ? -1e10 : 0;
  column.UpperBound = 1e10;
  model_.Columns.push_back(column);
  names_.columns[name] = ++model_.NumberOfColumns;
}

std::pair<std::int32_t, double> NaiveWideReader::ReadPair(const NaiveWords& words,
                                                          std::size_t place) {
  const std::optional<double> value = text::ParseNumber(words[place + 1]);
  const std::int32_t row = NaiveNumber(names_.rows, words[place]);
  if (!value) {
    Tell("E109");
    return {0, 0};
  }
  if (row == 0) Tell("E110");
  if (row != 0 && section_ != NaiveSection::kColumns) CheckSpelling("row", words, place);
  return {row, *value};
}

bool NaiveWideReader::IsOfFirstSet(const std::string& name, std::string& first,
                                   std::string& other) {
  if (first.empty()) first = name;
  if (name.empty() || name == first) return true;
  if (name != other) Tell("W402");
  other = name;
  return false;
}

void NaiveWideReader::UseRhs(const NaiveWords& words) {
  if (!HasWidePairs(words)) return Tell("E105");
  if (model_.NumberOfRows == 0) return Tell("E107");
  if (!IsOfFirstSet(words[0], facts.rhs_set, other_rhs_)) return;
  for (std::size_t place = 1; place < words.size(); place += 2) {
    const auto [row, value] = ReadPair(words, place);
    if (row == 0) continue;
    if (IsTooSmall(words[place + 1], value)) Tell("W416");
    ApplyRhs(row, value);
    NoteGiven("right-hand side of " + words[place]);
  }
}

void NaiveWideReader::ApplyRhs(std::int32_t number, double value) {
  NaiveRecord& row = Row(number);
  if (row.Type == "N") objective_.mentions.push_back({line_number_, row.Name, true, value});
  right_hand_sides_[number] = value;
  if (row.Type == "E" || row.Type == "G") row.LowerBound = value;
  if (row.Type == "E" || row.Type == "L") row.UpperBound = value;
  if (row.Type == "L") row.LowerBound = -1e10;
  if (ranges_.count(number) == 0) return;
  if (!has_told_ranges_first_) Tell("A314");
  has_told_ranges_first_ = true;
  ApplyRange(number);
}

void NaiveWideReader::UseRanges(const NaiveWords& words) {
  if (!HasWidePairs(words)) return Tell("E105");
  if (model_.NumberOfRows == 0) return Tell("E108");
  if (!IsOfFirstSet(words[0], facts.ranges_set, other_ranges_)) return;
  for (std::size_t place = 1; place < words.size(); place += 2) {
    const auto [row, range] = ReadPair(words, place);
    if (row == 0) continue;
    if (IsTooSmall(words[place + 1], range)) Tell("W416");
    if (Row(row).Type == "N") {
      Tell("W408");
      continue;
    }
    if (Row(row).Type == "E" && range < 0) Tell("A310");
    if (!has_rhs_ && !has_told_ranges_first_) {
      Tell("A314");
      has_told_ranges_first_ = true;
    }
    ranges_[row] = range;
    ApplyRange(row);
    NoteGiven("range of " + words[place]);
  }
}

void NaiveWideReader::ApplyRange(std::int32_t number) {
  NaiveRecord& row = Row(number);
  const double range = ranges_.at(number);
  const double rhs = right_hand_sides_[number];
  if (row.Type == "G") row.UpperBound = rhs + std::fabs(range);
  if (row.Type == "L") row.LowerBound = rhs - std::fabs(range);
  if (row.Type == "E") {
    row.LowerBound = range > 0 ? rhs : rhs + range;
    row.UpperBound = range > 0 ? rhs + range : rhs;
  }
  if (std::isinf(row.LowerBound) || std::isinf(row.UpperBound)) Tell("A318");
  if (std::isinf(row.LowerBound)) row.LowerBound = -1e10;
  if (std::isinf(row.UpperBound)) row.UpperBound = 1e10;
}

// A line that makes no sense, for the first reason that there is.
bool NaiveWideReader::RefusesBound(const NaiveWords& words) {
  if (model_.NumberOfColumns == 0) {
    Tell("E111");
  } else if (words.size() < 3) {
    Tell("E105");
  } else if (const std::string use = NaiveUseOfValue(words[0]); use.empty()) {
    Tell("E112");
  } else if (words.size() > 4) {
    Tell("E105");
  } else if (use == "needed" && words.size() != 4) {
    Tell("E113");
  } else if (words.size() == 4 && use != "ignored" && !text::ParseNumber(words[3]) &&
             !IsNaiveInfinity(words[0], words[3])) {
    Tell("E109");
  } else if (names_.columns.count(words[2]) == 0) {
    Tell("E114");
  } else {
    return false;
  }
  return true;
}

void NaiveWideReader::UseBound(const NaiveWords& words) {
  if (RefusesBound(words)) return;
  if (IsOfFirstSet(words[1], facts.bounds_set, other_bounds_)) ApplyBound(words);
}

void NaiveWideReader::ApplyBound(const NaiveWords& words) {
  const std::string& code = words[0];
  const std::size_t place = static_cast<std::size_t>(names_.columns.at(words[2]) - 1);
  NaiveRecord& column = model_.Columns.at(place);
  const bool has_value = words.size() == 4 && NaiveUseOfValue(code) != "ignored";
  const bool is_infinite = has_value && IsNaiveInfinity(code, words[3]);
  const double infinity = code[0] == 'L' ? -1e10 : 1e10;
  const double value =
      is_infinite ? infinity : (has_value ? text::ParseNumber(words[3]).value() : 0);
  if (is_infinite) Tell("A313");
  if ((code[0] == 'U' || code[0] == 'S') && value < 0 && column.LowerBound == 0) {
    Tell(options_.negative_upper_frees_lower ? "A312" : "W404");
    if (options_.negative_upper_frees_lower) column.LowerBound = -1e10;
  }
  const double none = code == "LO" || code == "LI" ? -1e10 : 1e10;
  if (has_value && !is_infinite && (value == none || (code == "FX" && value == -none)))
    Tell("W413");
  if (has_value && !is_infinite && IsTooSmall(words[3], value)) Tell("W416");
  if (code == "LO" || code == "FX") column.LowerBound = value;
  if (code == "UP" || code == "FX") column.UpperBound = value;
  if (code == "MI" || code == "FR") column.LowerBound = -1e10;
  if (code == "PL" || code == "FR") column.UpperBound = 1e10;
  ApplyIntegerBound(column, words, has_value, value);
  NoteBounds(words, has_value);
  CheckSpelling("column", words, 2);
}

// One line that gives both again is told once.
void NaiveWideReader::NoteBounds(const NaiveWords& words, bool has_value) {
  const std::string& code = words[0];
  const bool gives_both = code == "FX" || code == "FR" || code == "BV";
  const bool gives_lower = gives_both || code == "LO" || code == "LI" || code == "MI";
  const bool gives_upper = gives_both || code == "UP" || code == "UI" || code == "PL" ||
                           ((code == "SC" || code == "SI") && has_value);
  const bool lower_again = gives_lower && !given_.insert("lower bound of " + words[2]).second;
  const bool upper_again = gives_upper && !given_.insert("upper bound of " + words[2]).second;
  if (lower_again || upper_again) Tell("W415");
}

void NaiveWideReader::ApplyIntegerBound(NaiveRecord& column, const NaiveWords& words,
                                        bool has_value, double value) {
  const std::string& code = words[0];
  if (code == "BV" || code == "LI" || code == "UI") Tell("A306");
  if (code == "SC" || code == "SI") Tell("W406");
  if (code == "BV" || code == "LI" || code == "UI" || code == "SI") column.Type = "I";
  if (code == "BV") {
    column.LowerBound = 0;
    column.UpperBound = 1;
  }
  if (code == "LI") column.LowerBound = value;
  if (code == "UI") column.UpperBound = value;
  // 0 says that there is none.
  if ((code == "SC" || code == "SI") && has_value) column.UpperBound = value == 0 ? 1e10 : value;
}

}  // namespace quarvel::testing
