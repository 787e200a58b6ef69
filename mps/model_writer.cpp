#include "mps/model_writer.h"

namespace quarvel::mps {

ModelWriter::ModelWriter(const model::ModelStore& store, FileLayout layout,
                         const FileFacts& facts) {
  if (layout == FileLayout::kFixed) {
    fixed_.emplace(store.data());
  } else {
    exact_.emplace(store, facts);
  }
}

void ModelWriter::Write(const std::function<void(std::string_view)>& take) {
  if (fixed_) return fixed_->Write(take);
  exact_->Write(take);
}

std::int64_t LinesToWrite(const model::ModelStore& store) {
  const model::ModelData& data = store.data();
  std::int64_t lines = std::int64_t{data.NumberOfRows} + data.NumberOfElements;
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    if (RightHandSideOf(data.Rows[i])) ++lines;
  }
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data.Columns[j];
    const bool is_fixed = column.LowerBound == column.UpperBound;
    if (column.LowerBound != 0) ++lines;
    if (!is_fixed && model::HasUpper(column.UpperBound)) ++lines;
  }
  return lines;
}

}  // namespace quarvel::mps
