#include "inspect/row_scales.h"

#include <algorithm>
#include <cmath>

namespace quarvel::inspect {
namespace {

RowScale ScaleOf(const model::RowRecord& row, std::int32_t number) {
  RowScale scale = {.row = number};
  for (const model::ElementEntry& entry : row.Elements) {
    const double size = std::fabs(entry.Value);
    if (size == 0) continue;
    scale.smallest = scale.smallest == 0 ? size : std::min(scale.smallest, size);
    scale.largest = std::max(scale.largest, size);
  }
  // The quotient itself may be beyond all numbers.
  if (scale.largest > scale.smallest) {
    scale.decades = std::log10(scale.largest) - std::log10(scale.smallest);
  }
  return scale;
}

bool IsWorse(const RowScale& a, const RowScale& b) {
  return a.decades != b.decades ? a.decades > b.decades : a.row < b.row;
}

}  // namespace

std::vector<RowScale> WorstScaledRows(const model::ModelStore& store, std::size_t most) {
  const model::ModelData& data = store.data();
  std::vector<RowScale> worst;  // a heap with the least of them at its front, once it is full
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    const RowScale scale = ScaleOf(data.Rows[r], r);
    if (scale.decades == 0) continue;
    if (worst.size() == most) {
      if (most == 0 || !IsWorse(scale, worst.front())) continue;
      std::pop_heap(worst.begin(), worst.end(), IsWorse);
      worst.pop_back();
    }
    worst.push_back(scale);
    std::push_heap(worst.begin(), worst.end(), IsWorse);
  }
  std::sort(worst.begin(), worst.end(), IsWorse);
  return worst;
}

}  // namespace quarvel::inspect
