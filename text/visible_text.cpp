#include "text/visible_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/encoding.h"

namespace quarvel::text {
namespace {

constexpr std::size_t kLongestCharacter = 4;

// From the first to the last of each.
constexpr auto kSteering = std::to_array<std::pair<char32_t, char32_t>>({
    {0x00, 0x1F},
    {0x7F, 0x9F},
    {0x061C, 0x061C},
    {0x200E, 0x200F},
    {0x2028, 0x202E},
    {0x2066, 0x2069},
});

constexpr bool IsPlain(char c) { return c >= ' ' && c <= '~'; }

void AppendHex(std::string& out, char32_t code, int digits) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  while (digits-- > 0) out += kHex[(code >> (4 * digits)) & 0xF];
}

void AppendEscape(std::string& out, const Character& character) {
  if (character.valid && character.code > 0x7F) {
    AppendCodeEscape(out, character.code);
  } else {
    out += "\\x";
    AppendHex(out, character.code, 2);
  }
}

// The bytes of the line end at the front, 0 when there is none that is not escaped.
std::size_t LineEndSize(std::string_view text, LineEnds line_ends) {
  if (line_ends == LineEnds::kEscaped) return 0;
  if (text.starts_with("\r\n")) return 2;
  const bool is_alone = text.front() == '\r' || text.front() == '\n';
  return is_alone && line_ends == LineEnds::kKept ? 1 : 0;
}

// Appends what stands at the front and gives its size.
std::size_t AppendVisible(std::string& out, std::string_view text, LineEnds line_ends) {
  const std::size_t line_end = LineEndSize(text, line_ends);
  if (line_end != 0) {
    out += line_ends == LineEnds::kKept ? '\n' : ' ';
    return line_end;
  }
  const Character character = FirstCharacter(text);
  if (!character.valid || IsSteering(character.code)) {
    AppendEscape(out, character);
  } else {
    out += text.substr(0, character.size);
  }
  return character.size;
}

}  // namespace

std::string VisibleText(std::string_view text, LineEnds line_ends) {
  if (std::all_of(text.begin(), text.end(), IsPlain)) return std::string(text);
  std::string visible;
  visible.reserve(text.size());
  while (!text.empty()) {
    if (IsPlain(text.front())) {
      visible += text.front();
      text.remove_prefix(1);
    } else {
      text.remove_prefix(AppendVisible(visible, text, line_ends));
    }
  }
  return visible;
}

Character FirstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80) return {first, 1, true};
  std::size_t size = 2;
  while (size <= std::min(kLongestCharacter, text.size()) && !IsValidUtf8(text.substr(0, size))) {
    ++size;
  }
  if (size > std::min(kLongestCharacter, text.size())) return {first, 1, false};
  constexpr char32_t kBitsOfFirst[] = {0, 0, 0x1F, 0x0F, 0x07};
  char32_t code = first & kBitsOfFirst[size];
  for (const char c : text.substr(1, size - 1)) {
    code = code << 6 | (static_cast<unsigned char>(c) & 0x3F);
  }
  return {code, size, true};
}

bool IsSteering(char32_t code) {
  return std::any_of(kSteering.begin(), kSteering.end(), [code](const auto& range) {
    return code >= range.first && code <= range.second;
  });
}

void AppendCodeEscape(std::string& out, char32_t code) {
  out += "\\u";
  AppendHex(out, code, 4);
}

}  // namespace quarvel::text
