#include "platform/win32/wide_text.h"

#include "text/encoding.h"

namespace quarvel::platform::win32 {

std::wstring ToWide(std::string_view utf8) {
  const std::u16string units = text::Utf8ToUtf16(utf8);
  return {units.begin(), units.end()};
}

std::string ToUtf8(std::wstring_view wide) {
  return text::Utf16ToUtf8(std::u16string(wide.begin(), wide.end()));
}

std::string WindowText(HWND window) {
  const int length = GetWindowTextLengthW(window);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const int copied = GetWindowTextW(window, text.data(), length + 1);
  text.resize(static_cast<std::size_t>(copied));
  return ToUtf8(text);
}

void SetWindowTextTo(HWND window, std::string_view text) {
  SetWindowTextW(window, ToWide(text).c_str());
}

}  // namespace quarvel::platform::win32
