// The other way round of what packs the pixels of a picture.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::testing {

// The bytes that a zlib stream holds, at most `most` of them. Empty, and a failed test, when it is none; empty
// without zlib too.
std::string Inflate(std::string_view packed, std::size_t most = 1 << 22);

}  // namespace quarvel::testing
