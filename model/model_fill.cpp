#include "model/model_fill.h"

#include <string>

namespace quarvel::model {
namespace {

template <class Record>
Record& AppendRecord(OneBased<Record>& records, std::int32_t& count, std::string_view name,
                     Bounds bounds) {
  if (records.size() != count) records.Resize(count);
  Record& record = records.AppendFresh();
  ++count;                          // not before there is one
  record.Name = std::string(name);  // made anew, it has no more room than it needs
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
  AppendRecord(data.Rows, data.NumberOfRows, name, bounds).Type = type;
  model_.row_names.Add(key, name, data.NumberOfRows, NamesOf(data.Rows));
  return data.NumberOfRows;
}

std::int32_t ModelFill::AppendColumn(const NameKey& key, std::string_view name, ColumnType type,
                                     Bounds bounds) {
  ModelData& data = model_.data;
  AppendRecord(data.Columns, data.NumberOfColumns, name, bounds).Type = type;
  model_.column_names.Add(key, name, data.NumberOfColumns, NamesOf(data.Columns));
  return data.NumberOfColumns;
}

}  // namespace quarvel::model
