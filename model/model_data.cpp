#include "model/model_data.h"

#include "model/row_lists.h"

namespace quarvel {

// Walking the columns in order meets the coefficients in the order in which a read appended them,
// as long as no column was taken up again; the reader keeps row lists up to date itself from there
// on.
void Settle(ModelData& data) {
  if (data.row_lists_pending) {
    data.row_lists_pending = false;
    FillRowLists(data);
    data.agreement.NoteFilled(data);
  }
  if (!data.removals.empty()) CloseGaps(data);
}

void ReleaseRowsAndColumns(ModelData& data) {
  data.row_lists_pending = false;
  CloseGaps(data);  // the row indexes outlive the rows
  data.NumberOfColumns = 0;
  data.Columns.Release();
  data.NumberOfRows = 0;
  data.Rows.Release();
  data.NumberOfElements = 0;
  data.agreement.NoteFilled(data);
  data.row_arena.Release();
  data.column_arena.Release();
  data.row_names.Clear();
  data.column_names.Clear();
}

const NameIndex& RebuiltRowNames(const ModelData& data) {
  data.row_names.Rebuild(data.NumberOfRows, NamesOf(data.Rows));
  return data.row_names;
}

const NameIndex& RebuiltColumnNames(const ModelData& data) {
  data.column_names.Rebuild(data.NumberOfColumns, NamesOf(data.Columns));
  return data.column_names;
}

void RebuildRowIndexes(ModelData& data) {
  data.NumberOfBindingRows = 0;
  data.NumberOfNonBindingRows = 0;
  data.BindingRows.Release();
  data.NonBindingRows.Release();
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    if (TraitsOf(data.Rows[i].Type).binds) {
      ++data.NumberOfBindingRows;
      data.BindingRows.Append(i);
    } else {
      ++data.NumberOfNonBindingRows;
      data.NonBindingRows.Append(i);
    }
  }
}

}  // namespace quarvel
