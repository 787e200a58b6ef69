#include "mps/order_losses.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "model/record_number.h"

namespace quarvel::mps {
namespace {

using model::ColumnRecord;
using model::ElementEntry;
using model::ModelData;
using model::RowRecord;

class OrderCheck {
 public:
  OrderCheck(const ModelData& data, FileLayout layout, Losses& losses)
      : data_(data), losses_(losses), behind_(static_cast<std::size_t>(data.NumberOfColumns) + 1) {
    if (layout != FileLayout::kFixed) return;
    for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
      const bool is_integer = data.Columns[j].Type == model::ColumnType::kInteger;
      behind_[static_cast<std::size_t>(j)] = is_integer;
      any_behind_ = any_behind_ || is_integer;
    }
  }

  void CheckColumns();
  void CheckElements();

 private:
  // Stands behind all columns that do not.
  bool IsBehind(std::int32_t column) const {
    return any_behind_ && behind_[static_cast<std::size_t>(column)];
  }
  bool IsOutOfOrder(const RowRecord& row, bool& twice) const;
  std::vector<bool> RowsInAnotherOrder() const;

  const ModelData& data_;
  Losses& losses_;
  // By column, a bit each: it is asked for every element, and those of a row stand at columns far apart.
  std::vector<bool> behind_;
  bool any_behind_ = false;
};

void OrderCheck::CheckColumns() {
  std::int32_t behind = 0;
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
    const ColumnRecord& column = data_.Columns[j];
    if (IsBehind(j)) {
      if (column.ElementCount() > 0) ++behind;
    } else if (behind > 0 && column.ElementCount() > 0) {
      losses_.Add(LossKind::kColumnOrder, [&] {
        return Loss{"column", model::Public(j), column.Name,
                    "stands before the integer columns in the file"};
      });
    }
  }
}

void OrderCheck::CheckElements() {
  bool meets_a_row_twice = false;
  std::vector<bool> moved(static_cast<std::size_t>(data_.NumberOfRows) + 1);
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    moved[static_cast<std::size_t>(i)] = IsOutOfOrder(data_.Rows[i], meets_a_row_twice);
  }
  const std::vector<bool> exact = meets_a_row_twice ? RowsInAnotherOrder() : moved;
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    const auto row = static_cast<std::size_t>(i);
    if (!moved[row] && !exact[row]) continue;
    losses_.Add(LossKind::kElementOrder, [&] {
      return Loss{"row", model::Public(i), data_.Rows[i].Name,
                  "reads back with its elements in another order"};
    });
  }
}

// Whether its columns come in another order than in the file. `twice` becomes true where two different
// values stand side by side at one column.
bool OrderCheck::IsOutOfOrder(const RowRecord& row, bool& twice) const {
  std::int64_t last = 0;
  double last_value = 0;
  bool moved = false;
  for (const ElementEntry& element : row.Elements) {
    const bool behind = IsBehind(element.Index);
    const std::int64_t place = element.Index + (behind ? std::int64_t{1} << 32 : 0);
    moved |= place < last;
    twice |= place == last && element.Value != last_value;
    last = place;
    last_value = element.Value;
  }
  return moved;
}

// By row; what stands at one column is compared with that column's list.
std::vector<bool> OrderCheck::RowsInAnotherOrder() const {
  const auto size = static_cast<std::size_t>(data_.Rows.size()) + 1;
  std::vector<bool> moved(size);
  std::vector<std::int32_t> met(size);
  for (const bool behind : {false, true}) {
    for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
      if (IsBehind(j) != behind) continue;
      for (const ElementEntry& element : data_.Columns[j].Elements) {
        const auto row = static_cast<std::size_t>(element.Index);
        const ElementEntry& there = data_.Rows[element.Index].Elements[++met[row]];
        if (there.Index != j || there.Value != element.Value) moved[row] = true;
      }
    }
  }
  return moved;
}

}  // namespace

void AddOrderLosses(const ModelData& data, FileLayout layout, Losses& losses) {
  OrderCheck check(data, layout, losses);
  check.CheckColumns();
  check.CheckElements();
}

}  // namespace quarvel::mps
