// Changes of a model in which there may be gaps, by position.

#include <utility>

#include "model/deferred_work.h"

namespace quarvel::model {
namespace {

// A name in the index may be that of a record that is gone. With two of one name the index may know
// only the one that is gone; `settle` makes it know them all.
template <class Find, class Settle>
std::int32_t NumberOfNamed(const NameIndex& names, const Gaps& gaps, const Find& find,
                           const Settle& settle) {
  if (gaps.open() && names.stale()) settle();
  const std::int32_t position = find();
  if (position == 0 || !gaps.open()) return position;
  if (!gaps.IsGone(position)) return gaps.NumberOf(position);
  if (!names.has_duplicates()) return 0;
  settle();
  return find();
}

// A name that the index has may be that of a record that is gone, which gives way to the new one.
template <class Record>
void MakeWay(NameIndex& names, const Gaps& gaps, const NameKey& key, std::string_view name,
             const OneBased<Record>& records) {
  const std::int32_t bearer = names.Find(key, name, NamesOf(records));
  if (bearer != 0 && gaps.IsGone(bearer)) names.Remove(name, bearer);
}

template <class Record>
void AddName(NameIndex& names, const Gaps& gaps, const NameKey& key, std::string_view name,
             std::int32_t position, const OneBased<Record>& records) {
  if (gaps.open()) MakeWay(names, gaps, key, name, records);
  names.Add(key, name, position, NamesOf(records));
}

template <class Record>
std::int32_t AppendNamed(OneBased<Record>& records, std::int32_t& count, Gaps& gaps,
                         NameIndex& names, const NameKey& key, std::string_view name) {
  const std::int32_t position = gaps.PositionOf(count + 1);
  names.MakeRoom();
  if (gaps.open()) gaps.MakeRoom();
  const std::int32_t stored = records.size();
  records.Resize(position);
  try {
    records[position].Name = name;
  } catch (...) {
    records.Resize(stored);
    throw;
  }
  ++count;
  if (gaps.open()) {
    gaps.Append();
    MakeWay(names, gaps, key, name, records);
  }
  names.AddNew(key, position);
  return position;
}

template <class Record>
void RenameAt(OneBased<Record>& records, std::int32_t position, const Gaps& gaps, NameIndex& names,
              std::string_view name) {
  Record& record = records[position];
  NameText made(name);
  names.MakeRoom();
  names.Remove(record.Name, position);
  record.Name = std::move(made);
  AddName(names, gaps, NameKey::Of(record.Name), record.Name, position, records);
}

}  // namespace

std::int32_t DeferredWork::FindRowWhileDeferring(const NameKey& key, std::string_view name) {
  return NumberOfNamed(
      model_.row_names, removals_.rows, [&] { return model::FindRow(model_, key, name); },
      [this] { Settle(); });
}

std::int32_t DeferredWork::FindColumn(const NameKey& key, std::string_view name) {
  return NumberOfNamed(
      model_.column_names, removals_.columns, [&] { return model::FindColumn(model_, key, name); },
      [this] { Settle(); });
}

// Whether lists agree is known afterwards, and how removals are to be noted.
void DeferredWork::ReadyForRemoval() {
  FillRowListsIfBehind();
  const bool fits = removals_.empty() || removals_.in_order != agreement_.everywhere();
  if (!agreement_.Known(changes_) || !fits) {
    Settle();
    agreement_.Examine(model_.data, changes_);
  }
  if (!removals_.empty()) return;
  removals_.in_order = !agreement_.everywhere();
  if (removals_.in_order) long_.Clear();
}

void DeferredWork::RemoveRow(std::int32_t number) {
  ReadyForRemoval();
  const std::int32_t position = RowPosition(number);
  removals_.OpenRows(model_);
  model_.ready.SetSettled(false, model_.data);
  if (removals_.in_order) removals_.PrepareRow(position);
  TakeOutRow(position);
  NoteAgreeingChange();
}

// Rows go with the column as one change, so all that may fail comes before it.
void DeferredWork::RemoveColumn(std::int32_t number, const RowNotice& before) {
  ReadyForRemoval();
  const std::int32_t position = ColumnPosition(number);
  removals_.OpenColumns(model_);
  model_.ready.SetSettled(false, model_.data);
  const std::vector<std::int32_t> emptied = removals_.RowsEmptiedBy(model_, position);
  if (before) {
    for (const std::int32_t row : emptied) before(model_.data.Rows[row]);
  }
  if (!emptied.empty()) removals_.OpenRows(model_);
  if (removals_.in_order) {
    for (const std::int32_t row : emptied) removals_.PrepareRow(row);
  }
  TakeOutColumn(position, emptied);
  NoteAgreeingChange();
}

// Where lists agree, each column of the row's list has one coefficient there.
void DeferredWork::TakeOutRow(std::int32_t position) noexcept {
  ModelData& data = model_.data;
  if (removals_.in_order) {
    removals_.RemoveRowInOrder(model_, position);
  } else {
    data.NumberOfElements -= removals_.columns.open() ? removals_.left_in_rows[position]
                                                      : data.Rows[position].ElementCount();
    if (!removals_.left_in_columns.empty() || !long_.columns.empty()) {
      for (const ElementEntry& entry : data.Rows[position].Elements) {
        if (removals_.columns.IsGone(entry.Index)) continue;
        if (!removals_.left_in_columns.empty()) --removals_.left_in_columns[entry.Index];
        ListPlaces* const places = long_.columns.Known(entry.Index);
        if (places != nullptr) places->Remove(places->First(position), position);
      }
    }
    --data.NumberOfRows;
    removals_.rows.Note(position);
  }
  row_indexes_.NoteGone(position);
  row_indexes_.Rebuild(data.NumberOfRows);
}

void DeferredWork::TakeOutColumn(std::int32_t position,
                                 const std::vector<std::int32_t>& emptied) noexcept {
  if (removals_.in_order) {
    removals_.RemoveColumnInOrder(model_, position);
  } else {
    ModelData& data = model_.data;
    for (const ElementEntry& entry : data.Columns[position].Elements) {
      if (removals_.rows.IsGone(entry.Index)) continue;
      --removals_.left_in_rows[entry.Index];
      --data.NumberOfElements;
      ListPlaces* const places = long_.rows.Known(entry.Index);
      if (places != nullptr) places->Remove(places->First(position), position);
    }
    --data.NumberOfColumns;
    removals_.columns.Note(position);
  }
  for (const std::int32_t row : emptied) TakeOutRow(row);
}

// Where something disagrees, the number of the new record may be in a list already.
std::int32_t DeferredWork::AppendRow(const NameKey& key, std::string_view name) {
  ModelData& data = model_.data;
  CheckOneMore(data.NumberOfRows);
  ReadyForElements();
  if (!agreement_.everywhere()) NoteChange();
  if (removals_.columns.open()) {
    removals_.left_in_rows.Resize(removals_.rows.PositionOf(data.NumberOfRows + 1));
  }
  const std::int32_t position =
      AppendNamed(data.Rows, data.NumberOfRows, removals_.rows, model_.row_names, key, name);
  model_.ready.Count(data);
  return position;
}

std::int32_t DeferredWork::AppendColumn(const NameKey& key, std::string_view name) {
  ModelData& data = model_.data;
  CheckOneMore(data.NumberOfColumns);
  ReadyForElements();
  if (!agreement_.everywhere()) NoteChange();
  if (!removals_.left_in_columns.empty()) {
    removals_.left_in_columns.Resize(removals_.columns.PositionOf(data.NumberOfColumns + 1));
  }
  const std::int32_t position = AppendNamed(data.Columns, data.NumberOfColumns, removals_.columns,
                                            model_.column_names, key, name);
  model_.ready.Count(data);
  return position;
}

void DeferredWork::RenameRow(std::int32_t number, std::string_view name) {
  RenameAt(model_.data.Rows, RowPosition(number), removals_.rows, model_.row_names, name);
}

void DeferredWork::RenameColumn(std::int32_t number, std::string_view name) {
  RenameAt(model_.data.Columns, ColumnPosition(number), removals_.columns, model_.column_names,
           name);
}

void DeferredWork::SetRowType(std::int32_t number, RowType type) {
  ModelData& data = model_.data;
  const std::int32_t position = RowPosition(number);
  const RowType old_type = data.Rows[position].Type;
  const RowList list = ListOf(type);
  if (old_type != RowType::kNone) {
    if (list != ListOf(old_type)) {
      row_indexes_.NoteChanged(position, list);
      row_indexes_.Rebuild(data.NumberOfRows);
      model_.ready.SetSettled(false, data);
    }
  } else if (!row_indexes_.due() || !row_indexes_.Append(number, data.NumberOfRows, type)) {
    // A row that got its first type stands in no index yet. It is taken for the last row, which is
    // where new rows stand.
    Settle();
    AppendToRowIndex(data, data.NumberOfRows, list);
  }
  data.Rows[RowPosition(number)].Type = type;
}

}  // namespace quarvel::model
