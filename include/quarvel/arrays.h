// The model as plain arrays, in one call for each kind, as solvers and numerical programs take it. The
// arrays are the caller's; one of another length than is said here is Error kIndex, and then none is
// changed.
//
// Cost: one pass over what is copied, and over the model where something was removed before.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "quarvel/export.h"
#include "quarvel/model.h"

namespace quarvel {

// The bounds of all rows, or of all columns. One that is none is minus or plus infinity.
QUARVEL_API void CopyRowBounds(const Model& model, std::span<double> lower,
                               std::span<double> upper);
QUARVEL_API void CopyColumnBounds(const Model& model, std::span<double> lower,
                                  std::span<double> upper);

QUARVEL_API void CopyRowTypes(const Model& model, std::span<RowType> types);
QUARVEL_API void CopyColumnTypes(const Model& model, std::span<ColumnType> types);

// All coefficients, list behind list: those of list i are starts[i] to starts[i + 1] - 1 of the other
// two. `starts` has one entry more than there are lists, the others one for each coefficient. A list has
// its coefficients in the order of the model, which need not be that of their numbers; a pair that was
// added twice stands there twice.
QUARVEL_API void CopyMatrixByRows(const Model& model, std::span<std::int32_t> starts,
                                  std::span<std::int32_t> columns, std::span<double> values);
QUARVEL_API void CopyMatrixByColumns(const Model& model, std::span<std::int32_t> starts,
                                     std::span<std::int32_t> rows, std::span<double> values);

// The activity of every row at a point, as ActivityOfRow has it.
QUARVEL_API void CopyActivities(const Model& model, std::span<const double> point,
                                std::span<double> activities);

// Calls `visit` with each name in turn, which is good until it returns. It must not change the model.
QUARVEL_API void VisitRowNames(const Model& model,
                               const std::function<void(std::string_view)>& visit);
QUARVEL_API void VisitColumnNames(const Model& model,
                                  const std::function<void(std::string_view)>& visit);

}  // namespace quarvel
