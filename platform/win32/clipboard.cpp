#include "platform/win32/clipboard.h"

#include <cstring>

#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr int kAttempts = 5;
constexpr DWORD kPauseMs = 10;

MemoryHolder Copied(const std::wstring& text) {
  const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
  MemoryHolder memory(GlobalAlloc(GMEM_MOVEABLE, size));
  void* const place = memory ? GlobalLock(memory.get()) : nullptr;
  if (place == nullptr) return {};
  std::memcpy(place, text.c_str(), size);
  GlobalUnlock(memory.get());
  return memory;
}

// Another program may have it open for a moment.
bool Open() {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (attempt > 0) Sleep(kPauseMs);
    if (OpenClipboard(GetActiveWindow())) return true;
  }
  return false;
}

}  // namespace

void SetClipboardText(std::string_view text) {
  MemoryHolder memory = Copied(ToWide(text));
  if (!memory || !Open()) return;
  EmptyClipboard();
  // From here on the memory is the clipboard's.
  if (SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr) memory.Release();
  CloseClipboard();
}

}  // namespace quarvel::platform::win32
