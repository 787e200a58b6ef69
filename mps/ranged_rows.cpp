#include "mps/ranged_rows.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>

#include "model/record_types.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

constexpr double kNoRange = std::numeric_limits<double>::quiet_NaN();

// The limits are the right-hand side, or what the last range has made of it.
void ApplyToEqual(const model::RowLimits& limits, double last_range, double range) {
  const double rhs = last_range > 0 ? limits.LowerBound : limits.UpperBound;
  limits.LowerBound = range > 0 ? rhs : rhs + range;
  limits.UpperBound = range > 0 ? rhs + range : rhs;
}

}  // namespace

void RangedRows::Use(const SourceLine& line, std::string_view word, std::int32_t row,
                     double range) {
  if (sink_.Row(row).Type == model::RowType::kEqual && range < 0) {
    TellOf(hear_, FileProblemCode::kRangeBySign, line, word, std::string(word),
           "its lower limit is " + text::GeneralText(-range) + " below the right-hand side");
  }
  if (!has_rhs_) TellOrder(line, {}, "they wait for the right-hand sides");
  Apply(row, RangeOf(row), range);
  DropInfinite(line, word, row);
  const auto place = static_cast<std::size_t>(row);
  if (place >= ranges_.size()) ranges_.resize(place + 1, kNoRange);
  ranges_[place] = range;
}

void RangedRows::UseRhs(const SourceLine& line, std::string_view word, std::int32_t row) {
  const double range = RangeOf(row);
  if (std::isnan(range)) return;
  TellOrder(line, word, "its range goes by this right-hand side");
  Apply(row, kNoRange, range);
  DropInfinite(line, word, row);
}

double RangedRows::RangeOf(std::int32_t row) const {
  const auto place = static_cast<std::size_t>(row);
  return place < ranges_.size() ? ranges_[place] : kNoRange;
}

void RangedRows::Apply(std::int32_t row, double last_range, double range) {
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
      ApplyToEqual(limits, last_range, range);
      break;
  }
}

// Both add up to more than a double holds.
void RangedRows::DropInfinite(const SourceLine& line, std::string_view word, std::int32_t row) {
  const model::RowLimits limits = sink_.Row(row);
  const bool no_lower = std::isinf(limits.LowerBound);
  if (!no_lower && !std::isinf(limits.UpperBound)) return;
  if (no_lower) {
    limits.LowerBound = -model::BoundLimit;
  } else {
    limits.UpperBound = model::BoundLimit;
  }
  TellOf(hear_, FileProblemCode::kLimitTooLarge, line, word, std::string(word),
         no_lower ? "no lower limit" : "no upper limit");
}

void RangedRows::TellOrder(const SourceLine& line, std::string_view word, const char* made) {
  if (has_told_order_) return;
  has_told_order_ = true;
  TellOf(hear_, FileProblemCode::kRangesFirst, line, word, std::string(word), made);
}

}  // namespace quarvel::mps
