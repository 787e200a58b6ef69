// Compares the coefficients of a column of model A with those of the same column of model B. Part of
// Compare (compare.h), which says what counts as the same.
#pragma once

#include <cstdint>
#include <vector>

#include "inspect/compare.h"
#include "inspect/record_pairing.h"
#include "model/model_data.h"

namespace quarvel::inspect {

class ElementComparison {
 public:
  // All must outlive it. `rows_of_b` is how many rows B has.
  ElementComparison(const RecordPairing& rows, std::int32_t rows_of_b, const Tolerance& tolerance,
                    const DifferenceVisitor& visit);

  // `column` is told with each difference. Linear in the lengths of both lists.
  void Compare(RecordPair column, const model::ElementList& a, const model::ElementList& b);

 private:
  // Both lists from that offset on, whose coefficients stand in any order.
  void CompareFrom(std::size_t start, RecordPair column, const model::ElementList& a,
                   const model::ElementList& b);
  // Lets first_ and next_ lead from each row to B's entries of it.
  void Link(std::size_t start, const model::ElementList& b);
  // The first entry of that row that was not taken yet, counted from 1; 0 when there is none.
  std::uint32_t Take(std::int32_t row_of_b);
  void CompareValues(RecordPair column, RecordPair row, double a, double b);

  const RecordPairing& rows_;
  const Tolerance& tolerance_;
  const DifferenceVisitor& visit_;
  model::OneBased<std::uint32_t> first_;  // for each row of B; 0 between two calls of Compare
  std::vector<std::uint32_t> next_;       // for each entry of B's list
};

}  // namespace quarvel::inspect
