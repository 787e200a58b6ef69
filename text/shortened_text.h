// Text of unknown length within a sentence.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarvel::text {

// A text of at most `most` characters as it is; of a longer one the first three quarters of them and the
// last one, with "..." in the place of what is between.
std::string Shortened(std::string_view text, std::size_t most);

}  // namespace quarvel::text
