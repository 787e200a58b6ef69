#include <algorithm>
#include <bit>
#include <cmath>
#include <tuple>
#include <vector>

#include "inspect/lint_parts.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using model::ElementEntry;
using model::ElementList;
using mps::FileProblem;
using mps::FileProblemCode;

// The coefficient of the lowest number, by which the others are divided.
double LeadingValue(const ElementList& list) {
  const auto* const leading = std::min_element(
      list.begin(), list.end(),
      [](const ElementEntry& a, const ElementEntry& b) { return a.Index < b.Index; });
  return leading->Value;
}

// Spreads the bits of a number over all places.
std::uint64_t Mixed(std::uint64_t bits) {
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31);
}

// Equal for lists with the same records, in whatever order they stand.
std::uint64_t PatternOf(const ElementList& list) {
  std::uint64_t sum = 0;
  for (const ElementEntry& entry : list) {
    const std::uint64_t spread = static_cast<std::uint64_t>(entry.Index) * 0x9E3779B97F4A7C15U;
    sum += spread ^ (spread >> 29);
  }
  return Mixed(sum);
}

// Equal for lists that are multiples of one another, in whatever order they stand: of each quotient
// the last 12 bits are rounded away, which two ways of computing one number do not agree in.
std::uint64_t Fingerprint(const ElementList& list) {
  constexpr std::uint64_t kRounded = 0xFFF;
  const double leading = LeadingValue(list);
  std::uint64_t sum = static_cast<std::uint64_t>(list.size());
  for (const ElementEntry& entry : list) {
    const auto quotient = std::bit_cast<std::uint64_t>(entry.Value / leading);
    const std::uint64_t rounded = (quotient + kRounded / 2 + 1) & ~kRounded;
    sum += Mixed(rounded + static_cast<std::uint64_t>(entry.Index) * 0x9E3779B97F4A7C15U);
  }
  return sum;
}

std::vector<ElementEntry> Sorted(const ElementList& list) {
  std::vector<ElementEntry> sorted(list.begin(), list.end());
  std::sort(sorted.begin(), sorted.end(), [](const ElementEntry& a, const ElementEntry& b) {
    return a.Index < b.Index || (a.Index == b.Index && double{a.Value} < double{b.Value});
  });
  return sorted;
}

bool AreParallel(const ElementList& a, const ElementList& b) {
  constexpr double kTolerance = 1e-11;
  if (a.size() != b.size()) return false;
  const double factor = LeadingValue(b) / LeadingValue(a);
  const std::vector<ElementEntry> first = Sorted(a);
  const std::vector<ElementEntry> second = Sorted(b);
  return std::equal(first.begin(), first.end(), second.begin(),
                    [factor](const ElementEntry& x, const ElementEntry& y) {
                      const double expected = x.Value * factor;
                      return x.Index == y.Index &&
                             std::fabs(y.Value - expected) <= kTolerance * std::fabs(expected);
                    });
}

struct Candidate {
  std::uint64_t fingerprint;
  std::int32_t number;
};

// A record that is a multiple of an earlier one.
struct Multiple {
  std::int32_t number;
  std::int32_t of;
};

bool MayBeParallel(const model::RowRecord& row) {
  return row.ElementCount() > 1 && model::TraitsOf(row.Type).binds;
}
bool MayBeParallel(const model::ColumnRecord& column) { return column.ElementCount() > 1; }

// Leaves out those whose fingerprint no other has, and by chance keeps some of them: of a large model
// few are left to be sorted.
void KeepShared(std::vector<Candidate>& candidates) {
  constexpr std::size_t kMostSlots = std::size_t{1} << 24;
  const std::size_t slots =
      std::bit_ceil(std::clamp<std::size_t>(8 * candidates.size(), 64, kMostSlots));
  const auto slot_of = [mask = slots - 1](const Candidate& candidate) {
    return static_cast<std::size_t>(candidate.fingerprint) & mask;
  };
  std::vector<bool> is_used(slots);
  std::vector<bool> is_shared(slots);
  for (const Candidate& candidate : candidates) {
    const std::size_t slot = slot_of(candidate);
    if (is_used[slot]) is_shared[slot] = true;
    is_used[slot] = true;
  }
  std::erase_if(candidates,
                [&](const Candidate& candidate) { return !is_shared[slot_of(candidate)]; });
}

void Sort(std::vector<Candidate>& candidates) {
  std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
    return std::tie(a.fingerprint, a.number) < std::tie(b.fingerprint, b.number);
  });
}

// Leaves those that have one with the same fingerprint beside them.
std::vector<Candidate> SharedOf(const std::vector<Candidate>& sorted) {
  std::vector<Candidate> shared;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const auto is_like = [&](std::size_t other) {
      return other < sorted.size() && sorted[other].fingerprint == sorted[i].fingerprint;
    };
    if (is_like(i - 1) || is_like(i + 1)) shared.push_back(sorted[i]);
  }
  return shared;
}

// Most have a pattern of their own: to see that takes no division, and no second look at their lists.
template <class Records>
std::vector<Candidate> CandidatesOf(const Records& records, std::int32_t count) {
  std::vector<Candidate> candidates;
  candidates.reserve(static_cast<std::size_t>(count));
  for (std::int32_t number = 1; number <= count; ++number) {
    if (!MayBeParallel(records[number])) continue;
    candidates.push_back({PatternOf(records[number].Elements), number});
  }
  KeepShared(candidates);
  Sort(candidates);
  candidates = SharedOf(candidates);
  for (Candidate& candidate : candidates) {
    candidate.fingerprint = Fingerprint(records[candidate.number].Elements);
  }
  Sort(candidates);
  return candidates;
}

// Each candidate is compared with one other at most, whatever their fingerprints are.
template <class Records>
std::vector<Multiple> MultiplesOf(const Records& records, std::int32_t count) {
  const std::vector<Candidate> candidates = CandidatesOf(records, count);
  std::vector<Multiple> multiples;
  std::size_t first = 0;
  for (std::size_t next = 1; next < candidates.size(); ++next) {
    const Candidate& a = candidates[first];
    const Candidate& b = candidates[next];
    if (a.fingerprint == b.fingerprint &&
        AreParallel(records[a.number].Elements, records[b.number].Elements)) {
      multiples.push_back({b.number, a.number});
    } else {
      first = next;
    }
  }
  std::sort(multiples.begin(), multiples.end(),
            [](const Multiple& a, const Multiple& b) { return a.number < b.number; });
  return multiples;
}

template <class Records>
void LintRecords(const Records& records, std::int32_t count, FileProblemCode code,
                 const LintListener& listener) {
  for (const Multiple& found : MultiplesOf(records, count)) {
    listener.Tell(code, [&] {
      const auto& record = records[found.number];
      const auto& of = records[found.of];
      const double factor = LeadingValue(record.Elements) / LeadingValue(of.Elements);
      return FileProblem{
          .code = {}, .item = record.Name, .made = text::GeneralText(factor) + " times " + of.Name};
    });
  }
}

}  // namespace

void LintParallel(const model::ModelData& data, const LintListener& listener) {
  LintRecords(data.Rows, data.NumberOfRows, FileProblemCode::kParallelRows, listener);
  LintRecords(data.Columns, data.NumberOfColumns, FileProblemCode::kParallelColumns, listener);
}

}  // namespace quarvel::inspect
