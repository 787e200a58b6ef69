// The types of rows and columns as programs see them.
#pragma once

#include "model/record_types.h"
#include "quarvel/model.h"

namespace quarvel::api {

// No operation makes a row without a type; it would be a free one.
inline RowType PublicType(model::RowType type) {
  switch (type) {
    case model::RowType::kGreater:
      return RowType::kGreater;
    case model::RowType::kLess:
      return RowType::kLess;
    case model::RowType::kEqual:
      return RowType::kEqual;
    case model::RowType::kRanged:
      return RowType::kRanged;
    case model::RowType::kNone:
    case model::RowType::kFree:
      break;
  }
  return RowType::kFree;
}

inline ColumnType PublicType(model::ColumnType type) {
  return type == model::ColumnType::kInteger ? ColumnType::kInteger : ColumnType::kContinuous;
}

}  // namespace quarvel::api
