#include "model/deferred_removals.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "model/record_names.h"
#include "model/stored_model.h"

namespace quarvel::model {
namespace {

using Positions = std::vector<std::int32_t>;

// The new numbers of stored positions once the gaps are closed. Every coefficient's number is
// looked up, in any order, so a position takes one byte, which the processor's cache can hold for
// most models: the gaps in front of it within its block.
class NewNumbers {
 public:
  NewNumbers(const Positions& gone, std::int32_t stored)
      : gone_(static_cast<std::int32_t>(gone.size())), within_(static_cast<std::size_t>(stored)) {
    auto next = gone.begin();
    std::int32_t before = 0;
    for (std::size_t offset = 0; offset < within_.size(); ++offset) {
      if (offset % kBlock == 0) blocks_.push_back(before);
      const bool is_gone = next != gone.end() && Offset(*next) == offset;
      within_[offset] = is_gone ? kGone : static_cast<std::uint8_t>(before - blocks_.back());
      if (!is_gone) continue;
      ++next;
      ++before;
    }
  }

  // 0 for what is gone. A number beyond what is stored moves down past every gap.
  std::int32_t Of(std::int32_t position) const {
    if (position < 1) return position;
    const std::size_t offset = Offset(position);
    if (offset >= within_.size()) return position - gone_;
    const std::uint8_t within = within_[offset];
    return within == kGone ? 0 : position - blocks_[offset / kBlock] - within;
  }

 private:
  static constexpr std::size_t kBlock = 128;
  static constexpr std::uint8_t kGone = 0xFF;
  static_assert(kBlock <= kGone);
  static std::size_t Offset(std::int32_t position) {
    return static_cast<std::size_t>(position - 1);
  }

  std::int32_t gone_;
  std::vector<std::uint8_t> within_;  // the gaps before a position within its block, or kGone
  std::vector<std::int32_t> blocks_;  // the gaps before a block
};

// Names that stand at the end leave the index one by one; otherwise the numbers of the others
// change too.
template <class Record>
void RemoveNames(const OneBased<Record>& records, const Positions& gone, std::int32_t left,
                 NameIndex& names) {
  if (gone.front() != left + 1) {
    names.MarkStale();
    return;
  }
  for (const std::int32_t position : gone) {
    names.Remove(records[position].Name, position);
  }
}

template <class Record>
void CloseRecords(OneBased<Record>& records, const Positions& gone, std::int32_t left) {
  auto next = gone.begin();
  std::int32_t number = gone.front();
  for (std::int32_t position = number; position <= records.size(); ++position) {
    if (next != gone.end() && *next == position) {
      ++next;
    } else {
      records[number++] = std::move(records[position]);
    }
  }
  if (left == 0) {
    records.Release();
  } else {
    records.Resize(left);
  }
}

void Renumber(ElementList& list, const NewNumbers& numbers) {
  std::int32_t kept = 0;
  for (ElementEntry& entry : list) {
    const std::int32_t number = numbers.Of(entry.Index);
    if (number == 0 && entry.Index != 0) continue;
    list[++kept] = {number, entry.Value};
  }
  if (kept < list.size()) list.Resize(kept);
}

template <class Record>
void CloseGapsOf(OneBased<Record>& records, std::int32_t left, NameIndex& names, auto& others,
                 std::int32_t other_count, const Positions& gone) {
  const NewNumbers numbers(gone, records.size());
  RemoveNames(records, gone, left, names);
  CloseRecords(records, gone, left);
  for (std::int32_t i = 1; i <= other_count; ++i) Renumber(others[i].Elements, numbers);
}

}  // namespace

std::int32_t DeferredRemovals::Position(Kind kind, std::int32_t number) const {
  if (positions_.empty() || kind != kind_) return number;
  // positions_[i] - i is one more than what is left before that position, and never falls.
  std::size_t low = 0;
  std::size_t high = positions_.size();
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (positions_[middle] - static_cast<std::int32_t>(middle) <= number) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return number + static_cast<std::int32_t>(low);
}

void DeferredRemovals::Note(Kind kind, std::int32_t position) {
  kind_ = kind;
  if (positions_.empty() || positions_.back() < position) {
    positions_.push_back(position);
  } else {
    positions_.insert(std::lower_bound(positions_.begin(), positions_.end(), position), position);
  }
}

bool DeferredRemovals::IsCostly(std::int32_t position) const {
  constexpr std::ptrdiff_t kMany = 16384;
  const auto size = static_cast<std::ptrdiff_t>(positions_.size());
  if (size <= kMany || positions_.back() < position) return false;
  const auto place = std::lower_bound(positions_.begin(), positions_.end(), position);
  return positions_.end() - place > kMany;
}

void CloseGaps(StoredModel& model, DeferredRemovals& removals) {
  if (removals.empty()) return;
  ModelData& data = model.data;
  const Positions& gone = removals.positions();
  if (removals.kind() == DeferredRemovals::Kind::kRows) {
    CloseGapsOf(data.Rows, data.NumberOfRows, model.row_names, data.Columns, data.NumberOfColumns,
                gone);
    RebuildRowIndexes(data);
  } else {
    CloseGapsOf(data.Columns, data.NumberOfColumns, model.column_names, data.Rows,
                data.NumberOfRows, gone);
  }
  removals.Clear();
}

}  // namespace quarvel::model
