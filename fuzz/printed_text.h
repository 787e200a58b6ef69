// What a program may print of names and texts that come from elsewhere.
#pragma once

#include <cstddef>
#include <string_view>

namespace quarvel::fuzz {

// Control characters but for those of `allowed`, as ASCII and as the UTF-8 of U+0080 to U+009F.
inline bool SteersTerminal(std::string_view text, std::string_view allowed) {
  constexpr unsigned char kBlank = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : ' ');
    const bool control = byte < kBlank || byte == kDelete;
    if (control && allowed.find(text[i]) == allowed.npos) return true;
    if (byte == 0xC2 && next >= 0x80 && next < 0xA0) return true;
  }
  return false;
}

}  // namespace quarvel::fuzz
