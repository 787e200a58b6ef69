#include "model/stored_model.h"

#include <utility>

namespace quarvel::model {

std::int32_t FindRowSlowly(StoredModel& model, const NameKey& key, std::string_view name) {
  const auto names = NamesOf(model.data.Rows);
  if (model.row_names.stale()) model.row_names.Rebuild(model.data.NumberOfRows, names);
  return model.row_names.Find(key, name, names);
}

std::int32_t FindColumnSlowly(StoredModel& model, const NameKey& key, std::string_view name) {
  const auto names = NamesOf(model.data.Columns);
  if (model.column_names.stale()) model.column_names.Rebuild(model.data.NumberOfColumns, names);
  return model.column_names.Find(key, name, names);
}

void RebuildRowIndexes(ModelData& data, std::int32_t rows) {
  RowNumbers binding;
  RowNumbers others;
  for (std::int32_t i = 1; i <= rows; ++i) {
    (TraitsOf(data.Rows[i].Type).binds ? binding : others).Append(i);
  }
  data.NumberOfBindingRows = binding.size();
  data.NumberOfNonBindingRows = others.size();
  std::swap(data.BindingRows, binding);
  std::swap(data.NonBindingRows, others);
}

void ReleaseRecords(StoredModel& model) {
  model.data.NumberOfColumns = 0;
  model.data.Columns.Release();
  model.data.NumberOfRows = 0;
  model.data.Rows.Release();
  model.data.NumberOfElements = 0;
  model.row_arena.Release();
  model.column_arena.Release();
  model.row_names.Clear();
  model.column_names.Clear();
}

}  // namespace quarvel::model
