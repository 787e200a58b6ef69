// What a point does not keep of a model: limits of rows, bounds of columns, integrality.
//
// A value keeps a limit when it is beyond it by no more than `absolute`, or by no more than `relative`
// times the limit's magnitude. An integer column keeps its integrality when a whole number is as near.
//
// Values that were rounded to some digits before they came here may have been better than they look: what
// the half of a unit in each value's last digit can explain is no violation, and is counted by itself.
//
// Numbers of records are those of the store, from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "model/model_store.h"

namespace quarvel::inspect {

struct FeasibilityTolerance {
  double absolute = 1e-6;
  double relative = 1e-9;

  double Around(double limit) const;
};

enum class ViolationKind : std::uint8_t { kRow, kBound, kIntegrality };

struct Violation {
  ViolationKind kind;
  std::int32_t number = 0;  // of the row or column
  double value = 0;         // the row's activity, the column's value
  double limit = 0;         // what it had to keep to; the nearest whole number
  double amount = 0;        // how far it is beyond that, more than 0
};

struct Violations {
  std::int64_t rows = 0;         // limits of rows
  std::int64_t bounds = 0;       // bounds of columns
  std::int64_t integers = 0;     // columns that are not whole
  std::int64_t rounded = 0;      // of any of them: explained by the rounding of the values
  std::vector<Violation> worst;  // the largest amounts first, rows before bounds before integrality

  std::int64_t count() const { return rows + bounds + integers; }
};

// `values`: one for each column. `digits`: that each of them was rounded to; 0: not rounded. Keeps the
// `kept` worst. One pass over the model.
Violations FindViolations(const model::ModelStore& store, std::span<const double> values,
                          const FeasibilityTolerance& tolerance, int digits, std::size_t kept);

// A row's sum at a point, coefficient by coefficient.
struct RowTerm {
  std::int32_t column = 0;
  double coefficient = 0;
  double value = 0;  // of the column
};
struct RowTerms {
  std::vector<RowTerm> terms;  // in the row's order
  std::int32_t others = 0;     // left out
  double sum_of_others = 0;
  std::int32_t zeros = 0;  // left out too: the column's value is 0
};

// The `most` largest of the row's terms that are not 0.
RowTerms TermsOf(const model::ModelStore& store, std::int32_t row, std::span<const double> values,
                 std::size_t most);

}  // namespace quarvel::inspect
