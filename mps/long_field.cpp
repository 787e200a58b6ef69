#include "mps/long_field.h"

#include <array>
#include <cstddef>

namespace quarvel::mps {
namespace {

// By kind.
constexpr std::array<std::string_view, 5> kWords = {"the name ", "the coefficient of ",
                                                    "the right-hand side of ", "the range of ",
                                                    "the bound of "};

}  // namespace

std::string TextOf(const LongField& field) {
  std::string text(kWords[static_cast<std::size_t>(field.kind)]);
  text += field.name;
  if (!field.row.empty()) text.append(" in ").append(field.row);
  return text;
}

}  // namespace quarvel::mps
