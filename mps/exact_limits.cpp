#include "mps/exact_limits.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace quarvel::mps {
namespace {

using model::BoundLimit;
using model::Bounds;
using model::RowRecord;
using model::RowType;

bool IsSame(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool AreEqual(const Bounds& a, const Bounds& b) {
  return a.LowerBound == b.LowerBound && a.UpperBound == b.UpperBound;
}

Bounds FreshLimits(RowType type) {
  const model::RowTypeTraits& traits = model::TraitsOf(type);
  return {traits.FreshLower(), traits.FreshUpper()};
}

// A line in ROWS with a right-hand side where the type alone does not say it.
RowLines WithLimit(RowType type, double limit) {
  RowLines lines = {type, std::nullopt, std::nullopt, FreshLimits(type)};
  if (IsSame(limit, 0)) return lines;
  lines.right_hand_side = limit;
  model::TraitsOf(type).right_hand_side.Apply(lines.back, limit);
  return lines;
}

RowLines WithRange(RowType type, const Bounds& limits, double range) {
  const bool from_below = type == RowType::kGreater;
  RowLines lines = WithLimit(type, from_below ? limits.LowerBound : limits.UpperBound);
  lines.range = range;
  if (from_below) {
    lines.back.UpperBound = lines.back.LowerBound + range;
  } else {
    lines.back.LowerBound = lines.back.UpperBound - range;
  }
  return lines;
}

// The first choice that reads back, or the nearest size. Sizes that are further away give other limits.
RowLines Ranged(const Bounds& limits) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  constexpr int kFarthest = 2;
  const double nearest = std::min(std::fabs(limits.UpperBound - limits.LowerBound), kLargest);
  for (const RowType type : {RowType::kGreater, RowType::kLess}) {
    for (const double towards : {0.0, kLargest}) {
      double size = nearest;
      for (int away = 0; away <= kFarthest; ++away, size = std::nextafter(size, towards)) {
        RowLines lines = WithRange(type, limits, size);
        if (AreEqual(lines.back, limits)) return lines;
      }
    }
  }
  return WithRange(RowType::kGreater, limits, nearest);
}

bool IsAbsent(const Bounds& limits) {
  return limits.LowerBound == -BoundLimit && limits.UpperBound == BoundLimit;
}

RowLines FreeLines() {
  return {RowType::kFree, std::nullopt, std::nullopt, FreshLimits(RowType::kFree)};
}

// Of a row that is not free.
RowLines ByLimits(const Bounds& limits) {
  const bool no_lower = limits.LowerBound == -BoundLimit;
  const bool no_upper = limits.UpperBound == BoundLimit;
  if (limits.LowerBound == limits.UpperBound && !no_lower && !no_upper) {
    return WithLimit(RowType::kEqual, limits.LowerBound);
  }
  if (no_upper) return WithLimit(RowType::kGreater, limits.LowerBound);
  if (no_lower) return WithLimit(RowType::kLess, limits.UpperBound);
  return Ranged(limits);
}

}  // namespace

RowLines RowLinesOf(const RowRecord& row, bool may_be_free) {
  if (row.Type == RowType::kNone)
    return {RowType::kNone, std::nullopt, std::nullopt, {row.LowerBound, row.UpperBound}};
  if (row.Type != RowType::kFree) return ByLimits(row);
  const bool limits_nothing = model::RowTypeOf(row.LowerBound, row.UpperBound) == RowType::kFree;
  if (limits_nothing && !(may_be_free && IsAbsent(row))) return ByLimits(row);
  // What limits it by its numbers alone must not bind.
  if (!may_be_free) return WithLimit(RowType::kGreater, -BoundLimit);
  return FreeLines();
}

RowLines RowLinesOf(const model::ModelData& data, const FileFacts& facts, std::int32_t objective,
                    std::int32_t row) {
  const RowRecord& record = data.Rows[row];
  const bool is_named = row == objective && record.Name == facts.objective;
  return is_named && record.Type == RowType::kFree ? FreeLines()
                                                   : RowLinesOf(record, row >= objective);
}

std::int32_t ObjectiveOf(const model::ModelData& data, const FileFacts& facts) {
  std::int32_t first = 0;
  std::int32_t first_written = 0;
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    const RowRecord& row = data.Rows[i];
    if (row.Type != RowType::kFree) continue;
    if (!facts.objective.empty() && row.Name == facts.objective) return i;
    if (first == 0) first = i;
    if (first_written == 0 && RowLinesOf(row, true).type == RowType::kFree) first_written = i;
  }
  return first_written != 0 ? first_written : first;
}

}  // namespace quarvel::mps
