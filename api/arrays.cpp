// The model as arrays. The records are walked as they are stored, nothing deferred.

#include "quarvel/arrays.h"

#include <cmath>

#include "api/parts.h"
#include "api/row_types.h"

namespace quarvel {
namespace {

using api::Translated;

void CheckLength(std::size_t length, std::int32_t wanted) {
  if (length == static_cast<std::size_t>(wanted)) return;
  throw Error(ErrorCode::kIndex,
              "An array has " + std::to_string(length) + " entries, not " + std::to_string(wanted));
}

// Calls `use` with each of the first `count` records and its place. Fewer are stored than counted in no
// model, and the arrays check their numbers.
template <class Records, class Use>
void ForEach(const Records& records, std::int32_t count, const Use& use) {
  for (std::int32_t i = 1; i <= count; ++i) use(records[i], static_cast<std::size_t>(i - 1));
}

template <class Records>
void CopyBounds(const Records& records, std::int32_t count, std::span<double> lower,
                std::span<double> upper) {
  CheckLength(lower.size(), count);
  CheckLength(upper.size(), count);
  ForEach(records, count, [&](const auto& record, std::size_t at) {
    lower[at] = record.LowerBound > -kNoBound ? record.LowerBound : -HUGE_VAL;
    upper[at] = record.UpperBound < kNoBound ? record.UpperBound : HUGE_VAL;
  });
}

struct Matrix {
  std::span<std::int32_t> starts;
  std::span<std::int32_t> indices;
  std::span<double> values;
};

template <class Records>
void CopyMatrix(const Records& records, std::int32_t count, std::int32_t elements,
                const Matrix& matrix) {
  CheckLength(matrix.starts.size(), count + 1);
  CheckLength(matrix.indices.size(), elements);
  CheckLength(matrix.values.size(), elements);
  std::size_t at = 0;
  ForEach(records, count, [&](const auto& record, std::size_t place) {
    matrix.starts[place] = static_cast<std::int32_t>(at);
    // The lists and the count agree in every model; this keeps one that is broken within the arrays.
    if (matrix.values.size() - at < record.Elements.store().size()) {
      throw Error(ErrorCode::kFailed, "The model counts fewer coefficients than it has");
    }
    for (const model::ElementEntry& entry : record.Elements) {
      matrix.indices[at] = model::Public(entry.Index);
      matrix.values[at] = entry.Value;
      ++at;
    }
  });
  matrix.starts[static_cast<std::size_t>(count)] = static_cast<std::int32_t>(at);
}

}  // namespace

void CopyRowBounds(const Model& model, std::span<double> lower, std::span<double> upper) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CopyBounds(data.Rows, data.NumberOfRows, lower, upper);
  });
}

void CopyColumnBounds(const Model& model, std::span<double> lower, std::span<double> upper) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CopyBounds(data.Columns, data.NumberOfColumns, lower, upper);
  });
}

void CopyRowTypes(const Model& model, std::span<RowType> types) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CheckLength(types.size(), data.NumberOfRows);
    ForEach(data.Rows, data.NumberOfRows, [&](const model::RowRecord& row, std::size_t at) {
      types[at] = api::PublicType(row.Type);
    });
  });
}

void CopyColumnTypes(const Model& model, std::span<ColumnType> types) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CheckLength(types.size(), data.NumberOfColumns);
    ForEach(data.Columns, data.NumberOfColumns,
            [&](const auto& column, std::size_t at) { types[at] = api::PublicType(column.Type); });
  });
}

void CopyMatrixByRows(const Model& model, std::span<std::int32_t> starts,
                      std::span<std::int32_t> columns, std::span<double> values) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CopyMatrix(data.Rows, data.NumberOfRows, data.NumberOfElements, {starts, columns, values});
  });
}

void CopyMatrixByColumns(const Model& model, std::span<std::int32_t> starts,
                         std::span<std::int32_t> rows, std::span<double> values) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CopyMatrix(data.Columns, data.NumberOfColumns, data.NumberOfElements, {starts, rows, values});
  });
}

void CopyActivities(const Model& model, std::span<const double> point,
                    std::span<double> activities) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    CheckLength(point.size(), data.NumberOfColumns);
    CheckLength(activities.size(), data.NumberOfRows);
    ForEach(data.Rows, data.NumberOfRows, [&](const model::RowRecord& row, std::size_t at) {
      double activity = 0;
      for (const model::ElementEntry& entry : row.Elements) {
        activity += entry.Value * point[static_cast<std::size_t>(model::Public(entry.Index))];
      }
      activities[at] = activity;
    });
  });
}

void VisitRowNames(const Model& model, const std::function<void(std::string_view)>& visit) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    ForEach(data.Rows, data.NumberOfRows, [&](const auto& row, std::size_t) { visit(row.Name); });
  });
}

void VisitColumnNames(const Model& model, const std::function<void(std::string_view)>& visit) {
  Translated([&] {
    const model::ModelData& data = ModelAccess::Of(model).store.data();
    ForEach(data.Columns, data.NumberOfColumns,
            [&](const auto& column, std::size_t) { visit(column.Name); });
  });
}

}  // namespace quarvel
