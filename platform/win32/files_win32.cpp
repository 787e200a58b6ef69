// Files on Windows: UTF-16 at the system's border, and names beyond 260 characters by the "\\?\"
// form.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include <windows.h>

#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/system_file.h"
#include "platform/win32/system_path.h"
#include "text/encoding.h"

namespace quarvel::platform {
namespace {

using enum RunTimeError;

constexpr std::size_t kLargestTransfer = std::size_t{1} << 30;
// ERROR_DISK_QUOTA_EXCEEDED, which not every compiler's headers have.
constexpr DWORD kDiskQuotaExceeded = 1295;
// Folder names may be 12 characters shorter than MAX_PATH; beyond that only the long form is safe.
constexpr std::size_t kLongestPlainPath = MAX_PATH - 12;

std::wstring ToWide(std::string_view utf8) {
  const std::u16string wide = text::Utf8ToUtf16(utf8);
  return std::wstring(wide.begin(), wide.end());
}

std::string ToUtf8(std::wstring_view wide) {
  return text::Utf16ToUtf8(std::u16string(wide.begin(), wide.end()));
}

HANDLE ToHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

bool IsFolder(const std::string& path) {
  const auto info = AskSystemAbout(path);
  return info && info->is_folder;
}

RunTimeError ErrorOf(DWORD code, const std::string& path) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return kPathNotFound;
    case ERROR_ACCESS_DENIED:
      return IsFolder(path) ? kPathFileAccessError : kPermissionDenied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_USER_MAPPED_FILE:
      return kPermissionDenied;
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME:
      return kPathFileAccessError;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      return kBadFileNameOrNumber;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return kDiskFull;
    case ERROR_TOO_MANY_OPEN_FILES:
      return kTooManyFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return kOutOfMemory;
    default:
      return kDeviceIoError;
  }
}

std::intptr_t Open(const std::string& path, DWORD access, DWORD share, DWORD creation) {
  CheckFileName(path);
  const HANDLE handle = CreateFileW(SystemPath(path).c_str(), access, share, nullptr, creation,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) RaiseSystemError(path);
  return reinterpret_cast<std::intptr_t>(handle);
}

struct FileIdentity {
  DWORD volume = 0;
  DWORD high = 0;
  DWORD low = 0;
  bool operator==(const FileIdentity&) const = default;
};

std::optional<FileIdentity> IdentityOf(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE handle = CreateFileW(SystemPath(path).c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION info = {};
  const BOOL known = GetFileInformationByHandle(handle, &info);
  CloseHandle(handle);
  if (known == 0) return std::nullopt;
  return FileIdentity{info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow};
}

}  // namespace

std::wstring SystemPath(const std::string& path) {
  const std::wstring given = ToWide(path);
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

void RaiseSystemError(const std::string& path) { RaiseRunTimeError(ErrorOf(GetLastError(), path)); }

std::optional<SystemFileInfo> AskSystemAbout(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  if (GetFileAttributesExW(SystemPath(path).c_str(), GetFileExInfoStandard, &data) == 0) {
    return std::nullopt;
  }
  const bool is_folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const std::uint64_t size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
  return SystemFileInfo{is_folder, is_folder ? 0 : size};
}

SystemFile SystemFile::OpenForReading(const std::string& path) {
  return SystemFile(Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING));
}

SystemFile SystemFile::OpenForWriting(const std::string& path) {
  return SystemFile(Open(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS));
}

std::uint64_t SystemFile::Size() const {
  if (GetFileType(ToHandle(handle_)) != FILE_TYPE_DISK) return 0;
  LARGE_INTEGER size = {};
  if (GetFileSizeEx(ToHandle(handle_), &size) == 0) RaiseSystemError({});
  return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t SystemFile::Read(char* buffer, std::size_t capacity) {
  const auto wanted = static_cast<DWORD>(std::min(capacity, kLargestTransfer));
  DWORD count = 0;
  if (ReadFile(ToHandle(handle_), buffer, wanted, &count, nullptr) == 0) {
    // The writer's end of a pipe went away: that is its end of file.
    if (GetLastError() == ERROR_BROKEN_PIPE) return 0;
    RaiseSystemError({});
  }
  return count;
}

void SystemFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
    DWORD count = 0;
    if (WriteFile(ToHandle(handle_), bytes.data(), wanted, &count, nullptr) == 0) {
      RaiseSystemError({});
    }
    bytes.remove_prefix(count);
  }
}

void SystemFile::Close() {
  if (!IsOpen()) return;
  if (CloseHandle(ToHandle(std::exchange(handle_, kClosed))) == 0) RaiseSystemError({});
}

void RemoveFile(const std::string& path) {
  CheckFileName(path);
  if (DeleteFileW(SystemPath(path).c_str()) == 0) RaiseSystemError(path);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  const auto first = IdentityOf(a);
  return first && first == IdentityOf(b);
}

std::string FolderOf(const std::string& path) {
  const std::size_t end = path.find_last_of("/\\:");
  if (end == std::string::npos) return ".";
  // The separator belongs to the name of a drive's first folder.
  const bool first = end == 0 || path[end] == ':' || path[end - 1] == ':';
  return path.substr(0, first ? end + 1 : end);
}

std::string ComponentFolder() {
  HMODULE self = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const auto address = reinterpret_cast<LPCWSTR>(&ComponentFolder);
  if (GetModuleHandleExW(kFlags, address, &self) == 0) RaiseSystemError({});
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD count = GetModuleFileNameW(self, name.data(), static_cast<DWORD>(name.size()));
    if (count == 0) RaiseSystemError({});
    if (count < name.size()) {
      name.resize(count);
      break;
    }
    name.resize(name.size() * 2);
  }
  return ToUtf8(std::wstring_view(name).substr(0, name.find_last_of(L'\\')));
}

std::string StateFolder() { return ComponentFolder(); }

}  // namespace quarvel::platform
