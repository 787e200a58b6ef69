// How the files of this system call it: UTF-16 at its border, and names beyond 260 characters by
// the "\\?\" form.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <cstdint>
#include <string>
#include <string_view>

#include <windows.h>

namespace quarvel::platform {

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The path absolute, with backslashes, in the long form when it is long.
std::wstring SystemPath(const std::string& path);
std::string ToUtf8(std::wstring_view wide);

inline HANDLE ToHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

// The two halves of a number as the system gives it.
inline std::uint64_t Joined(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }

// When the contents of the file were written last, in the unit of a FileStamp.
inline std::int64_t TimeOf(const BY_HANDLE_FILE_INFORMATION& info) {
  const FILETIME& time = info.ftLastWriteTime;
  return static_cast<std::int64_t>(Joined(time.dwHighDateTime, time.dwLowDateTime));
}

// A handle that is closed again; nothing more is wanted of it, so failures do not matter.
class ScopedFileHandle {
 public:
  explicit ScopedFileHandle(HANDLE handle) : handle_(handle) {}
  ~ScopedFileHandle() {
    if (IsOpen()) CloseHandle(handle_);
  }
  ScopedFileHandle(const ScopedFileHandle&) = delete;
  ScopedFileHandle& operator=(const ScopedFileHandle&) = delete;
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace quarvel::platform
