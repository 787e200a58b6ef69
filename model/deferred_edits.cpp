// Changes of a model in which there may be gaps, by position.

#include <algorithm>

#include "model/deferred_work.h"
#include "model/immediate_removal.h"

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

// Makes room in the index for a name whose last bearer is gone.
template <class Record>
void AddName(NameIndex& names, const Gaps& gaps, const NameKey& key, std::string_view name,
             std::int32_t position, const OneBased<Record>& records) {
  const std::int32_t bearer = gaps.open() ? names.Find(key, name, NamesOf(records)) : 0;
  if (bearer != 0 && gaps.IsGone(bearer)) names.Remove(name, bearer);
  names.Add(key, name, position, NamesOf(records));
}

template <class Record>
std::int32_t AppendNamed(OneBased<Record>& records, std::int32_t& count, Gaps& gaps,
                         NameIndex& names, const NameKey& key, std::string_view name) {
  const std::int32_t position = gaps.PositionOf(count + 1);
  records.Resize(position);
  records[position].Name = name;
  if (gaps.open()) gaps.Append();
  ++count;
  AddName(names, gaps, key, name, position, records);
  return position;
}

template <class Record>
void RenameAt(OneBased<Record>& records, std::int32_t position, const Gaps& gaps, NameIndex& names,
              std::string_view name) {
  Record& record = records[position];
  names.Remove(record.Name, position);
  record.Name = name;
  AddName(names, gaps, NameKey::Of(name), name, position, records);
}

}  // namespace

std::int32_t DeferredWork::FindRow(const NameKey& key, std::string_view name) {
  return NumberOfNamed(
      model_.row_names, removals_.rows, [&] { return model::FindRow(model_, key, name); },
      [this] { Settle(); });
}

std::int32_t DeferredWork::FindColumn(const NameKey& key, std::string_view name) {
  return NumberOfNamed(
      model_.column_names, removals_.columns, [&] { return model::FindColumn(model_, key, name); },
      [this] { Settle(); });
}

// What there is of a list's agreement is known afterwards.
void DeferredWork::ReadyForRemoval() {
  FillRowListsIfBehind();
  if (agreement_.Known(changes_)) return;
  Settle();
  agreement_.Examine(model_.data, changes_);
}

void DeferredWork::RemoveRow(std::int32_t number) {
  ReadyForRemoval();
  const std::int32_t position = RowPosition(number);
  if (!agreement_.RowAgrees(position)) {
    Settle();
    long_.Clear();
    NoteChange();
    RemoveRowNow(model_, number);
    return;
  }
  removals_.OpenRows(model_);
  empty_ = false;
  ModelData& data = model_.data;
  data.NumberOfElements -= ElementsInRow(number);
  --data.NumberOfRows;
  removals_.rows.Note(position);
  row_indexes_.Rebuild(data.NumberOfRows);
  NoteAgreeingChange();
}

std::vector<std::int32_t> DeferredWork::RemoveColumn(std::int32_t number) {
  ReadyForRemoval();
  const std::int32_t position = ColumnPosition(number);
  if (agreement_.ColumnAgrees(position)) return RemoveAgreeingColumn(position);
  Settle();
  long_.Clear();
  NoteChange();
  return RemoveColumnNow(model_, number);
}

std::vector<std::int32_t> DeferredWork::RemoveAgreeingColumn(std::int32_t position) {
  removals_.OpenColumns(model_);
  empty_ = false;
  ModelData& data = model_.data;
  OneBased<std::int32_t>& left = removals_.elements_left;
  const ElementList& list = data.Columns[position].Elements;
  std::vector<std::int32_t> emptied;
  for (const ElementEntry& entry : list) {
    if (!removals_.rows.IsGone(entry.Index) && left[entry.Index] == 1) {
      emptied.push_back(removals_.rows.NumberOf(entry.Index));
    }
  }
  for (const ElementEntry& entry : list) {
    if (removals_.rows.IsGone(entry.Index)) continue;
    --left[entry.Index];
    --data.NumberOfElements;
    ListPlaces* const places = long_.rows.Known(entry.Index);
    if (places != nullptr) places->Remove(places->First(position), position);
  }
  --data.NumberOfColumns;
  removals_.columns.Note(position);
  NoteAgreeingChange();
  std::sort(emptied.begin(), emptied.end());
  return emptied;
}

// Where something disagrees, the number of the new record may be in a list already.
std::int32_t DeferredWork::AppendRow(const NameKey& key, std::string_view name) {
  FillRowListsIfBehind();
  if (!agreement_.everywhere()) NoteChange();
  ModelData& data = model_.data;
  const std::int32_t position =
      AppendNamed(data.Rows, data.NumberOfRows, removals_.rows, model_.row_names, key, name);
  if (removals_.columns.open()) removals_.elements_left.Resize(position);
  return position;
}

std::int32_t DeferredWork::AppendColumn(const NameKey& key, std::string_view name) {
  FillRowListsIfBehind();
  if (!agreement_.everywhere()) NoteChange();
  ModelData& data = model_.data;
  return AppendNamed(data.Columns, data.NumberOfColumns, removals_.columns, model_.column_names,
                     key, name);
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
  const RowType old_type = data.Rows[RowPosition(number)].Type;
  const bool binds = TraitsOf(type).binds;
  if (old_type != RowType::kNone) {
    if (binds != TraitsOf(old_type).binds) {
      row_indexes_.Rebuild(data.NumberOfRows);
      empty_ = false;
    }
  } else if (!row_indexes_.due() || !row_indexes_.Append(number, data.NumberOfRows, type)) {
    // A row that got its first type stands in no index yet. It is taken for the last row, which is
    // where new rows stand.
    Settle();
    AppendToRowIndex(data, data.NumberOfRows, binds);
  }
  data.Rows[RowPosition(number)].Type = type;
}

}  // namespace quarvel::model
