// The two bounds of a record, and what may be done to both at once.
#pragma once

#include <cstdint>

namespace quarvel::model {

// A bound at or beyond this magnitude is absent; stored as exactly -1E+10 or +1E+10, compared
// exactly.
inline constexpr double BoundLimit = 1e10;

// A fresh record has bounds 0 and 0.
struct Bounds {
  double LowerBound = 0;
  double UpperBound = 0;
};

constexpr bool HasLower(double lower) { return lower > -BoundLimit; }
constexpr bool HasUpper(double upper) { return upper < BoundLimit; }

// What becomes of a bound: it stays, takes the given value, or becomes absent.
enum class BoundChange : std::uint8_t { kKept, kGiven, kAbsent };

struct BoundsChange {
  BoundChange lower = BoundChange::kKept;
  BoundChange upper = BoundChange::kKept;

  // The bounds after the change. Only for bounds that are not kept.
  constexpr double NewLower(double value) const {
    return lower == BoundChange::kGiven ? value : -BoundLimit;
  }
  constexpr double NewUpper(double value) const {
    return upper == BoundChange::kGiven ? value : BoundLimit;
  }

  template <class Record>
  void Apply(Record& record, double value) const {
    if (lower != BoundChange::kKept) record.LowerBound = NewLower(value);
    if (upper != BoundChange::kKept) record.UpperBound = NewUpper(value);
  }
};

}  // namespace quarvel::model
