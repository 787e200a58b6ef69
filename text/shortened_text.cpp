#include "text/shortened_text.h"

#include "text/encoding.h"

namespace quarvel::text {
namespace {

constexpr std::string_view kLeftOut = "...";

bool IsTrail(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::string_view First(std::string_view text, std::size_t characters) {
  std::size_t end = 0;
  for (; characters > 0 && end < text.size(); --characters) {
    ++end;
    while (end < text.size() && IsTrail(text[end])) ++end;
  }
  return text.substr(0, end);
}

std::string_view Last(std::string_view text, std::size_t characters) {
  std::size_t begin = text.size();
  for (; characters > 0 && begin > 0; --characters) {
    --begin;
    while (begin > 0 && IsTrail(text[begin])) --begin;
  }
  return text.substr(begin);
}

}  // namespace

std::string Shortened(std::string_view text, std::size_t most) {
  if (text.size() <= most || CharacterCount(text) <= most) return std::string(text);
  const std::size_t last = most / 4;
  std::string shortened(First(text, most - last));
  return shortened.append(kLeftOut).append(Last(text, last));
}

}  // namespace quarvel::text
