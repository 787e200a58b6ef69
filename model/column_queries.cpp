#include "model/error_reports.h"
#include "model/lp_model.h"

namespace quarvel {
namespace {

const ColumnRecord& ColumnAt(const ModelData& data, std::int32_t j) {
  return data.Columns[CheckColumn(data, j)];
}

const ElementEntry& ElementAt(const ModelData& data, std::int32_t j, std::int32_t k) {
  const ColumnRecord& column = ColumnAt(data, j);
  return column.Elements[CheckColumnElement(column, k)];
}

}  // namespace

std::int32_t LPModel::ColElementrow(std::int32_t j, std::int32_t k) const {
  return ElementAt(Settled(), j, k).Index - 1;
}

double LPModel::ColElementvalue(std::int32_t j, std::int32_t k) const {
  return ElementAt(Settled(), j, k).Value;
}

std::int32_t LPModel::ColNumberElements(std::int32_t j) const {
  return ColumnAt(Settled(), j).ElementCount();
}

double LPModel::ColUpperBound(std::int32_t j) const { return ColumnAt(Settled(), j).UpperBound; }

double LPModel::ColLowerBound(std::int32_t j) const { return ColumnAt(Settled(), j).LowerBound; }

std::string LPModel::ColName(std::int32_t j) const { return ColumnAt(Settled(), j).Name; }

std::string LPModel::ColType(std::int32_t j) const { return TypeText(ColumnAt(Settled(), j).Type); }

}  // namespace quarvel
