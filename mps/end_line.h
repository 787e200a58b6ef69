// The line that ends a model, looked for without reading the model.
#pragma once

#include <cstdint>
#include <string_view>

namespace quarvel::mps {

// So many of a file's last bytes are looked at; what follows the line is no part of the model.
inline constexpr std::uint64_t kEndOfModel = 4096;

// Whether one of these lines has ENDATA, in any case, for its first word.
bool HasEndLine(std::string_view lines);

}  // namespace quarvel::mps
