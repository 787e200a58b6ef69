// Queries by number.

#include "component/lp_model.h"

namespace quarvel {

double LPModel::ColUpperBound(std::int32_t j) const {
  return Guarded([&] { return Column(j).UpperBound; });
}

double LPModel::ColLowerBound(std::int32_t j) const {
  return Guarded([&] { return Column(j).LowerBound; });
}

std::string LPModel::ColName(std::int32_t j) const {
  return Guarded([&] { return Column(j).Name; });
}

std::string LPModel::ColType(std::int32_t j) const {
  return Guarded([&] { return model::TypeText(Column(j).Type); });
}

double LPModel::RowUpperBound(std::int32_t i) const {
  return Guarded([&] { return Row(i).UpperBound; });
}

double LPModel::RowLowerBound(std::int32_t i) const {
  return Guarded([&] { return Row(i).LowerBound; });
}

std::string LPModel::RowName(std::int32_t i) const {
  return Guarded([&] { return Row(i).Name; });
}

std::string LPModel::RowType(std::int32_t i) const {
  return Guarded([&] { return model::TypeText(Row(i).Type); });
}

double LPModel::ElementValue(std::int32_t i, std::int32_t j) const {
  return Guarded([&] {
    const std::int32_t r = model::CheckRowOfPair(i, NumberOfRows());
    return store_.ElementValue(r, model::CheckColumnOfPair(j, NumberOfColumns()));
  });
}

std::int32_t LPModel::BindingRowIndex(std::int32_t i) const {
  return Guarded([&] {
    const model::ModelData& data = store_.data();
    return model::Public(
        data.BindingRows[model::CheckBindingRowIndex(i, data.NumberOfBindingRows)]);
  });
}

std::int32_t LPModel::NonBindingRowIndex(std::int32_t i) const {
  return Guarded([&] {
    const model::ModelData& data = store_.data();
    return model::Public(
        data.NonBindingRows[model::CheckNonBindingRowIndex(i, data.NumberOfNonBindingRows)]);
  });
}

}  // namespace quarvel
