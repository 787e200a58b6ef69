#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <algorithm>

// Whole, not lean: CommandLineToArgvW comes with it.
#include <windows.h>

#include "hosts/standard_output.h"
#include "text/encoding.h"

namespace quarvel::hosts {
namespace {

WriteResult ResultOfLastError() {
  const DWORD error = GetLastError();
  const bool closed = error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA;
  return closed ? WriteResult::kClosed : WriteResult::kFailed;
}

// The end of the whole characters of `utf8`, whose last one may go on in the next piece.
std::size_t EndOfWholeCharacters(std::string_view utf8) {
  std::size_t end = utf8.size();
  while (end > 0 && (static_cast<unsigned char>(utf8[end - 1]) & 0xC0U) == 0x80U) --end;
  if (end == 0) return utf8.size();
  const auto first = static_cast<unsigned char>(utf8[end - 1]);
  const std::size_t length = first < 0xC0 ? 1 : (first < 0xE0 ? 2 : (first < 0xF0 ? 3 : 4));
  return end - 1 + length <= utf8.size() ? utf8.size() : end - 1;
}

WriteResult WriteToConsole(HANDLE console, std::string_view bytes) {
  static std::string left_over;
  left_over += bytes;
  const std::size_t end = EndOfWholeCharacters(left_over);
  const std::u16string units = text::Utf8ToUtf16(std::string_view(left_over).substr(0, end));
  left_over.erase(0, end);
  const std::wstring wide(units.begin(), units.end());
  // A console takes no more than some 30,000 units at once.
  constexpr std::size_t kMost = 8192;
  for (std::size_t at = 0; at < wide.size();) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(kMost, wide.size() - at));
    if (WriteConsoleW(console, wide.data() + at, count, &written, nullptr) == 0) {
      return ResultOfLastError();
    }
    at += written;
  }
  return WriteResult::kWritten;
}

}  // namespace

WriteResult WriteStandardOutput(std::string_view bytes) {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(output, &mode) != 0) return WriteToConsole(output, bytes);
  while (!bytes.empty()) {
    DWORD written = 0;
    if (WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0) {
      return ResultOfLastError();
    }
    bytes.remove_prefix(written);
  }
  return WriteResult::kWritten;
}

void PrepareStandardStreams() {}

// The words that the runtime hands to main are in the system's own encoding, which cannot hold
// every name.
std::vector<std::string> CommandLineWords(int, const char* const*) {
  std::vector<std::string> words;
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return words;
  for (int i = 1; i < count; ++i) {
    const std::wstring_view word = wide[i];
    words.push_back(text::Utf16ToUtf8(std::u16string(word.begin(), word.end())));
  }
  LocalFree(wide);
  return words;
}

}  // namespace quarvel::hosts

#endif
