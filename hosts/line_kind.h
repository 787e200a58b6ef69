// Rows and columns seen alike, so that each command is written once for both.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/lp_model.h"

namespace quarvel::hosts {

// The operations of one kind. All numbers are 0-based.
struct LineKind {
  std::string_view noun;   // "row"
  std::string_view other;  // what its elements stand at: "column"
  std::int32_t (LPModel::*count)() const;
  std::string (LPModel::*name)(std::int32_t) const;
  std::string (LPModel::*type)(std::int32_t) const;
  double (LPModel::*lower)(std::int32_t) const;
  double (LPModel::*upper)(std::int32_t) const;
  std::int32_t (LPModel::*elements)(std::int32_t) const;
  std::int32_t (LPModel::*element_at)(std::int32_t, std::int32_t) const;
  double (LPModel::*element_value)(std::int32_t, std::int32_t) const;
  std::string (LPModel::*other_name)(std::int32_t) const;
  std::int32_t (*find)(const ModelData& data, std::string_view name);  // 1-based, 0 for none
};

extern const LineKind kRowKind;
extern const LineKind kColumnKind;

// The number of the row or column that `text` means: an exact name, else the name in upper case as
// every file is read, else a number. Raises a CommandError for no such name and the component's own
// error for a number out of range. Constant time.
std::int32_t FindLine(const LPModel& model, const LineKind& kind, std::string_view text);

}  // namespace quarvel::hosts
