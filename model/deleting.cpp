// Deletions. What a deletion leaves is always what deleting one by one leaves; where rows and
// columns agree with each other (ListAgreement) the lists are brought up to date later, for many
// deletions at once (PendingRemovals).

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "model/error_reports.h"
#include "model/lp_model.h"

namespace quarvel {
namespace {

using Kind = PendingRemovals::Kind;
using Numbers = std::vector<std::int32_t>;

// --- one by one ---

// Drops the first entry that names `number`. False when none does.
bool DropFirst(ElementList& list, std::int32_t number) {
  for (std::int32_t k = 1; k <= list.size(); ++k) {
    if (list[k].Index != number) continue;
    list.Remove(k);
    return true;
  }
  return false;
}

void LowerAbove(ElementList& list, std::int32_t number) {
  for (ElementEntry& entry : list) {
    if (entry.Index > number) --entry.Index;
  }
}

template <class Record>
void RemoveRecord(OneBased<Record>& lines, std::int32_t number, std::int32_t& count) {
  lines.Remove(number);
  --count;
  if (count == 0) lines.Release();
}

void RemoveRowNow(ModelData& data, std::int32_t r) {
  RemoveRecord(data.Rows, r, data.NumberOfRows);
  data.row_names.MarkStale();
  data.agreement.Forget();
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    ElementList& list = data.Columns[c].Elements;
    if (DropFirst(list, r)) --data.NumberOfElements;
    LowerAbove(list, r);
  }
  RebuildRowIndexes(data);
}

// The rows that it empties, ascending; they stay.
Numbers RemoveColumnNow(ModelData& data, std::int32_t c) {
  RemoveRecord(data.Columns, c, data.NumberOfColumns);
  data.column_names.MarkStale();
  data.agreement.Forget();
  Numbers emptied;
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    ElementList& list = data.Rows[r].Elements;
    if (DropFirst(list, c)) {
      --data.NumberOfElements;
      if (list.empty()) emptied.push_back(r);
    }
    LowerAbove(list, c);
  }
  return emptied;
}

// --- put off ---

// Makes sure that nothing else is pending and that the agreement of the lists is known.
void PrepareToRemove(ModelData& data, Kind kind) {
  const bool other_kind = !data.removals.empty() && data.removals.kind() != kind;
  if (data.row_lists_pending || other_kind) Settle(data);
  if (data.agreement.Known(data)) return;
  Settle(data);
  data.agreement.Examine(data);
}

void Note(ModelData& data, Kind kind, std::int32_t position, std::int32_t elements) {
  data.removals.Note(kind, position);
  data.NumberOfElements -= elements;
  data.agreement.NoteRemoved(elements);
}

void NoteRow(ModelData& data, std::int32_t position) {
  Note(data, Kind::kRows, position, data.Rows[position].ElementCount());
  --data.NumberOfRows;
}

// The rows that it empties, in the order of the column's list.
Numbers NoteColumn(ModelData& data, std::int32_t position) {
  const ElementList& list = data.Columns[position].Elements;
  OneBased<std::int32_t>& left = data.removals.elements_left();
  if (left.empty() && !list.empty()) {
    left.Resize(data.NumberOfRows);
    for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) left[r] = data.Rows[r].ElementCount();
  }
  Numbers emptied;
  for (const ElementEntry& entry : list) {
    if (--left[entry.Index] == 0) emptied.push_back(entry.Index);
  }
  Note(data, Kind::kColumns, position, list.size());
  --data.NumberOfColumns;
  std::sort(emptied.begin(), emptied.end());
  return emptied;
}

Numbers RemoveOneColumn(ModelData& data, std::int32_t c) {
  PrepareToRemove(data, Kind::kColumns);
  const std::int32_t position = data.removals.Position(Kind::kColumns, c);
  if (!data.agreement.ColumnAgrees(position)) {
    Settle(data);
    return RemoveColumnNow(data, c);
  }
  if (!data.removals.IsCostly(position)) return NoteColumn(data, position);
  Settle(data);
  return RemoveOneColumn(data, c);
}

void CheckNumber(std::int32_t number, std::int32_t count) {
  if (number < 1 || number > count) RaiseSubscriptOutOfRange();
}

}  // namespace

void LPModel::RemoveRow(std::int32_t r) {
  CheckNumber(r, data_.NumberOfRows);
  PrepareToRemove(data_, Kind::kRows);
  const std::int32_t position = data_.removals.Position(Kind::kRows, r);
  if (!data_.agreement.RowAgrees(position)) {
    Settle(data_);
    RemoveRowNow(data_, r);
  } else if (data_.removals.IsCostly(position)) {
    Settle(data_);
    RemoveRow(r);
  } else {
    NoteRow(data_, position);
  }
}

void LPModel::RemoveColumn(std::int32_t c) {
  CheckNumber(c, data_.NumberOfColumns);
  const Numbers emptied = RemoveOneColumn(data_, c);
  std::int32_t gone = 0;
  for (const std::int32_t number : emptied) {
    const std::int32_t r = number - gone++;
    if (data_.LogFileNumber != 0) {
      const RowRecord& row = data_.Rows[data_.removals.Position(Kind::kRows, r)];
      AppendToLog("Removed empty row:  " + TypeText(row.Type) + " " + row.Name);
    }
    RemoveRow(r);
  }
}

void LPModel::RemoveElement(std::int32_t r, std::int32_t k) {
  ModelData& data = Settled();
  const std::int32_t c = data.Rows[r].Elements[k].Index;
  if (data.Rows[r].ElementCount() == 1) {
    RemoveRow(r);
    return;
  }
  DropFirst(data.Columns[c].Elements, r);
  data.Rows[r].Elements.Remove(k);
  --data.NumberOfElements;
  data.agreement.NoteRemoved(1);
}

std::int16_t LPModel::DeleteRow(std::int32_t row) {
  if (data_.NumberOfRows == 1) {
    Refuse(
        "Cannot remove the only row.\r\n"
        "Rename it instead of removing it and creating a new one.");
  } else if (InRange(row, data_.NumberOfRows)) {
    RemoveRow(row + 1);
  }
  return -1;
}

std::int16_t LPModel::DeleteColumn(std::int32_t col) {
  if (data_.NumberOfColumns == 1) {
    Refuse(
        "Cannot remove the only column.\r\n"
        "Rename it instead of removing it and creating a new one.");
  } else if (InRange(col, data_.NumberOfColumns)) {
    RemoveColumn(col + 1);
  }
  return -1;
}

std::int16_t LPModel::DeleteElement(std::int32_t row, std::int32_t ele) {
  const ModelData& data = Settled();
  if (!InRange(row, data.NumberOfRows)) return 0;
  // No result says that the element number is bad: a host hears of it as a failure. A row may not
  // lose its last element and stay, so that RemoveElement takes the whole row then.
  if (!InRange(ele, data.Rows[row + 1].ElementCount())) RaiseSubscriptOutOfRange();
  RemoveElement(row + 1, ele + 1);
  return -1;
}

}  // namespace quarvel
