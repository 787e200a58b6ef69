#include "component/lp_model.h"
#include "component/results.h"

namespace quarvel {

std::int16_t LPModel::DeleteRow(std::int32_t row) {
  return Guarded([&] {
    if (NumberOfRows() == 1) {
      Refuse(
          "Cannot remove the only row.\r\n"
          "Rename it instead of removing it and creating a new one.");
    } else if (model::InRange(row, NumberOfRows())) {
      store_.RemoveRow(model::Stored(row));
    }
    return Number(EditResult::kDone);
  });
}

std::int16_t LPModel::DeleteColumn(std::int32_t col) {
  return Guarded([&] {
    if (NumberOfColumns() == 1) {
      Refuse(
          "Cannot remove the only column.\r\n"
          "Rename it instead of removing it and creating a new one.");
    } else if (model::InRange(col, NumberOfColumns())) {
      store_.RemoveColumn(model::Stored(col), [this](const model::RowRecord& row) {
        log_.AppendEmptyRow(row.Type, row.Name);
      });
    }
    return Number(EditResult::kDone);
  });
}

std::int16_t LPModel::DeleteElement(std::int32_t row, std::int32_t ele) {
  return Guarded([&] {
    if (!model::InRange(row, NumberOfRows())) return Number(EditResult::kRefused);
    // No result says that the element number is bad: a host hears of it as a failure. A row may not
    // lose its last element and stay, so that the whole row goes then.
    if (!model::InRange(ele, store_.ElementsInRow(model::Stored(row)))) {
      model::RaiseSubscriptOutOfRange();
    }
    store_.RemoveElement(model::Stored(row), model::Stored(ele));
    return Number(EditResult::kDone);
  });
}

}  // namespace quarvel
