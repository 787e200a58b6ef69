// Changes of a model in which there may be gaps, by position.

#include <algorithm>
#include <string>
#include <utility>

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

// A name that the index has may be that of a record that is gone, which gives way to the new one.
template <class Record>
void MakeWay(NameIndex& names, const Gaps& gaps, const NameKey& key, std::string_view name,
             const OneBased<Record>& records) {
  if (!gaps.open()) return;
  const std::int32_t bearer = names.Find(key, name, NamesOf(records));
  if (bearer != 0 && gaps.IsGone(bearer)) names.Remove(name, bearer);
}

template <class Record>
void AddName(NameIndex& names, const Gaps& gaps, const NameKey& key, std::string_view name,
             std::int32_t position, const OneBased<Record>& records) {
  MakeWay(names, gaps, key, name, records);
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
  if (gaps.open()) gaps.Append();
  ++count;
  MakeWay(names, gaps, key, name, records);
  names.AddNew(key, position);
  return position;
}

template <class Record>
void RenameAt(OneBased<Record>& records, std::int32_t position, const Gaps& gaps, NameIndex& names,
              std::string_view name) {
  Record& record = records[position];
  std::string made(name);
  names.MakeRoom();
  names.Remove(record.Name, position);
  record.Name = std::move(made);
  AddName(names, gaps, NameKey::Of(record.Name), record.Name, position, records);
}

// Ascending.
std::vector<std::int32_t> RowsWithOnly(const ModelData& data, std::int32_t column) {
  std::vector<std::int32_t> rows;
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    const ElementList& list = data.Rows[r].Elements;
    if (list.size() == 1 && list[1].Index == column) rows.push_back(r);
  }
  return rows;
}

// By their positions, ascending: what a column whose list agrees with theirs leaves empty.
std::vector<std::int32_t> RowsEmptiedBy(const ModelData& data, const DeferredRemovals& removals,
                                        std::int32_t column) {
  std::vector<std::int32_t> rows;
  for (const ElementEntry& entry : data.Columns[column].Elements) {
    const std::int32_t row = entry.Index;
    if (!removals.rows.IsGone(row) && removals.elements_left[row] == 1) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

bool AllAgree(const ListAgreement& agreement, const std::vector<std::int32_t>& rows) {
  return std::all_of(rows.begin(), rows.end(),
                     [&](std::int32_t row) { return agreement.RowAgrees(row); });
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
  ModelData& data = model_.data;
  if (!agreement_.RowAgrees(position)) {
    Settle();
    long_.Clear();
    NoteChange();
    RemoveRowNow(model_, number);
    row_indexes_.Rebuild(data.NumberOfRows);
    empty_ = row_indexes_.TryToCatchUp(data);
    return;
  }
  removals_.OpenRows(model_);
  empty_ = false;
  data.NumberOfElements -= ElementsInRow(number);
  --data.NumberOfRows;
  removals_.rows.Note(position);
  row_indexes_.Rebuild(data.NumberOfRows);
  NoteAgreeingChange();
}

// Rows go with the column as one change, so all that may fail comes before it.
void DeferredWork::RemoveColumn(std::int32_t number, const RowNotice& before) {
  ReadyForRemoval();
  const std::int32_t position = ColumnPosition(number);
  bool notes = agreement_.ColumnAgrees(position);
  if (notes) {
    removals_.OpenColumns(model_);
    empty_ = false;
  } else {
    Settle();
  }
  std::vector<std::int32_t> rows =
      notes ? RowsEmptiedBy(model_.data, removals_, position) : RowsWithOnly(model_.data, number);
  if (before) {
    for (const std::int32_t row : rows) before(model_.data.Rows[row]);
  }
  notes = notes && AllAgree(agreement_, rows);
  if (!notes) return RemoveColumnAtOnce(number);
  if (!rows.empty()) removals_.OpenRows(model_);
  ModelData& data = model_.data;
  for (const ElementEntry& entry : data.Columns[position].Elements) {
    if (removals_.rows.IsGone(entry.Index)) continue;
    --removals_.elements_left[entry.Index];
    --data.NumberOfElements;
    ListPlaces* const places = long_.rows.Known(entry.Index);
    if (places != nullptr) places->Remove(places->First(position), position);
  }
  --data.NumberOfColumns;
  removals_.columns.Note(position);
  for (const std::int32_t row : rows) removals_.rows.Note(row);
  data.NumberOfRows -= static_cast<std::int32_t>(rows.size());
  if (!rows.empty()) row_indexes_.Rebuild(data.NumberOfRows);
  NoteAgreeingChange();
}

// One by one, each of the rows takes a pass over the model: this is for lists that disagree.
void DeferredWork::RemoveColumnAtOnce(std::int32_t number) {
  Settle();
  const std::vector<std::int32_t> rows = RowsWithOnly(model_.data, number);
  long_.Clear();
  NoteChange();
  RemoveColumnNow(model_, number);
  std::int32_t gone = 0;
  for (const std::int32_t row : rows) RemoveRowNow(model_, row - gone++);
  if (rows.empty()) return;
  row_indexes_.Rebuild(model_.data.NumberOfRows);
  empty_ = row_indexes_.TryToCatchUp(model_.data);
}

// Where something disagrees, the number of the new record may be in a list already.
std::int32_t DeferredWork::AppendRow(const NameKey& key, std::string_view name) {
  ModelData& data = model_.data;
  CheckOneMore(data.NumberOfRows);
  FillRowListsIfBehind();
  if (!agreement_.everywhere()) NoteChange();
  if (removals_.columns.open()) {
    removals_.elements_left.Resize(removals_.rows.PositionOf(data.NumberOfRows + 1));
  }
  return AppendNamed(data.Rows, data.NumberOfRows, removals_.rows, model_.row_names, key, name);
}

std::int32_t DeferredWork::AppendColumn(const NameKey& key, std::string_view name) {
  ModelData& data = model_.data;
  CheckOneMore(data.NumberOfColumns);
  FillRowListsIfBehind();
  if (!agreement_.everywhere()) NoteChange();
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
