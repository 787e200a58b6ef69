// Encodings: text is UTF-8 inside; files may hold Windows-1252, and Windows speaks UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quarvel::text {

// Well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsValidUtf8(std::string_view bytes);

// True when every byte is below 128.
bool IsAscii(std::string_view bytes);

// Every byte is one character; the five undefined codes (81, 8D, 8F, 90, 9D hexadecimal) become the
// control characters of the same number.
std::string Windows1252ToUtf8(std::string_view bytes);

// The number of characters (code points) of valid UTF-8 text.
std::size_t CharacterCount(std::string_view utf8);

// UTF-16 both ways. An ill-formed part becomes U+FFFD; nothing fails.
std::u16string Utf8ToUtf16(std::string_view utf8);
std::string Utf16ToUtf8(std::u16string_view utf16);

}  // namespace quarvel::text
