#include "mps/wide_data.h"

#include <optional>

#include "model/bounds.h"
#include "model/record_types.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

using enum FileProblemCode;

constexpr std::size_t kValue = 4;  // of a line of BOUNDS

bool HasPairs(const TokenList& words) { return words.count() == 3 || words.count() == 5; }

std::string Named(std::string_view name) { return std::string(name); }

// By a line that WideData uses up.
BoundsGiven GivenBy(std::string_view code, bool has_value) {
  if (code == "BV") return {.lower = true, .upper = true};
  if (code[0] == 'L') return {.lower = true};
  return {.upper = code[0] == 'U' || has_value};
}

}  // namespace

bool WideData::Use(const SourceLine& line, const TokenList& words, Section section, bool fits) {
  switch (section) {
    case Section::kStart:
      return false;
    case Section::kRows:
      if (fits && words[1] == "N") free_rows_.Note(line, words[2]);
      return false;
    case Section::kColumns:
      return IsMarker(words) && UseMarker(line, words);
    case Section::kRhs:
      return HasPairs(words) && UseRhs(line, words);
    case Section::kRanges:
      return HasPairs(words) && UseRanges(line, words);
    case Section::kBounds:
      return UseBound(line, words);
  }
  return false;
}

bool WideData::UseMarker(const SourceLine& line, const TokenList& words) {
  for (const model::ColumnTypeTraits& known : model::kColumnTypes) {
    if (!known.marker.empty() && known.marker == words[3]) return false;
  }
  const bool is_set = words[3].starts_with("'SOS");
  Tell(is_set ? kNotLinear : kMarker, line, words[3], Named(words[3]), "passed over");
  return true;
}

bool WideData::IsOfFirst(Set& set, std::string& fact, const SourceLine& line,
                         std::string_view name) {
  if (set.first.empty() && !name.empty()) {
    set.first = name;
    fact = name;
  }
  if (name.empty() || name == set.first) return true;
  if (name != set.other) {
    set.other = name;
    Tell(kSecondSet, line, name, Named(name), "passed over: the set " + set.first + " counts");
  }
  return false;
}

std::int32_t WideData::ReadPair(const SourceLine& line, const TokenList& words, std::size_t first,
                                double& value) const {
  const std::optional<double> number = text::ParseNumber(words[first + 1]);
  if (!number) {
    Tell(kNotNumeric, line, words[first + 1]);
    return 0;
  }
  value = *number;
  const std::int32_t row = sink_.FindRow(words[first]);
  if (row == 0) {
    Tell(kNoSuchRow, line, words[first], Named(words[first]));
  } else {
    spellings_.UseRow(line, words[first], row);
    values_.CheckNumber(line, words[first + 1], value);
  }
  return row;
}

bool WideData::IsOwnRhs(const TokenList& words) const {
  if (ranged_rows_.any()) return true;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    const std::int32_t row = sink_.FindRow(words[first]);
    if (row != 0 && sink_.Row(row).Type == model::RowType::kFree) return true;
  }
  return false;
}

bool WideData::UseRhs(const SourceLine& line, const TokenList& words) {
  if (!sink_.HasRows()) return false;
  if (!IsOfFirst(rhs_, facts_.rhs_set, line, words[1])) return true;
  if (!IsOwnRhs(words)) return false;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    double value = 0;
    const std::int32_t row = ReadPair(line, words, first, value);
    if (row == 0) continue;
    const model::RowLimits limits = sink_.Row(row);
    if (limits.Type == model::RowType::kFree) {
      free_rows_.NoteRhs(line, words[first], row, value);
    } else {
      model::TraitsOf(limits.Type).right_hand_side.Apply(limits, value);
      ranged_rows_.UseRhs(line, words[first], row);
    }
    values_.NoteRhs(line, words[first], row, value);
  }
  return true;
}

bool WideData::UseRanges(const SourceLine& line, const TokenList& words) {
  if (!sink_.HasRows()) return false;
  if (!IsOfFirst(ranges_, facts_.ranges_set, line, words[1])) return true;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    double range = 0;
    const std::int32_t row = ReadPair(line, words, first, range);
    if (row == 0) continue;
    if (sink_.Row(row).Type == model::RowType::kFree) {
      Tell(kRangeOfFreeRow, line, words[first], Named(words[first]), "passed over");
    } else {
      ranged_rows_.Use(line, words[first], row, range);
      values_.NoteRange(line, words[first], row, range);
    }
  }
  return true;
}

