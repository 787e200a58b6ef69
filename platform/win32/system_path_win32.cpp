#include "platform/win32/system_path.h"
#include "text/encoding.h"

namespace quarvel::platform {
namespace {

// Folder names may be 12 characters shorter than MAX_PATH; beyond that only the long form is safe.
constexpr std::size_t kLongestPlainPath = MAX_PATH - 12;

}  // namespace

std::wstring SystemPath(const std::string& path) {
  const std::u16string wide = text::Utf8ToUtf16(path);
  const std::wstring given(wide.begin(), wide.end());
  if (given.starts_with(LR"(\\?\)")) return given;
  std::wstring full(MAX_PATH, L'\0');
  for (;;) {
    const DWORD count =
        GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (count == 0) return given;
    const bool fits = count < full.size();
    full.resize(count);
    if (fits) break;
  }
  if (full.size() < kLongestPlainPath || full.starts_with(LR"(\\.\)")) return full;
  return full.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

std::string ToUtf8(std::wstring_view wide) {
  return text::Utf16ToUtf8(std::u16string(wide.begin(), wide.end()));
}

}  // namespace quarvel::platform
