// Bytes as letters, for what holds text only.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::hosts {

// RFC 4648, with the letters + and /, filled up with =, in one line.
std::string Base64(std::string_view bytes);

}  // namespace quarvel::hosts
