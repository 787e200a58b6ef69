#include "model/model_store.h"

#include <string>
#include <utility>

namespace quarvel::model {
namespace {

void CheckNumber(std::int32_t number, std::int32_t count) {
  if (number < 1 || number > count) RaiseSubscriptOutOfRange();
}

}  // namespace

std::int32_t ModelStore::FindRow(const NameKey& key, std::string_view name) const {
  return deferred_.FindRow(key, name);
}

std::int32_t ModelStore::FindColumn(const NameKey& key, std::string_view name) const {
  return deferred_.FindColumn(key, name);
}

void ModelStore::RenameRow(std::int32_t r, std::string_view name) {
  deferred_.RenameRow(r, name);
  CheckChange();
}

void ModelStore::RenameColumn(std::int32_t c, std::string_view name) {
  deferred_.RenameColumn(c, name);
  CheckChange();
}

void ModelStore::SetRowType(std::int32_t r, RowType type) { deferred_.SetRowType(r, type); }

void ModelStore::SetColumnType(std::int32_t c, ColumnType type) {
  model_.data.Columns[deferred_.ColumnPosition(c)].Type = type;
}

// Types depend on no list, so row lists may stay behind.
void ModelStore::DeriveRowTypes() {
  if (!deferred_.empty()) deferred_.Settle(false);
  ModelData& data = model_.data;
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    RowRecord& row = data.Rows[r];
    row.Type = RowTypeOf(row.LowerBound, row.UpperBound);
  }
  RebuildRowIndexes(data);
  CheckChange();
}

void ModelStore::SetElementValue(std::int32_t r, std::int32_t k, double value) {
  deferred_.SetElementValue(r, k, value);
  CheckChange();
}

std::int32_t ModelStore::AddRow(const NameKey& key, std::string_view name) {
  deferred_.AppendRow(key, name);
  CheckChange();
  return model_.data.NumberOfRows;
}

std::int32_t ModelStore::AddColumn(const NameKey& key, std::string_view name) {
  deferred_.AppendColumn(key, name);
  CheckChange();
  return model_.data.NumberOfColumns;
}

void ModelStore::AddElement(std::int32_t r, std::int32_t c, double value) {
  CheckNumber(r, NumberOfRows());
  CheckNumber(c, NumberOfColumns());
  deferred_.AddElement(r, c, value);
  CheckChange();
}

void ModelStore::RemoveRow(std::int32_t r) {
  CheckNumber(r, NumberOfRows());
  deferred_.RemoveRow(r);
  CheckChange();
}

void ModelStore::RemoveColumn(std::int32_t c, const std::function<void(const RowRecord&)>& before) {
  CheckNumber(c, NumberOfColumns());
  deferred_.RemoveColumn(c, before);
  CheckChange();
}

void ModelStore::RemoveElement(std::int32_t r, std::int32_t k) {
  const std::int32_t elements = ElementsInRow(r);
  CheckNumber(k, elements);
  if (elements == 1) {
    RemoveRow(r);
    return;
  }
  deferred_.RemoveElement(r, k);
  CheckChange();
}

void ModelStore::Clear() {
  DropRecords();
  model_.data.ModelName.clear();
  model_.data.ModelDescription.clear();
  model_.data.FileLocation.clear();
  model_.data.strMPSFile.clear();
}

void ModelStore::DropRecords() {
  deferred_.CloseAllGaps();
  deferred_.NoteEmptied();
  ReleaseRecords(model_);
  CheckChange();
}

void ModelStore::StartAnew(RowRecord row, ColumnRecord column) {
  OneBased<RowRecord> rows;
  OneBased<ColumnRecord> columns;
  rows.Append(std::move(row));
  columns.Append(std::move(column));
  Clear();
  model_.data.Rows = std::move(rows);
  model_.data.Columns = std::move(columns);
}

void ModelStore::Take(ModelData data) {
  DropRecords();
  model_.data = std::move(data);
  model_.row_names.MarkStale();
  model_.column_names.MarkStale();
  deferred_.NoteChange();
  model_.ready.Count(model_.data);
  change_check_.Forget();
}

}  // namespace quarvel::model
