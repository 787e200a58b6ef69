// A model as programs have one, built by the public interface alone, and what a call throws.
#pragma once

#include <optional>

#include "quarvel/quarvel.h"

namespace quarvel::testing {

// COST: 3 X - 2 Y, free; LIMIT: X + Y <= 4; RANGE: 1 <= X <= 8. X in [0, none), Y integer in [-1, 5].
inline Model SmallApiModel() {
  Model model;
  model.set_name("SMALL");
  model.AddRow("COST");
  model.AddRow("LIMIT", {.upper = 4});
  model.AddRow("RANGE", {.lower = 1, .upper = 8});
  model.AddColumn("X");
  model.AddColumn("Y", {.lower = -1, .upper = 5}, ColumnType::kInteger);
  model.AddElement(0, 0, 3);
  model.AddElement(1, 0, 1);
  model.AddElement(2, 0, 1);
  model.AddElement(0, 1, -2);
  model.AddElement(1, 1, 1);
  return model;
}

// The code of what the call throws; nothing when it throws nothing.
template <class Call>
std::optional<ErrorCode> ErrorOf(const Call& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.code();
  }
  return std::nullopt;
}

}  // namespace quarvel::testing
