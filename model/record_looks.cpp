#include "model/record_looks.h"

#include <algorithm>

namespace quarvel::model {

std::int32_t RecordLooks::StoredRows() const {
  return work_.removals_.rows.open() ? data_.NumberOfRows : data_.Rows.size();
}

std::int32_t RecordLooks::DeferredElementsInColumn(std::int32_t c) const {
  work_.FillRowListsIfBehind();
  const std::int32_t position = work_.ColumnPosition(c);
  DeferredRemovals& removals = work_.removals_;
  const ElementList& list = data_.Columns[position].Elements;
  if (!removals.rows.open()) return list.size();
  constexpr std::int32_t kLong = 64;
  if (list.size() <= kLong) {
    return static_cast<std::int32_t>(std::count_if(
        list.begin(), list.end(),
        [&](const ElementEntry& entry) { return !removals.rows.IsDead(entry.Index); }));
  }
  removals.CountInColumns(data_);
  return removals.left_in_columns[position];
}

// Where lists disagree the record as a whole is looked at.
ElementEntry RecordLooks::RowElement(std::int32_t r, std::int32_t k) const {
  const DeferredRemovals& removals = work_.removals_;
  if (removals.in_order || !removals.columns.open()) return work_.Row(r).Elements[k];
  const std::int32_t row = work_.RowPosition(r);
  const ElementEntry& entry = data_.Rows[row].Elements[work_.PlaceInRow(row, k)];
  return {removals.columns.NumberOf(entry.Index), entry.Value};
}

ElementEntry RecordLooks::ColumnElement(std::int32_t c, std::int32_t k) const {
  const DeferredRemovals& removals = work_.removals_;
  if (removals.in_order || !removals.rows.open()) return work_.Column(c).Elements[k];
  const std::int32_t column = work_.ColumnPosition(c);
  const ElementList& list = data_.Columns[column].Elements;
  const ListPlaces* const places = work_.long_.columns.Find(column, list, removals.rows);
  const ElementEntry& entry = list[PlaceOfKth(k, list, removals.rows, places)];
  return {removals.rows.NumberOf(entry.Index), entry.Value};
}

double RecordLooks::ElementValue(std::int32_t r, std::int32_t c) const {
  work_.ReadyForElements();
  const std::int32_t row = work_.RowPosition(r);
  const std::int32_t place = work_.FirstInRow(row, work_.ColumnPosition(c));
  return place == 0 ? 0.0 : double{data_.Rows[row].Elements[place].Value};
}

std::int32_t RecordLooks::CountListed(RowList list) const {
  DeferredRowIndexes& indexes = work_.row_indexes_;
  if (indexes.due()) return indexes.Count(list, data_, work_.removals_.rows);
  return list == RowList::kBinding ? data_.NumberOfBindingRows : data_.NumberOfNonBindingRows;
}

std::int32_t RecordLooks::Listed(RowList list, std::int32_t k) const {
  DeferredRowIndexes& indexes = work_.row_indexes_;
  if (indexes.due()) return indexes.At(list, k, data_, work_.removals_.rows);
  return (list == RowList::kBinding ? data_.BindingRows : data_.NonBindingRows)[k];
}

}  // namespace quarvel::model
