#include "model/deferred_row_indexes.h"

#include <new>

#include "model/stored_model.h"

namespace quarvel::model {

bool DeferredRowIndexes::Append(std::int32_t number, std::int32_t last, RowType type) {
  const bool binds = TraitsOf(type).binds;
  if (number <= listed_ && binds != TraitsOf(RowType::kNone).binds) return false;
  appended_.push_back({last, binds});
  return true;
}

void DeferredRowIndexes::CatchUp(ModelData& data) {
  if (!due_) return;
  RebuildRowIndexes(data, listed_);
  for (const Appended& row : appended_) AppendToRowIndex(data, row.row, row.binds);
  due_ = false;
  appended_.clear();
}

bool DeferredRowIndexes::TryToCatchUp(ModelData& data) noexcept {
  try {
    CatchUp(data);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void AppendToRowIndex(ModelData& data, std::int32_t last, bool binds) {
  RowNumbers& index = binds ? data.BindingRows : data.NonBindingRows;
  index.Append(last);
  ++(binds ? data.NumberOfBindingRows : data.NumberOfNonBindingRows);
}

}  // namespace quarvel::model
