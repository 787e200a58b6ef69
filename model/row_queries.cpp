#include "model/error_reports.h"
#include "model/lp_model.h"

namespace quarvel {
double LPModel::RowUpperBound(std::int32_t i) const { return Row(i).UpperBound; }

double LPModel::RowLowerBound(std::int32_t i) const { return Row(i).LowerBound; }

std::string LPModel::RowName(std::int32_t i) const { return Row(i).Name; }

std::string LPModel::RowType(std::int32_t i) const { return TypeText(Row(i).Type); }

double LPModel::ElementValue(std::int32_t i, std::int32_t j) const {
  const ModelData& data = Settled();
  const RowRecord& row = data.Rows[CheckRowOfPair(data, i)];
  const std::int32_t c = CheckColumnOfPair(data, j);
  for (const ElementEntry& entry : row.Elements) {
    if (entry.Index == c) return entry.Value;
  }
  return 0;
}

std::int32_t LPModel::BindingRowIndex(std::int32_t i) const {
  const ModelData& data = Settled();
  return data.BindingRows[CheckBindingRowIndex(data, i)] - 1;
}

std::int32_t LPModel::NonBindingRowIndex(std::int32_t i) const {
  const ModelData& data = Settled();
  return data.NonBindingRows[CheckNonBindingRowIndex(data, i)] - 1;
}

}  // namespace quarvel
