// The two bounds of a record, and what may be done to both at once.
#pragma once

#include <cstdint>

namespace quarvel::model {

// A lower bound of -1E+10 or less is absent, and so is an upper one of +1E+10 or more; what is made absent
// is stored as exactly that. On its other side each is a number like any other: from 1E+10 on, with no
// upper bound, are the bounds 1E+10 and 1E+10.
inline constexpr double BoundLimit = 1e10;

// A fresh record has bounds 0 and 0.
struct Bounds {
  double LowerBound = 0;
  double UpperBound = 0;
};

constexpr bool HasLower(double lower) { return lower > -BoundLimit; }
constexpr bool HasUpper(double upper) { return upper < BoundLimit; }

// Whether no number keeps both. What is absent is kept by all, whatever is stored for it.
constexpr bool AreReversed(const Bounds& bounds) {
  return HasLower(bounds.LowerBound) && HasUpper(bounds.UpperBound) &&
         bounds.LowerBound > bounds.UpperBound;
}
// Whether only one number keeps both.
constexpr bool AreFixed(const Bounds& bounds) {
  return HasLower(bounds.LowerBound) && HasUpper(bounds.UpperBound) &&
         bounds.LowerBound == bounds.UpperBound;
}

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
