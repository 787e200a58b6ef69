// What takes more room in a written file than fixed columns have for it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quarvel::mps {

enum class LongFieldKind : std::uint8_t { kName, kCoefficient, kRightHandSide, kRange, kBound };

struct LongField {
  LongFieldKind kind;
  // The name itself, or that of the row or column which the value belongs to.
  std::string_view name;
  std::string_view row = {};  // of a coefficient
};

// "the name PRODUCTION", "the coefficient of X in COST".
std::string TextOf(const LongField& field);

}  // namespace quarvel::mps
