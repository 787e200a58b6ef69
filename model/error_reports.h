// The errors that queries raise for bad numbers. Each check takes the 0-based number the caller
// passed and how many there are, raises with that number in its text, and gives the stored number
// otherwise. No check overflows: 2147483647 is simply out of range.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/record_number.h"

namespace quarvel::model {

// As signed 32-bit integers these are what a failed call returns.
inline constexpr std::int32_t kColumnOutOfRange = static_cast<std::int32_t>(0x80040212u);
inline constexpr std::int32_t kColumnElementOutOfRange = static_cast<std::int32_t>(0x80040213u);
inline constexpr std::int32_t kRowOutOfRange = static_cast<std::int32_t>(0x80040214u);
inline constexpr std::int32_t kRowElementOutOfRange = static_cast<std::int32_t>(0x80040215u);
inline constexpr std::int32_t kTooFewElementsInPoint = static_cast<std::int32_t>(0x80040201u);

// Sources.
inline constexpr std::string_view kGetColumn = "LPModel.PropertyGetColumn()";
inline constexpr std::string_view kGetRow = "LPModel.PropertyGetRow()";

[[noreturn]] void RaiseColumnOutOfRange(std::int32_t j, std::int32_t count);
[[noreturn]] void RaiseRowOutOfRange(std::int32_t i, std::int32_t count);
[[noreturn]] void RaiseColumnElementOutOfRange(std::int32_t k, std::int32_t count);
[[noreturn]] void RaiseRowElementOutOfRange(std::int32_t k, std::int32_t count);

// These four are what a walk over all coefficients asks for each of them.
inline std::int32_t CheckColumn(std::int32_t j, std::int32_t count) {
  if (!InRange(j, count)) RaiseColumnOutOfRange(j, count);
  return Stored(j);
}
inline std::int32_t CheckRow(std::int32_t i, std::int32_t count) {
  if (!InRange(i, count)) RaiseRowOutOfRange(i, count);
  return Stored(i);
}
inline std::int32_t CheckColumnElement(std::int32_t k, std::int32_t count) {
  if (!InRange(k, count)) RaiseColumnElementOutOfRange(k, count);
  return Stored(k);
}
inline std::int32_t CheckRowElement(std::int32_t k, std::int32_t count) {
  if (!InRange(k, count)) RaiseRowElementOutOfRange(k, count);
  return Stored(k);
}
// The short texts of a look-up by row and column.
std::int32_t CheckRowOfPair(std::int32_t i, std::int32_t count);
std::int32_t CheckColumnOfPair(std::int32_t j, std::int32_t count);
// "No rows of that kind" first, then the range.
std::int32_t CheckBindingRowIndex(std::int32_t i, std::int32_t count);
std::int32_t CheckNonBindingRowIndex(std::int32_t i, std::int32_t count);

// The range texts also shown in boxes by operations that do not raise.
std::string ColumnRangeText(std::int32_t j, std::int32_t count);
std::string RowRangeText(std::int32_t i, std::int32_t count);

[[noreturn]] void RaiseTooFewElementsInPoint();

}  // namespace quarvel::model
