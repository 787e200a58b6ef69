#include <exception>

#include "component/lp_model.h"
#include "component/results.h"
#include "model/equation.h"

namespace quarvel {
namespace {

// The record of 0-based row RowNum, which need not be counted, only stored.
const model::RowRecord& StoredRow(const model::ModelData& data, std::int32_t RowNum) {
  if (!model::InRange(RowNum, data.Rows.size())) model::RaiseSubscriptOutOfRange();
  return data.Rows[model::Stored(RowNum)];
}

// The slot of a stored column in a caller's array, whose own bounds are checked like the model's.
template <class T>
T& Slot(std::span<T> array, std::int32_t lower_bound, std::int32_t column) {
  const auto offset = static_cast<std::size_t>(std::int64_t{model::Public(column)} - lower_bound);
  if (offset >= array.size()) model::RaiseSubscriptOutOfRange();
  return array[offset];
}

}  // namespace

std::string LPModel::RowEquation(std::int32_t i) const {
  return Guarded([&] {
    const model::ModelData& data = store_.data();
    const model::RowRecord& row = data.Rows[model::CheckRow(i, data.NumberOfRows)];
    if (row.ElementCount() == 0) return model::EmptyRowText(row);
    std::string text = model::EquationStart(row);
    for (const model::ElementEntry& entry : row.Elements) model::AppendTerm(text, data, entry);
    return text + model::EquationEnd(row);
  });
}

std::int16_t LPModel::RowGradient(std::int32_t RowNum, std::span<double> Gradient,
                                  std::int32_t lower_bound) const {
  return Guarded([&] {
    GradientResult result = GradientResult::kDone;
    for (std::int32_t c = 1; c <= NumberOfColumns(); ++c) Slot(Gradient, lower_bound, c) = 0;
    const std::int32_t count = StoredRow(store_.data(), RowNum).ElementCount();
    try {
      for (std::int32_t k = 1; k <= count; ++k) {
        // A copy, and the row looked up anew each time: the box lets a host's events run.
        const model::ElementEntry entry = StoredRow(store_.data(), RowNum).Elements[k];
        if (entry.Index > NumberOfColumns()) {
          Refuse("Error in Quarvel.dll model");
          result = GradientResult::kBeyondColumns;
        }
        Slot(Gradient, lower_bound, entry.Index) = entry.Value;
      }
    } catch (const std::exception&) {
      return Number(GradientResult::kFailed);
    }
    return Number(result);
  });
}

std::int16_t LPModel::RowBodyValue(std::int32_t RowNum, std::span<const double> Point,
                                   double& Answer, std::int32_t lower_bound) const {
  return Guarded([&] {
    const model::ModelData& data = store_.data();
    Answer = 0;
    for (const model::ElementEntry& entry : StoredRow(data, RowNum).Elements) {
      if (entry.Index > data.NumberOfColumns) model::RaiseTooFewElementsInPoint();
      Answer += entry.Value * Slot(Point, lower_bound, entry.Index);
    }
    return Number(EditResult::kDone);
  });
}

}  // namespace quarvel
