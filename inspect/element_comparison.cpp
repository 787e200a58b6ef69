#include "inspect/element_comparison.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace quarvel::inspect {
namespace {

using enum DifferenceKind;

std::span<const model::ElementEntry> EntriesOf(const model::ElementList& list) {
  return {list.store().data(), list.store().size()};
}

// Whether both hold the same bytes.
bool AreIdentical(std::span<const model::ElementEntry> a, std::span<const model::ElementEntry> b) {
  static_assert(sizeof(model::ElementEntry) == sizeof(std::int32_t) + sizeof(double));
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size_bytes()) == 0);
}

}  // namespace

ElementComparison::ElementComparison(const RecordPairing& rows, std::int32_t rows_of_b,
                                     const Tolerance& tolerance, const DifferenceVisitor& visit)
    : rows_(rows), tolerance_(tolerance), visit_(visit) {
  first_.Resize(rows_of_b);
}

void ElementComparison::Compare(RecordPair column, const model::ElementList& a,
                                const model::ElementList& b) {
  const auto entries_a = EntriesOf(a);
  const auto entries_b = EntriesOf(b);
  // Where rows have the same numbers, the same bytes say the same.
  if (rows_.is_same() && AreIdentical(entries_a, entries_b)) return;
  const std::size_t shorter = std::min(entries_a.size(), entries_b.size());
  std::size_t i = 0;
  // In most lists the same coefficients stand in the same order.
  for (; i < shorter; ++i) {
    const RecordPair row = {entries_a[i].Index, rows_.InB(entries_a[i].Index)};
    if (row.b != entries_b[i].Index) break;
    CompareValues(column, row, entries_a[i].Value, entries_b[i].Value);
  }
  if (i < entries_a.size() || i < entries_b.size()) CompareFrom(i, column, a, b);
}

void ElementComparison::CompareFrom(std::size_t start, RecordPair column,
                                    const model::ElementList& a, const model::ElementList& b) {
  Link(start, b);
  std::uint32_t last = 0;
  for (const model::ElementEntry& entry : EntriesOf(a).subspan(start)) {
    const RecordPair row = {entry.Index, rows_.InB(entry.Index)};
    if (row.b == 0) continue;  // the row went, and this with it
    const std::uint32_t found = Take(row.b);
    if (found == 0) {
      visit_({kElementWent, row, column, entry.Value, 0});
      continue;
    }
    CompareValues(column, row, entry.Value, EntriesOf(b)[found - 1].Value);
    if (found < last) visit_({kElementOrder, row, column});
    last = found;
  }
  for (const model::ElementEntry& entry : EntriesOf(b).subspan(start)) {
    const std::uint32_t left = Take(entry.Index);
    const RecordPair row = {rows_.InA(entry.Index), entry.Index};
    if (left == 0 || row.a == 0) continue;  // found in A, or the row came and this with it
    visit_({kElementCame, row, column, 0, EntriesOf(b)[left - 1].Value});
  }
}

void ElementComparison::Link(std::size_t start, const model::ElementList& b) {
  const auto entries = EntriesOf(b);
  next_.resize(std::max(next_.size(), entries.size() + 1));
  for (std::size_t i = entries.size(); i > start; --i) {
    std::uint32_t& first = first_[entries[i - 1].Index];
    next_[i] = first;
    first = static_cast<std::uint32_t>(i);
  }
}

std::uint32_t ElementComparison::Take(std::int32_t row_of_b) {
  std::uint32_t& first = first_[row_of_b];
  const std::uint32_t taken = first;
  if (taken != 0) first = next_[taken];
  return taken;
}

void ElementComparison::CompareValues(RecordPair column, RecordPair row, double a, double b) {
  if (!AreClose(a, b, tolerance_)) visit_({kElementValue, row, column, a, b});
}

}  // namespace quarvel::inspect
