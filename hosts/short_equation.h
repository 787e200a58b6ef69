// The equation of a row with as many of its terms as there is room for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "component/lp_model.h"

namespace quarvel::hosts {

struct EquationRoom {
  static constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();

  std::size_t cells = kAny;
  std::size_t terms = kAny;
  bool is_shown =
      true;  // on a terminal, say, which names must not steer; else they stand as they are
};

// "499,994", as people read it.
std::string GroupedText(std::int64_t count);

// The equation as a terminal may show it. Where it has more than there is room for, its first terms,
// "... 499,994 more", and its end. Raises what RowEquation
// raises. Cost: what is shown.
std::string ShortEquation(const LPModel& model, std::int32_t row, const EquationRoom& room);

}  // namespace quarvel::hosts
