// Any bytes as a text: encodings, upper case and blocks of sixteen bytes, each against the plainest
// way to say the same.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "fuzz/choices.h"
#include "text/byte_block.h"
#include "text/encoding.h"
#include "text/upper_case.h"

namespace {

using namespace quarvel::text;

void Check(bool holds, const char* what) { quarvel::fuzz::Require(holds ? "" : what); }

// The first character of the bytes and its length; nothing where none begins.
struct Character {
  char32_t code;
  std::size_t length;
};
std::optional<Character> FirstCharacter(std::string_view bytes) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(bytes[0]);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC0 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                                           : 4;
  if (length == 0 || lead >= 0xF8 || bytes.size() < length) return std::nullopt;
  char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0U) != 0x80) return std::nullopt;
    code = code << 6 | (next & 0x3FU);
  }
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  if (surrogate || code > 0x10FFFF || code < kLeast[length]) return std::nullopt;
  return Character{code, length};
}

// The characters of the bytes; nothing when they are not UTF-8.
std::optional<std::u32string> Decode(std::string_view bytes) {
  std::u32string text;
  while (!bytes.empty()) {
    const std::optional<Character> character = FirstCharacter(bytes);
    if (!character) return std::nullopt;
    text += character->code;
    bytes.remove_prefix(character->length);
  }
  return text;
}

void CheckEncodings(const std::string& bytes) {
  const std::optional<std::u32string> text = Decode(bytes);
  Check(IsValidUtf8(bytes) == text.has_value(), "IsValidUtf8");
  const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                 [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  Check(IsAscii(bytes) == ascii, "IsAscii");
  const std::u16string wide = Utf8ToUtf16(bytes);
  const std::string back = Utf16ToUtf8(wide);
  Check(IsValidUtf8(back), "UTF-8 made from UTF-16");
  if (text) {
    Check(CharacterCount(bytes) == text->size(), "CharacterCount");
    Check(back == bytes, "there and back through UTF-16");
    const auto beyond =
        std::count_if(text->begin(), text->end(), [](char32_t c) { return c > 0xFFFF; });
    Check(wide.size() == text->size() + static_cast<std::size_t>(beyond), "UTF-16 units");
  } else {
    Check(wide.find(u'\uFFFD') != std::u16string::npos, "no sign of what is ill-formed");
  }
  const std::optional<std::u32string> western = Decode(Windows1252ToUtf8(bytes));
  Check(western && western->size() == bytes.size(), "Windows-1252");
}

// Halves of characters in any order.
void CheckUtf16(const std::string& bytes) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                   static_cast<unsigned char>(bytes[i + 1]));
  }
  const std::string text = Utf16ToUtf8(units);
  Check(IsValidUtf8(text), "UTF-8 made from any units");
  Check(Utf16ToUtf8(Utf8ToUtf16(text)) == text, "there and back from any units");
}

void CheckUpperCase(const std::string& bytes) {
  if (!IsValidUtf8(bytes)) return;
  const std::string upper = UpperCase(bytes);
  Check(IsValidUtf8(upper) && CharacterCount(upper) == CharacterCount(bytes), "UpperCase");
  Check(UpperCase(upper) == upper, "UpperCase of upper case");
  for (std::size_t i = 0; IsAscii(bytes) && i < bytes.size(); ++i) {
    const bool small = bytes[i] >= 'a' && bytes[i] <= 'z';
    Check(upper[i] == (small ? bytes[i] - 'a' + 'A' : bytes[i]), "UpperCase of ASCII");
  }
}

// The processor's way and the plain one.
template <class Look>
void CheckLook(const char* bytes, const Look& look) {
  Check(look(ByteBlock(bytes)) == look(PlainByteBlock(bytes)), "a block of bytes");
}

void CheckBlocks(std::string bytes) {
  if (bytes.size() < 2 * kBlockSize + 1) return;
  const char c = bytes[2 * kBlockSize];
  const std::size_t count = static_cast<unsigned char>(c) % (kBlockSize + 1);
  const char* const other = bytes.data() + kBlockSize;
  const char* const first = bytes.data();
  CheckLook(first, [&](const auto& block) { return block.Equal(c); });
  CheckLook(first, [&](const auto& block) { return block.EqualEither(c, *other); });
  CheckLook(first, [](const auto& block) { return block.NotAscii(); });
  CheckLook(first, [](const auto& block) { return block.Digits(); });
  CheckLook(first, [&](const auto& block) { return block.AtLeast(static_cast<unsigned char>(c)); });
  CheckLook(first, [&](const auto& block) {
    return block.Greater(std::decay_t<decltype(block)>(other)).Equal(c);
  });
  CheckLook(first, [&](const auto& block) {
    std::string stored(kBlockSize, ' ');
    block.StoreUpperCase(stored.data(), count);
    return stored;
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  CheckEncodings(bytes);
  CheckUtf16(bytes);
  CheckUpperCase(bytes);
  CheckBlocks(bytes);
  return 0;
}
