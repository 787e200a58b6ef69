#include "model/model_data.h"

#include <utility>

namespace quarvel {
namespace {

auto RowNames(const ModelData& data) {
  return [&data](std::int32_t number) -> const std::string& { return data.Rows[number].Name; };
}

auto ColumnNames(const ModelData& data) {
  return [&data](std::int32_t number) -> const std::string& { return data.Columns[number].Name; };
}

// Walking the columns in order meets the coefficients in the order in which a read appended them,
// as long as no column was taken up again; the reader keeps row lists up to date itself from there
// on.
void FillRowLists(ModelData& data) {
  data.row_lists_pending = false;
  std::vector<std::int32_t> counts(static_cast<std::size_t>(data.Rows.size()), 0);
  for (const ColumnRecord& column : data.Columns) {
    for (const ElementEntry& entry : column.Elements) {
      ++counts[static_cast<std::size_t>(entry.Index - 1)];
    }
  }
  std::size_t total = 0;
  for (const std::int32_t count : counts) total += static_cast<std::size_t>(count);
  ElementEntry* next = data.row_arena.Take(total);
  std::vector<ElementEntry*> cursors;
  cursors.reserve(counts.size());
  for (std::int32_t r = 1; r <= data.Rows.size(); ++r) {
    const auto count = static_cast<std::size_t>(counts[static_cast<std::size_t>(r - 1)]);
    if (count > 0) data.Rows[r].Elements.store().Lend(next, count);
    cursors.push_back(next);
    next += count;
  }
  for (std::int32_t c = 1; c <= data.Columns.size(); ++c) {
    for (const ElementEntry& entry : std::as_const(data.Columns)[c].Elements) {
      *cursors[static_cast<std::size_t>(entry.Index - 1)]++ = {c, entry.Value};
    }
  }
}

}  // namespace

std::string TypeText(TypeLetter letter) {
  return letter == kNoType ? std::string() : std::string(1, letter);
}

void Settle(ModelData& data) {
  if (data.row_lists_pending) FillRowLists(data);
  if (!data.removals.empty()) CloseGaps(data);
}

void ReleaseRowsAndColumns(ModelData& data) {
  data.row_lists_pending = false;
  CloseGaps(data);  // the row indexes outlive the rows
  data.agreement.Forget();
  data.NumberOfColumns = 0;
  data.Columns.Release();
  data.NumberOfRows = 0;
  data.Rows.Release();
  data.NumberOfElements = 0;
  data.row_arena.Release();
  data.column_arena.Release();
  data.row_names.Clear();
  data.column_names.Clear();
}

std::int32_t FindRow(const ModelData& data, std::string_view name) {
  const auto names = RowNames(data);
  if (data.row_names.stale()) data.row_names.Rebuild(data.NumberOfRows, names);
  return data.row_names.Find(name, names);
}

std::int32_t FindColumn(const ModelData& data, std::string_view name) {
  const auto names = ColumnNames(data);
  if (data.column_names.stale()) data.column_names.Rebuild(data.NumberOfColumns, names);
  return data.column_names.Find(name, names);
}

void RebuildRowIndexes(ModelData& data) {
  data.NumberOfBindingRows = 0;
  data.NumberOfNonBindingRows = 0;
  data.BindingRows.Release();
  data.NonBindingRows.Release();
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    if (data.Rows[i].Type == 'N') {
      ++data.NumberOfNonBindingRows;
      data.NonBindingRows.Append(i);
    } else {
      ++data.NumberOfBindingRows;
      data.BindingRows.Append(i);
    }
  }
}

}  // namespace quarvel
