#include "model/model_fill.h"

#include <utility>

namespace quarvel::model {
namespace {

template <class Record>
Record& AppendRecord(OneBased<Record>& records, std::int32_t& count, std::string_view name,
                     Bounds bounds, NameIndex& names) {
  CheckOneMore(count);
  if (records.size() != count) records.Resize(count);
  names.MakeRoom();
  NameText made(name);
  Record& record = records.AppendFresh();
  ++count;  // not before there is one
  record.Name = std::move(made);
  static_cast<Bounds&>(record) = bounds;
  return record;
}

}  // namespace

void ModelFill::Begin() {
  deferred_.NoteEmptied();
  ReleaseRecords(model_);
  RebuildRowIndexes(model_.data);
  deferred_.DeferRowLists();
}

std::int32_t ModelFill::AppendRow(const NameKey& key, std::string_view name, RowType type,
                                  Bounds bounds) {
  ModelData& data = model_.data;
  AppendRecord(data.Rows, data.NumberOfRows, name, bounds, model_.row_names).Type = type;
  model_.row_names.Add(key, name, data.NumberOfRows, NamesOf(data.Rows));
  model_.ready.Count(data);
  return data.NumberOfRows;
}

std::int32_t ModelFill::AppendColumn(const NameKey& key, std::string_view name, ColumnType type,
                                     Bounds bounds) {
  ModelData& data = model_.data;
  AppendRecord(data.Columns, data.NumberOfColumns, name, bounds, model_.column_names).Type = type;
  model_.column_names.Add(key, name, data.NumberOfColumns, NamesOf(data.Columns));
  model_.ready.Count(data);
  return data.NumberOfColumns;
}

void ModelFill::AppendToBoth(std::int32_t r, std::int32_t c, double value) {
  ElementList& row = model_.data.Rows[r].Elements;
  row.MakeRoom();
  model_.column_arena.Append(model_.data.Columns[c].Elements.store(), {r, value});
  row.Append({c, value});
  ++model_.data.NumberOfElements;
  deferred_.NoteChange();
}

}  // namespace quarvel::model
