#include "hosts/base64.h"

#include <cstdint>

namespace quarvel::hosts {

std::string Base64(std::string_view bytes) {
  constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::string_view three = bytes.substr(i, 3);
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (k < three.size() ? static_cast<std::uint8_t>(three[k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= three.size() ? kLetters[bits >> (18 - 6 * k) & 63U] : '=';
    }
  }
  return text;
}

}  // namespace quarvel::hosts
