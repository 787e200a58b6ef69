// Names of files and folders on Windows.
#include <string>
#include <string_view>

#include "platform/automation_error.h"
#include "platform/file_watch.h"
#include "platform/files.h"
#include "platform/system_file.h"
#include "platform/win32/system_path.h"

namespace quarvel::platform {
namespace {

using enum RunTimeError;

// ERROR_DISK_QUOTA_EXCEEDED and ERROR_FILE_TOO_LARGE, which not every compiler's headers have.
constexpr DWORD kDiskQuotaExceeded = 1295;
constexpr DWORD kFileTooLarge = 223;

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

struct FileIdentity {
  DWORD volume = 0;
  DWORD high = 0;
  DWORD low = 0;
  bool operator==(const FileIdentity&) const = default;
};

std::optional<FileIdentity> IdentityOf(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  if (IsRefused(FileCall::kAsk, path)) return std::nullopt;
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

void RaiseSystemError(const std::string& path) {
  const DWORD code = GetLastError();
  if (code == kFileTooLarge) RaiseRunTimeError(kDiskFull, kTooLarge);
  if (code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION) {
    RaiseRunTimeError(kPermissionDenied, kLockedByOthers);
  }
  RaiseRunTimeError(ErrorOf(code, path));
}

void SetSystemError(FileFault fault) {
  switch (fault) {
    case FileFault::kDiskFull:
      SetLastError(ERROR_DISK_FULL);
      return;
    case FileFault::kNotPermitted:
      SetLastError(ERROR_ACCESS_DENIED);
      return;
    default:
      SetLastError(ERROR_IO_DEVICE);
  }
}

std::optional<SystemFileInfo> AskSystemAbout(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  if (IsRefused(FileCall::kAsk, path)) return std::nullopt;
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  if (GetFileAttributesExW(SystemPath(path).c_str(), GetFileExInfoStandard, &data) == 0) {
    return std::nullopt;
  }
  const bool is_folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const std::uint64_t size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
  return SystemFileInfo{is_folder, is_folder ? 0 : size};
}

void RemoveFile(const std::string& path) {
  CheckFileName(path);
  const std::wstring name = SystemPath(path);
  if (IsRefused(FileCall::kRemove, path) || DeleteFileW(name.c_str()) == 0) RaiseSystemError(path);
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
