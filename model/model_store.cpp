#include "model/model_store.h"

#include <string>
#include <utility>

#include "model/immediate_removal.h"

namespace quarvel::model {
namespace {

void CheckNumber(std::int32_t number, std::int32_t count) {
  if (number < 1 || number > count) RaiseSubscriptOutOfRange();
}

template <class Record>
void Rename(OneBased<Record>& records, std::int32_t number, std::string_view name,
            NameIndex& names) {
  names.Remove(records[number].Name, number);
  records[number].Name = name;
  names.Add(name, number, NamesOf(records));
}

template <class Record>
std::int32_t AppendRecord(OneBased<Record>& records, std::int32_t& count, const NameKey& key,
                          std::string_view name, NameIndex& names) {
  records.Resize(count + 1);
  ++count;
  records[count].Name = name;
  names.Add(key, name, count, NamesOf(records));
  return count;
}

// A row that got its first type stands in no index yet. It is taken for the last row, which is
// where new rows stand.
void AppendLastRow(const ModelData& data, RowNumbers& index, std::int32_t& count) {
  index.Resize(++count);
  index[count] = data.NumberOfRows;
}

void UpdateRowIndexes(ModelData& data, RowType old_type, RowType type) {
  const bool binding = TraitsOf(type).binds;
  if (old_type != RowType::kNone) {
    if (binding != TraitsOf(old_type).binds) RebuildRowIndexes(data);
  } else if (binding) {
    AppendLastRow(data, data.BindingRows, data.NumberOfBindingRows);
  } else {
    AppendLastRow(data, data.NonBindingRows, data.NumberOfNonBindingRows);
  }
}

}  // namespace

const RowRecord& ModelStore::RowBehindGaps(std::int32_t r) const {
  return model_.data.Rows[deferred_.RowPosition(r)];
}

const ColumnRecord& ModelStore::ColumnBehindGaps(std::int32_t c) const {
  return model_.data.Columns[deferred_.ColumnPosition(c)];
}

std::int32_t ModelStore::FindRow(const NameKey& key, std::string_view name) const {
  if (deferred_.removals()) deferred_.Settle();
  return model::FindRow(deferred_.model(), key, name);
}

std::int32_t ModelStore::FindColumn(const NameKey& key, std::string_view name) const {
  if (deferred_.removals()) deferred_.Settle();
  return model::FindColumn(deferred_.model(), key, name);
}

void ModelStore::RenameRow(std::int32_t r, std::string_view name) {
  Rename(Settled().Rows, r, name, model_.row_names);
  CheckChange();
}

void ModelStore::RenameColumn(std::int32_t c, std::string_view name) {
  Rename(Settled().Columns, c, name, model_.column_names);
  CheckChange();
}

void ModelStore::SetRowType(std::int32_t r, RowType type) {
  ModelData& data = Settled();
  const RowType old_type = std::exchange(data.Rows[r].Type, type);
  UpdateRowIndexes(data, old_type, type);
}

void ModelStore::SetColumnType(std::int32_t c, ColumnType type) {
  Settled().Columns[c].Type = type;
}

void ModelStore::DeriveRowTypes() {
  ModelData& data = Settled();
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    RowRecord& row = data.Rows[r];
    row.Type = RowTypeOf(row.LowerBound, row.UpperBound);
  }
  RebuildRowIndexes(data);
  CheckChange();
}

void ModelStore::SetElementValue(std::int32_t r, std::int32_t k, double value) {
  ModelData& data = Settled();
  ElementEntry& element = data.Rows[r].Elements[k];
  element.Value = value;
  for (ElementEntry& entry : data.Columns[element.Index].Elements) {
    if (entry.Index != r) continue;
    entry.Value = value;
    break;
  }
  CheckChange();
}

std::int32_t ModelStore::AddRow(const NameKey& key, std::string_view name) {
  ModelData& data = Settled();
  const std::int32_t r = AppendRecord(data.Rows, data.NumberOfRows, key, name, model_.row_names);
  CheckChange();
  return r;
}

std::int32_t ModelStore::AddColumn(const NameKey& key, std::string_view name) {
  ModelData& data = Settled();
  const std::int32_t c =
      AppendRecord(data.Columns, data.NumberOfColumns, key, name, model_.column_names);
  CheckChange();
  return c;
}

void ModelStore::AddElement(std::int32_t r, std::int32_t c, double value) {
  ModelData& data = Settled();
  CheckNumber(r, data.NumberOfRows);
  CheckNumber(c, data.NumberOfColumns);
  deferred_.NoteAdding(r, c);
  data.Rows[r].Elements.Append({c, value});
  data.Columns[c].Elements.Append({r, value});
  ++data.NumberOfElements;
  CheckChange();
}

void ModelStore::RemoveRow(std::int32_t r) {
  CheckNumber(r, NumberOfRows());
  deferred_.RemoveRow(r);
  CheckChange();
}

void ModelStore::RemoveColumn(std::int32_t c, const std::function<void(const RowRecord&)>& before) {
  CheckNumber(c, NumberOfColumns());
  std::int32_t gone = 0;
  for (const std::int32_t number : deferred_.RemoveColumn(c)) {
    const std::int32_t r = number - gone++;
    if (before) before(Row(r));
    RemoveRow(r);
  }
  CheckChange();
}

void ModelStore::RemoveElement(std::int32_t r, std::int32_t k) {
  ModelData& data = Settled();
  const std::int32_t c = data.Rows[r].Elements[k].Index;
  if (data.Rows[r].ElementCount() == 1) {
    RemoveRow(r);
    return;
  }
  DropFirst(data.Columns[c].Elements, r);
  data.Rows[r].Elements.Remove(k);
  --data.NumberOfElements;
  deferred_.NoteAgreeingChange();
  CheckChange();
}

void ModelStore::Clear() {
  model_.data.ModelName.clear();
  model_.data.ModelDescription.clear();
  model_.data.FileLocation.clear();
  model_.data.strMPSFile.clear();
  DropRecords();
}

void ModelStore::DropRecords() {
  deferred_.NoteEmptied();
  ReleaseRecords(model_);
  CheckChange();
}

void ModelStore::PlaceHidden(RowRecord row, ColumnRecord column) {
  model_.data.Rows.Append(std::move(row));
  model_.data.Columns.Append(std::move(column));
}

void ModelStore::Take(ModelData data) {
  DropRecords();
  model_.data = std::move(data);
  model_.row_names.MarkStale();
  model_.column_names.MarkStale();
  deferred_.NoteChange();
  change_check_.Forget();
}

}  // namespace quarvel::model
