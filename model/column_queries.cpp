#include "model/lp_model.h"

namespace quarvel {
double LPModel::ColUpperBound(std::int32_t j) const { return Column(j).UpperBound; }

double LPModel::ColLowerBound(std::int32_t j) const { return Column(j).LowerBound; }

std::string LPModel::ColName(std::int32_t j) const { return Column(j).Name; }

std::string LPModel::ColType(std::int32_t j) const { return TypeText(Column(j).Type); }

}  // namespace quarvel
