#include "model/model_data.h"

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "text/prefetch.h"

namespace quarvel {
namespace {

// How many coefficients each row has; slot 0 stays 0.
std::vector<std::uint32_t> CountRowElements(const ModelData& data) {
  std::vector<std::uint32_t> counts(static_cast<std::size_t>(data.Rows.size()) + 1, 0);
  for (const ColumnRecord& column : data.Columns) {
    for (const ElementEntry& entry : column.Elements) {
      ++counts[static_cast<std::size_t>(entry.Index)];
    }
  }
  return counts;
}

// Lends each row room for its coefficients, and turns the counts into where each row's room begins.
ElementEntry* LendRowLists(ModelData& data, std::vector<std::uint32_t>& counts) {
  std::size_t total = 0;
  for (const std::uint32_t count : counts) total += count;
  ElementEntry* const entries = data.row_arena.Take(total);
  std::uint32_t next = 0;
  for (std::int32_t r = 1; r <= data.Rows.size(); ++r) {
    std::uint32_t& place = counts[static_cast<std::size_t>(r)];
    const std::uint32_t count = std::exchange(place, next);
    if (count > 0) data.Rows[r].Elements.store().Lend(entries + next, count);
    next += count;
  }
  return entries;
}

// Puts coefficients where their rows' lists go on. Rows come in any order, so each place is waited
// for; a batch at a time, the processor is told all places before it writes to the first.
class RowFiller {
 public:
  RowFiller(ElementEntry* entries, std::vector<std::uint32_t>& next)
      : entries_(entries), next_(next) {}

  void Add(std::int32_t row, std::int32_t column, double value) {
    Addressed& added = batch_[size_++];
    added.row = row;
    added.column = column;
    added.value = value;
    text::Prefetch(&next_[static_cast<std::size_t>(row)]);
    if (size_ == batch_.size()) Write();
  }
  void Write() {
    for (std::size_t i = 0; i < size_; ++i) {
      text::PrefetchForWriting(&entries_[next_[static_cast<std::size_t>(batch_[i].row)]]);
    }
    for (std::size_t i = 0; i < size_; ++i) {
      ElementEntry& entry = entries_[next_[static_cast<std::size_t>(batch_[i].row)]++];
      entry.Index = batch_[i].column;
      entry.Value = batch_[i].value;
    }
    size_ = 0;
  }

 private:
  struct Addressed {
    std::int32_t row;
    std::int32_t column;
    double value;
  };

  ElementEntry* entries_;
  std::vector<std::uint32_t>& next_;
  std::array<Addressed, 64> batch_;
  std::size_t size_ = 0;
};

// Walking the columns in order meets the coefficients in the order in which a read appended them,
// as long as no column was taken up again; the reader keeps row lists up to date itself from there
// on.
void FillRowLists(ModelData& data) {
  data.row_lists_pending = false;
  std::vector<std::uint32_t> places = CountRowElements(data);
  RowFiller filler(LendRowLists(data, places), places);
  for (std::int32_t c = 1; c <= data.Columns.size(); ++c) {
    for (const ElementEntry& entry : std::as_const(data.Columns)[c].Elements) {
      filler.Add(entry.Index, c, entry.Value);
    }
  }
  filler.Write();
}

}  // namespace

std::string TypeText(TypeLetter letter) {
  return letter == kNoType ? std::string() : std::string(1, letter);
}

void Settle(ModelData& data) {
  if (data.row_lists_pending) FillRowLists(data);
  if (!data.removals.empty()) CloseGaps(data);
}

void ReleaseRowsAndColumns(ModelData& data) {
  data.row_lists_pending = false;
  CloseGaps(data);  // the row indexes outlive the rows
  data.agreement.Forget();
  data.NumberOfColumns = 0;
  data.Columns.Release();
  data.NumberOfRows = 0;
  data.Rows.Release();
  data.NumberOfElements = 0;
  data.row_arena.Release();
  data.column_arena.Release();
  data.row_names.Clear();
  data.column_names.Clear();
}

const NameIndex& RebuiltRowNames(const ModelData& data) {
  data.row_names.Rebuild(data.NumberOfRows, NamesOf(data.Rows));
  return data.row_names;
}

const NameIndex& RebuiltColumnNames(const ModelData& data) {
  data.column_names.Rebuild(data.NumberOfColumns, NamesOf(data.Columns));
  return data.column_names;
}

void RebuildRowIndexes(ModelData& data) {
  data.NumberOfBindingRows = 0;
  data.NumberOfNonBindingRows = 0;
  data.BindingRows.Release();
  data.NonBindingRows.Release();
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    if (data.Rows[i].Type == 'N') {
      ++data.NumberOfNonBindingRows;
      data.NonBindingRows.Append(i);
    } else {
      ++data.NumberOfBindingRows;
      data.BindingRows.Append(i);
    }
  }
}

}  // namespace quarvel
