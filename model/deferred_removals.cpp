#include "model/deferred_removals.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "model/record_names.h"
#include "model/stored_model.h"

namespace quarvel::model {
namespace {

// The new numbers of stored positions once the gaps are closed. Every coefficient's number is
// looked up, in any order, so a position takes one byte, which the processor's cache can hold for
// most models: the gaps in front of it within its block.
class NewNumbers {
 public:
  explicit NewNumbers(const Gaps& gaps)
      : gone_(gaps.gone()), within_(static_cast<std::size_t>(gaps.stored())) {
    blocks_.reserve(within_.size() / kBlock + 1);
    std::int32_t before = 0;
    for (std::size_t offset = 0; offset < within_.size(); ++offset) {
      if (offset % kBlock == 0) blocks_.push_back(before);
      const auto position = static_cast<std::int32_t>(offset) + 1;
      const auto within = static_cast<std::uint8_t>(before - blocks_.back());
      within_[offset] = within;
      if (!gaps.IsGone(position)) continue;
      if (gaps.IsDead(position)) within_[offset] = kGone;
      ++before;
    }
  }

  // 0 for an entry that is gone. A number beyond what is stored moves down past every gap.
  std::int32_t Of(std::int32_t position) const {
    if (position == Gaps::kNowhere) return 0;
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
void RemoveNames(const OneBased<Record>& records, const Gaps& gaps, std::int32_t left,
                 NameIndex& names) {
  if (gaps.first_gone() != left + 1) {
    names.MarkStale();
    return;
  }
  for (std::int32_t position = left + 1; position <= gaps.stored(); ++position) {
    names.Remove(records[position].Name, position);
  }
}

template <class Record>
void CloseRecords(OneBased<Record>& records, const Gaps& gaps, std::int32_t left) {
  std::int32_t number = gaps.first_gone();
  for (std::int32_t position = number; position <= records.size(); ++position) {
    if (!gaps.IsGone(position)) records[number++] = std::move(records[position]);
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

template <class Record, class Other>
void CloseGapsOf(OneBased<Record>& records, std::int32_t left, NameIndex& names,
                 OneBased<Other>& others, const Gaps& gaps, const NewNumbers& numbers) {
  if (!gaps.open()) return;
  if (gaps.gone() > 0) {
    RemoveNames(records, gaps, left, names);
    CloseRecords(records, gaps, left);
  }
  for (Other& other : others) Renumber(other.Elements, numbers);
}

}  // namespace

void DeferredRemovals::OpenRows(StoredModel& model) {
  if (rows.open()) return;
  ModelData& data = model.data;
  if (in_order) {
    const std::int32_t lists = columns.open() ? columns.stored() : data.NumberOfColumns;
    naming_rows.Make(data.Columns, lists, data.NumberOfRows);
  }
  rows.Open(data.NumberOfRows, in_order ? Gaps::Entries::kMoveOn : Gaps::Entries::kGo);
  data.Rows.Resize(data.NumberOfRows);
}

void DeferredRemovals::OpenColumns(StoredModel& model) {
  if (columns.open()) return;
  ModelData& data = model.data;
  if (in_order) {
    const std::int32_t lists = rows.open() ? rows.stored() : data.NumberOfRows;
    naming_columns.Make(data.Rows, lists, data.NumberOfColumns);
  }
  left_in_rows.Resize(data.Rows.size());
  for (std::int32_t r = 1; r <= left_in_rows.size(); ++r) {
    left_in_rows[r] = data.Rows[r].ElementCount();
  }
  columns.Open(data.NumberOfColumns, in_order ? Gaps::Entries::kMoveOn : Gaps::Entries::kGo);
  data.Columns.Resize(data.NumberOfColumns);
}

void DeferredRemovals::CountInColumns(const ModelData& data) {
  if (!left_in_columns.empty()) return;
  OneBased<std::int32_t> counts;
  counts.Resize(data.Columns.size());
  for (std::int32_t c = 1; c <= counts.size(); ++c) {
    for (const ElementEntry& entry : data.Columns[c].Elements) {
      if (!rows.IsDead(entry.Index)) ++counts[c];
    }
  }
  left_in_columns = std::move(counts);
}

// Where lists agree, each row of the column's list has one coefficient there.
std::vector<std::int32_t> DeferredRemovals::RowsEmptiedBy(const StoredModel& model,
                                                          std::int32_t column) {
  std::vector<std::int32_t> emptied;
  const auto add = [&](std::int32_t row) {
    if (!rows.IsGone(row) && left_in_rows[row] == 1) emptied.push_back(row);
  };
  if (in_order) {
    naming_columns.Prepare(column);
    naming_columns.ForEachOwner(column, add);
  } else {
    for (const ElementEntry& entry : model.data.Columns[column].Elements) add(entry.Index);
    std::sort(emptied.begin(), emptied.end());
  }
  return emptied;
}

void DeferredRemovals::RemoveRowInOrder(StoredModel& model, std::int32_t row) noexcept {
  ModelData& data = model.data;
  const std::int32_t number = rows.NumberOf(row);
  rows.Note(row);
  --data.NumberOfRows;
  const std::int32_t next = number <= data.NumberOfRows ? rows.PositionOf(number) : 0;
  naming_rows.TakeFirsts(row, next, [&](const Occurrences::Place& entry) {
    data.Columns[entry.owner].Elements[entry.place].Index = Gaps::kNowhere;
    if (columns.IsGone(entry.owner)) return;
    --data.NumberOfElements;
    if (!left_in_columns.empty()) --left_in_columns[entry.owner];
  });
}

void DeferredRemovals::RemoveColumnInOrder(StoredModel& model, std::int32_t column) noexcept {
  ModelData& data = model.data;
  const std::int32_t number = columns.NumberOf(column);
  columns.Note(column);
  --data.NumberOfColumns;
  const std::int32_t next = number <= data.NumberOfColumns ? columns.PositionOf(number) : 0;
  naming_columns.TakeFirsts(column, next, [&](const Occurrences::Place& entry) {
    data.Rows[entry.owner].Elements[entry.place].Index = Gaps::kNowhere;
    if (rows.IsGone(entry.owner)) return;
    --data.NumberOfElements;
    --left_in_rows[entry.owner];
  });
}

void CloseGaps(StoredModel& model, DeferredRemovals& removals) {
  if (removals.empty()) return;
  const NewNumbers rows(removals.rows);
  const NewNumbers columns(removals.columns);
  ModelData& data = model.data;
  CloseGapsOf(data.Rows, data.NumberOfRows, model.row_names, data.Columns, removals.rows, rows);
  CloseGapsOf(data.Columns, data.NumberOfColumns, model.column_names, data.Rows, removals.columns,
              columns);
  removals.Clear();
}

}  // namespace quarvel::model
