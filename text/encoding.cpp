#include "text/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace quarvel::text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// One character, or the ill-formed bytes that one replacement character stands for.
struct Decoded {
  char32_t code;
  std::size_t length;
  bool well_formed;
};

// What a first byte announces. Only the second byte may have a narrower range than 80-BF: that
// keeps out overlong forms, surrogates and everything above U+10FFFF.
struct Lead {
  std::size_t length;
  unsigned second_low;
  unsigned second_high;
};

constexpr Lead LeadOf(unsigned byte) {
  if (byte < 0x80) return {1, 0, 0};
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte < 0xF0) return {3, byte == 0xE0 ? 0xA0u : 0x80u, byte == 0xED ? 0x9Fu : 0xBFu};
  if (byte < 0xF5) return {4, byte == 0xF0 ? 0x90u : 0x80u, byte == 0xF4 ? 0x8Fu : 0xBFu};
  return {0, 0, 0};
}

Decoded DecodeFirst(std::string_view bytes) {
  const unsigned first = static_cast<unsigned char>(bytes[0]);
  const Lead lead = LeadOf(first);
  if (lead.length == 0) return {kReplacement, 1, false};
  if (lead.length == 1) return {first, 1, true};
  char32_t code = first & (0x7Fu >> lead.length);
  for (std::size_t i = 1; i < lead.length; ++i) {
    const unsigned low = i == 1 ? lead.second_low : 0x80;
    const unsigned high = i == 1 ? lead.second_high : 0xBF;
    const unsigned byte = i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
    if (byte < low || byte > high) return {kReplacement, i, false};
    code = code << 6 | (byte & 0x3F);
  }
  return {code, lead.length, true};
}

void AppendUtf8(std::string& out, char32_t code) {
  const auto trail = [code](int shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
  };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += {static_cast<char>(0xC0 | code >> 6), trail(0)};
  } else if (code < 0x10000) {
    out += {static_cast<char>(0xE0 | code >> 12), trail(6), trail(0)};
  } else {
    out += {static_cast<char>(0xF0 | code >> 18), trail(12), trail(6), trail(0)};
  }
}

void AppendUtf16(std::u16string& out, char32_t code) {
  if (code < 0x10000) {
    out += static_cast<char16_t>(code);
  } else {
    out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
  }
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Windows-1252 differs from Latin-1 in 80-9F only.
constexpr std::array<char16_t, 32> kWindows1252Block = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Almost all of a model file is ASCII, so it is looked at eight bytes at a time.
std::size_t AsciiPrefix(std::string_view bytes) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t length = 0;
  for (std::uint64_t word = 0; length + sizeof word <= bytes.size(); length += sizeof word) {
    std::memcpy(&word, bytes.data() + length, sizeof word);
    if ((word & kHighBits) != 0) break;
  }
  while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < 0x80) ++length;
  return length;
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) {
  for (;;) {
    bytes.remove_prefix(AsciiPrefix(bytes));
    if (bytes.empty()) return true;
    const Decoded decoded = DecodeFirst(bytes);
    if (!decoded.well_formed) return false;
    bytes.remove_prefix(decoded.length);
  }
}

bool IsAscii(std::string_view bytes) { return AsciiPrefix(bytes) == bytes.size(); }

std::string Windows1252ToUtf8(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char c : bytes) {
    const unsigned byte = static_cast<unsigned char>(c);
    AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? kWindows1252Block[byte - 0x80] : byte);
  }
  return utf8;
}

std::size_t CharacterCount(std::string_view utf8) {
  const auto starts_character = [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  };
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), starts_character));
}

std::u16string Utf8ToUtf16(std::string_view utf8) {
  std::u16string utf16;
  utf16.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded decoded = DecodeFirst(utf8);
    AppendUtf16(utf16, decoded.code);
    utf8.remove_prefix(decoded.length);
  }
  return utf16;
}

std::string Utf16ToUtf8(std::u16string_view utf16) {
  std::string utf8;
  utf8.reserve(utf16.size());
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    const char16_t unit = utf16[i];
    if (IsHighSurrogate(unit) && i + 1 < utf16.size() && IsLowSurrogate(utf16[i + 1])) {
      const char16_t low = utf16[++i];
      AppendUtf8(utf8, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{low} - 0xDC00));
    } else {
      AppendUtf8(utf8, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? kReplacement : unit);
    }
  }
  return utf8;
}

}  // namespace quarvel::text
