// The errors that queries raise for bad numbers. Each check takes the 0-based number the caller
// passed, raises with that number in its text, and gives the 1-based number otherwise. No check
// overflows: 2147483647 is simply out of range.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/model_data.h"

namespace quarvel {

// As signed 32-bit integers these are what a failed call returns.
inline constexpr std::int32_t kColumnOutOfRange = static_cast<std::int32_t>(0x80040212u);
inline constexpr std::int32_t kColumnElementOutOfRange = static_cast<std::int32_t>(0x80040213u);
inline constexpr std::int32_t kRowOutOfRange = static_cast<std::int32_t>(0x80040214u);
inline constexpr std::int32_t kRowElementOutOfRange = static_cast<std::int32_t>(0x80040215u);
inline constexpr std::int32_t kTooFewElementsInPoint = static_cast<std::int32_t>(0x80040201u);

// Sources.
inline constexpr std::string_view kGetColumn = "LPModel.PropertyGetColumn()";
inline constexpr std::string_view kGetRow = "LPModel.PropertyGetRow()";

// True when the 0-based number `index` lies in 0..count-1.
constexpr bool InRange(std::int32_t index, std::int32_t count) {
  return index >= 0 && index < count;
}

[[noreturn]] void RaiseColumnOutOfRange(std::int32_t j, std::int32_t count);
[[noreturn]] void RaiseRowOutOfRange(std::int32_t i, std::int32_t count);
[[noreturn]] void RaiseColumnElementOutOfRange(std::int32_t k, std::int32_t count);
[[noreturn]] void RaiseRowElementOutOfRange(std::int32_t k, std::int32_t count);

// These four are what a walk over all coefficients asks for each of them.
inline std::int32_t CheckColumn(const ModelData& data, std::int32_t j) {
  if (!InRange(j, data.NumberOfColumns)) RaiseColumnOutOfRange(j, data.NumberOfColumns);
  return j + 1;
}
inline std::int32_t CheckRow(const ModelData& data, std::int32_t i) {
  if (!InRange(i, data.NumberOfRows)) RaiseRowOutOfRange(i, data.NumberOfRows);
  return i + 1;
}
inline std::int32_t CheckColumnElement(const ColumnRecord& column, std::int32_t k) {
  if (!InRange(k, column.ElementCount())) RaiseColumnElementOutOfRange(k, column.ElementCount());
  return k + 1;
}
inline std::int32_t CheckRowElement(const RowRecord& row, std::int32_t k) {
  if (!InRange(k, row.ElementCount())) RaiseRowElementOutOfRange(k, row.ElementCount());
  return k + 1;
}
// The short texts of a look-up by row and column.
std::int32_t CheckRowOfPair(const ModelData& data, std::int32_t i);
std::int32_t CheckColumnOfPair(const ModelData& data, std::int32_t j);
// "No rows of that kind" first, then the range.
std::int32_t CheckBindingRowIndex(const ModelData& data, std::int32_t i);
std::int32_t CheckNonBindingRowIndex(const ModelData& data, std::int32_t i);

// The range texts also shown in boxes by operations that do not raise.
std::string ColumnRangeText(std::int32_t j, std::int32_t count);
std::string RowRangeText(std::int32_t i, std::int32_t count);

[[noreturn]] void RaiseTooFewElementsInPoint();

}  // namespace quarvel
