#include "inspect/record_pairing.h"

#include <algorithm>

namespace quarvel::inspect {
namespace {

using Numbers = model::OneBased<std::int32_t>;

// For each record the next of its name.
Numbers ChainsOf(const NamedRecords& records) {
  Numbers next;
  Numbers last;  // of the name of a first record
  next.Resize(records.count);
  last.Resize(records.count);
  for (std::int32_t number = 1; number <= records.count; ++number) {
    const std::int32_t first = records.find(records.name_of(number));
    if (first != number) next[last[first]] = number;
    last[first] = number;
  }
  return next;
}

}  // namespace

RecordPairing::RecordPairing(const NamedRecords& a, const NamedRecords& b) {
  in_b_.Resize(a.count);
  in_a_.Resize(b.count);
  PairSameOrder(a, b);
  for (std::int32_t number = same_ + 1; number <= a.count; ++number) {
    std::int32_t other = b.find(a.name_of(number));
    if (other != 0 && in_a_[other] != 0) other = TakeNextOfName(other, b);
    in_b_[number] = other;
    if (other != 0) in_a_[other] = number;
  }
}

// The n-th of a name gets the n-th: all of that name before this one are taken, as they stand before it
// in A too.
void RecordPairing::PairSameOrder(const NamedRecords& a, const NamedRecords& b) {
  const std::int32_t shorter = std::min(a.count, b.count);
  while (same_ < shorter && a.name_of(same_ + 1) == b.name_of(same_ + 1)) {
    ++same_;
    in_b_[same_] = same_;
    in_a_[same_] = same_;
  }
}

std::int32_t RecordPairing::TakeNextOfName(std::int32_t first, const NamedRecords& b) {
  if (next_of_name_.empty()) next_of_name_ = ChainsOf(b);
  std::int32_t next = next_of_name_[first];
  while (next != 0 && in_a_[next] != 0) next = next_of_name_[next];
  next_of_name_[first] = next == 0 ? 0 : next_of_name_[next];
  return next;
}

}  // namespace quarvel::inspect
