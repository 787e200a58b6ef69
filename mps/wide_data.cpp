#include "mps/wide_data.h"

#include <cmath>
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

}  // namespace

bool WideData::Use(const SourceLine& line, const TokenList& words, Section section, bool fits) {
  switch (section) {
    case Section::kStart:
      return false;
    case Section::kRows:
      if (fits && words[1] == "N") NoteRow(line, words[2]);
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

bool WideData::IsObjective(std::string_view row) const {
  if (!options_.objective.empty()) return row == options_.objective;
  if (!named_objective_.empty()) return row == named_objective_;
  return !free_rows_.empty() && row == free_rows_.front();
}

void WideData::NoteRow(const SourceLine& line, std::string_view name) {
  free_rows_.emplace_back(name);
  if (!IsObjective(name)) Tell(kFurtherFreeRow, line, name, Named(name), "it stays as a free row");
}

bool WideData::UseMarker(const SourceLine& line, const TokenList& words) {
  for (const model::ColumnTypeTraits& known : model::kColumnTypes) {
    if (!known.marker.empty() && known.marker == words[3]) return false;
  }
  const bool is_set = words[3].starts_with("'SOS");
  Tell(is_set ? kNotLinear : kMarker, line, words[3], Named(words[3]), "passed over");
  return true;
}

void WideData::NameObjective(const SourceLine& line, std::string_view name) {
  named_objective_ = name;
  naming_line_ = line.number();
  const bool heeded = options_.objective.empty();
  Tell(kObjectiveName, line, name, Named(name),
       heeded ? "the row of this name is the objective" : "passed over: another is asked for");
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
  if (row == 0) Tell(kNoSuchRow, line, words[first], Named(words[first]));
  return row;
}

bool WideData::UseRhs(const SourceLine& line, const TokenList& words) {
  if (!sink_.HasRows()) return false;
  if (!IsOfFirst(rhs_, facts_.rhs_set, line, words[1])) return true;
  bool has_free_row = false;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    const std::int32_t row = sink_.FindRow(words[first]);
    has_free_row |= row != 0 && sink_.Row(row).Type == model::RowType::kFree;
  }
  if (!has_free_row) return false;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    double value = 0;
    const std::int32_t row = ReadPair(line, words, first, value);
    if (row == 0) continue;
    const model::RowLimits limits = sink_.Row(row);
    if (limits.Type == model::RowType::kFree) {
      UseRhsOfFreeRow(line, words[first], row, value);
    } else {
      model::TraitsOf(limits.Type).right_hand_side.Apply(limits, value);
    }
  }
  return true;
}

void WideData::UseRhsOfFreeRow(const SourceLine& line, std::string_view word, std::int32_t row,
                               double value) {
  free_rhs_.emplace_back(row, value);
  if (IsObjective(word)) {
    Tell(kObjectiveConstant, line, word, Named(word),
         text::GeneralText(value == 0 ? 0 : -value) + " is added to the objective");
  } else {
    Tell(kFreeRowRhs, line, word, Named(word), "passed over");
  }
}

bool WideData::UseRanges(const SourceLine& line, const TokenList& words) {
  if (!sink_.HasRows()) return false;
  if (!IsOfFirst(ranges_, facts_.ranges_set, line, words[1])) return true;
  for (std::size_t first = 2; first < words.count(); first += 2) {
    double range = 0;
    const std::int32_t row = ReadPair(line, words, first, range);
    if (row != 0) UseRange(line, words[first], row, range);
  }
  return true;
}

void WideData::UseRange(const SourceLine& line, std::string_view word, std::int32_t row,
                        double range) {
  const model::RowType type = sink_.Row(row).Type;
  if (type == model::RowType::kFree)
    return Tell(kRangeOfFreeRow, line, word, Named(word), "passed over");
  if (type == model::RowType::kEqual && range < 0) {
    Tell(kRangeBySign, line, word, Named(word),
         "its lower limit is " + text::GeneralText(-range) + " below the right-hand side");
  }
  if (has_rhs_) return ApplyRange(row, range);
  if (waiting_ranges_.empty())
    Tell(kRangesFirst, line, {}, {}, "they wait for the right-hand sides");
  waiting_ranges_.emplace_back(row, range);
}