bool WideData::UseBound(const SourceLine& line, const TokenList& words) {
  if (!sink_.HasColumns() || words.count() < 3) return false;
  if (!ValueOfBound(words[1])) return false;
  if (!WordSense(sink_).Fits(words, Section::kBounds)) {
    RefuseBound(line, words);
    return true;
  }
  if (!IsOfFirst(bounds_, facts_.bounds_set, line, words[2])) return true;
  const bool no_bound = words.count() == kValue && IsNoBound(words[1], words[kValue]);
  if (no_bound) {
    UseInfinity(line, words);
  } else if (words.count() == kValue && FreesLower(line, words)) {
    sink_.Column(sink_.FindColumn(words[3])).LowerBound = -model::BoundLimit;
  }
  if (words.count() == kValue) TellLimit(line, words);
  const std::optional<WideBound> wide = FindWideBound(words[1]);
  if (wide) UseWideBound(line, words, *wide);
  if (!wide && !no_bound) return false;
  const std::int32_t column = sink_.FindColumn(words[3]);
  // To other readers a column with a line of LI has no upper bound either.
  if (words[1] != "LO") facts_.SayUpper(column);
  values_.NoteBounds(line, words[3], column, GivenBy(words[1], words.count() == kValue));
  spellings_.UseColumn(line, words[3], column);
  return true;
}

// One that makes no sense, of a code that is known.
void WideData::RefuseBound(const SourceLine& line, const TokenList& words) {
  const BoundValue use = *ValueOfBound(words[1]);
  const bool has_value = words.count() == kValue;
  if (words.count() > kValue) return Tell(kTokens, line, {});
  if (use == BoundValue::kNeeded && !has_value) return Tell(kBoundWithoutValue, line, {});
  const bool counts = has_value && use != BoundValue::kIgnored;
  if (counts && !text::ParseNumber(words[kValue]) && !IsNoBound(words[1], words[kValue])) {
    return Tell(kNotNumeric, line, words[kValue]);
  }
  Tell(kNoSuchColumn, line, words[3], Named(words[3]));
}

void WideData::UseWideBound(const SourceLine& line, const TokenList& words, WideBound bound) {
  const std::int32_t number = sink_.FindColumn(words[3]);
  model::Bounds& column = sink_.Column(number);
  if (bound != WideBound::kSemiContinuous) sink_.SetColumnType(number, model::ColumnType::kInteger);
  const char* made = "an integer column with this bound";
  switch (bound) {
    case WideBound::kBinary:
      column = {0, 1};
      made = "an integer column from 0 to 1";
      break;
    case WideBound::kIntegerLower:
      SetBound(line, words, column.LowerBound);
      break;
    case WideBound::kIntegerUpper:
      SetBound(line, words, column.UpperBound);
      break;
    case WideBound::kSemiContinuous:
    case WideBound::kSemiInteger:
      return UseSemiContinuous(line, words, column);
  }
  Tell(kIntegerBound, line, words[1], Named(words[3]), made);
}

// Infinities are set already.
bool WideData::SetBound(const SourceLine& line, const TokenList& words, double& bound) const {
  if (words.count() != kValue || IsNoBound(words[1], words[kValue])) return false;
  bound = text::ParseNumber(words[kValue]).value_or(0);
  values_.CheckNumber(line, words[kValue], bound);
  return true;
}

// An upper bound of 0 says that there is none.
void WideData::UseSemiContinuous(const SourceLine& line, const TokenList& words,
                                 model::Bounds& column) {
  std::string made = words.count() == kValue ? "no upper bound" : "a column like any other";
  double upper = 0;
  if (SetBound(line, words, upper)) {
    column.UpperBound = upper == 0 ? model::BoundLimit : upper;
    if (upper != 0) made = "an upper bound alone";
  }
  Tell(kSemiContinuous, line, words[1], Named(words[3]),
       made + ": that it may be 0 below its lower bound is lost");
}

void WideData::UseInfinity(const SourceLine& line, const TokenList& words) {
  model::Bounds& column = sink_.Column(sink_.FindColumn(words[3]));
  if (words[1].starts_with('L')) {
    column.LowerBound = -model::BoundLimit;
  } else {
    column.UpperBound = model::BoundLimit;
  }
  Tell(kInfiniteValue, line, words[kValue], Named(words[3]), "no bound");
}

bool WideData::FreesLower(const SourceLine& line, const TokenList& words) {
  if (words[1][0] != 'U' && words[1][0] != 'S') return false;
  const std::optional<double> value = text::ParseNumber(words[kValue]);
  if (!value || *value >= 0 || sink_.Column(sink_.FindColumn(words[3])).LowerBound != 0)
    return false;
  if (options_.negative_upper_frees_lower) {
    Tell(kNegativeUpperFrees, line, words[kValue], Named(words[3]), "no lower bound");
    return true;
  }
  Tell(kNegativeUpper, line, words[kValue], Named(words[3]), "the lower bound stays 0");
  return false;
}

// Beyond the limit lint tells it, as the bound is kept.
void WideData::TellLimit(const SourceLine& line, const TokenList& words) const {
  const std::string_view code = words[1];
  if (ValueOfBound(code) == BoundValue::kIgnored) return;
  const std::optional<double> value = text::ParseNumber(words[kValue]);
  const bool sets_lower = code == "LO" || code == "LI" || code == "FX";
  const bool sets_upper = code[0] != 'L';
  if (sets_upper && value == model::BoundLimit) {
    Tell(kAtLimit, line, words[kValue], Named(words[3]), "no upper bound");
  } else if (sets_lower && value == -model::BoundLimit) {
    Tell(kAtLimit, line, words[kValue], Named(words[3]), "no lower bound");
  }
}

}  // namespace quarvel::mps