void WideData::ApplyRange(std::int32_t row, double range) {
  const model::RowLimits limits = sink_.Row(row);
  switch (model::TraitsOf(limits.Type).range) {
    case model::RangeEffect::kNothing:
      break;
    case model::RangeEffect::kSetsUpper:
      limits.UpperBound = limits.LowerBound + std::fabs(range);
      break;
    case model::RangeEffect::kSetsLower:
      limits.LowerBound = limits.UpperBound - std::fabs(range);
      break;
    case model::RangeEffect::kBySign:
      if (range > 0) {
        limits.UpperBound = limits.LowerBound + range;
      } else {
        limits.LowerBound = limits.UpperBound + range;
      }
      break;
  }
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
  return wide || no_bound;
}

// One that makes no sense, of a code that is known.
void WideData::RefuseBound(const SourceLine& line, const TokenList& words) {
  const BoundValue use = *ValueOfBound(words[1]);
  const bool has_value = words.count() == kValue;
  if (use == BoundValue::kNeeded && !has_value) return Tell(kBoundWithoutValue, line, {});
  if (words.count() > kValue) return Tell(kTokens, line, {});
  const bool counts = has_value && use != BoundValue::kIgnored;
  if (counts && !text::ParseNumber(words[kValue]) && !IsNoBound(words[1], words[kValue])) {
    return Tell(kNotNumeric, line, words[kValue]);
  }
  Tell(kNoSuchColumn, line, words[3], Named(words[3]));
}

void WideData::UseWideBound(const SourceLine& line, const TokenList& words, WideBound bound) {
  const std::int32_t number = sink_.FindColumn(words[3]);
  model::Bounds& column = sink_.Column(number);
  const bool has_value = words.count() == kValue && !IsNoBound(words[1], words[kValue]);
  const double value = has_value ? text::ParseNumber(words[kValue]).value_or(0) : 0;
  const bool semi = bound == WideBound::kSemiContinuous || bound == WideBound::kSemiInteger;
  if (bound != WideBound::kSemiContinuous) sink_.SetColumnType(number, model::ColumnType::kInteger);
  std::string made = "an integer column with this bound";
  if (bound == WideBound::kBinary) {
    column = {0, 1};
    made = "an integer column from 0 to 1";
  } else if (bound == WideBound::kIntegerLower && has_value) {
    column.LowerBound = value;
  } else if (has_value) {
    column.UpperBound = value;
  }
  if (semi) made = "an upper bound alone: that it may be 0 below its lower bound is lost";
  Tell(semi ? kSemiContinuous : kIntegerBound, line, words[1], Named(words[3]), std::move(made));
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
  if (words[1] != "UP" && words[1] != "UI") return false;
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

void WideData::Finish() {
  for (const auto& [row, range] : waiting_ranges_) ApplyRange(row, range);
  const std::string& asked = options_.objective.empty() ? named_objective_ : options_.objective;
  std::int32_t objective = asked.empty() ? 0 : sink_.FindRow(asked);
  if (objective != 0 && sink_.Row(objective).Type != model::RowType::kFree) objective = 0;
  if (!asked.empty() && objective == 0) {
    hear_({.code = kNoSuchObjective,
           .line = options_.objective.empty() ? naming_line_ : 0,
           .item = asked,
           .made = "the first N row is the objective"});
  }
  if (objective != 0) facts_.objective = asked;
  if (objective == 0 && !free_rows_.empty()) {
    facts_.objective = free_rows_.front();
    objective = sink_.FindRow(facts_.objective);
  }
  for (const auto& [row, value] : free_rhs_) {
    if (row == objective) facts_.objective_constant = value == 0 ? 0 : -value;
  }
}

}  // namespace quarvel::mps
