// Names and what stands under them on Windows.
#include <memory>
#include <string>
#include <utility>

#include "platform/automation_error.h"
#include "platform/file_watch.h"
#include "platform/files.h"
#include "platform/system_file.h"
#include "platform/system_names.h"
#include "platform/win32/system_path.h"
#include "text/upper_case.h"

namespace quarvel::platform {
namespace {

bool LeadsNowhere(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

HANDLE OpenName(FileCall kind, const std::string& path, DWORD access, DWORD share, DWORD flags) {
  const std::wstring name = SystemPath(path);
  if (IsRefused(kind, path)) return INVALID_HANDLE_VALUE;
  return CreateFileW(name.c_str(), access, share, nullptr, OPEN_EXISTING, flags, nullptr);
}

// Files in the cloud stand under points of other kinds, and are files.
bool IsLink(HANDLE file, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  FILE_ATTRIBUTE_TAG_INFO info = {};
  if (GetFileInformationByHandleEx(file, FileAttributeTagInfo, &info, sizeof info) == 0) {
    return true;
  }
  return info.ReparseTag == IO_REPARSE_TAG_SYMLINK || info.ReparseTag == IO_REPARSE_TAG_MOUNT_POINT;
}

struct CloseSearch {
  void operator()(HANDLE search) const { FindClose(search); }
};

NameKind KindOf(HANDLE file, DWORD attributes) {
  if (IsLink(file, attributes)) return NameKind::kLink;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? NameKind::kFolder : NameKind::kFile;
}

FileStamp StampOf(const BY_HANDLE_FILE_INFORMATION& info) {
  return {info.dwVolumeSerialNumber, Joined(info.nFileIndexHigh, info.nFileIndexLow),
          Joined(info.nFileSizeHigh, info.nFileSizeLow), TimeOf(info)};
}

// A file that was made here and abandoned: plain, without a second name.
bool CanBeAbandoned(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION info = {};
  constexpr DWORD kOther = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  return GetFileInformationByHandle(file, &info) != 0 && info.nNumberOfLinks == 1 &&
         (info.dwFileAttributes & kOther) == 0;
}

// Errors that say: this name is not to be taken by renaming, though its file may be written.
bool ForbidsTaking(DWORD error) {
  return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
         error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE ||
         error == ERROR_NOT_SAME_DEVICE;
}

bool Rename(const std::string& from, const std::string& to, DWORD flags) {
  const std::wstring old_name = SystemPath(from);
  const std::wstring new_name = SystemPath(to);
  return !IsRefused(FileCall::kRename, from, to) &&
         MoveFileExW(old_name.c_str(), new_name.c_str(), flags | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace

std::optional<NamedFile> AskAboutName(const std::string& path) {
  constexpr DWORD kLook = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;
  const ScopedFileHandle file(
      OpenName(FileCall::kAsk, path, FILE_READ_ATTRIBUTES, kShareAll, kLook));
  if (!file.IsOpen()) {
    if (LeadsNowhere(GetLastError())) return std::nullopt;
    RaiseSystemError(path);
  }
  BY_HANDLE_FILE_INFORMATION info = {};
  if (GetFileInformationByHandle(file.get(), &info) == 0) RaiseSystemError(path);
  return NamedFile{KindOf(file.get(), info.dwFileAttributes), StampOf(info)};
}

std::string FinalName(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const ScopedFileHandle file(
      OpenName(FileCall::kAsk, path, FILE_READ_ATTRIBUTES, kShareAll, FILE_FLAG_BACKUP_SEMANTICS));
  if (!file.IsOpen()) RaiseSystemError(path);
  const DWORD size = GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring name(size, L'\0');
  const DWORD count =
      GetFinalPathNameByHandleW(file.get(), name.data(), size, FILE_NAME_NORMALIZED);
  if (count == 0 || count >= size) RaiseSystemError(path);
  return ToUtf8(std::wstring_view(name).substr(0, count));
}

bool IsNameOfOpenFile(const std::string&) { return false; }

std::optional<FileTraits> AskForWriting(const std::string& path) {
  CheckFileName(path);
  const std::wstring name = SystemPath(path);
  // Opening a pipe or a device and closing it again may end what it is there for.
  if (name.starts_with(LR"(\\.\)")) return FileTraits{};
  const DWORD attributes =
      IsRefused(FileCall::kAsk, path) ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    if (!LeadsNowhere(GetLastError())) RaiseSystemError(path);
    return std::nullopt;
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return FileTraits{};
  const bool is_link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  try {
    return SystemFile::OpenExisting(path).Traits();
  } catch (const AutomationError& error) {
    // A link to nowhere is written through, which makes the file.
    if (is_link && error.run_time_error() == RunTimeError::kFileNotFound) return FileTraits{};
    throw;
  }
}

bool IsSameName(const std::string& a, const std::string& b) {
  return text::UpperCase(a) == text::UpperCase(b);
}

std::size_t NameStart(const std::string& path) { return path.find_last_of("/\\:") + 1; }

bool RenameOver(const std::string& from, const std::string& to) {
  if (Rename(from, to, MOVEFILE_REPLACE_EXISTING)) return true;
  if (!ForbidsTaking(GetLastError())) RaiseSystemError(to);
  return false;
}

bool RenameToFree(const std::string& from, const std::string& to) {
  if (Rename(from, to, 0)) return true;
  const DWORD error = GetLastError();
  if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) RaiseSystemError(from);
  return false;
}

Abandoned RemoveAbandoned(const std::string& path) {
  // Whoever made the file lets nobody open it for writing while it is in use.
  const ScopedFileHandle file(
      OpenName(FileCall::kOpen, path, GENERIC_WRITE | DELETE, 0, FILE_FLAG_OPEN_REPARSE_POINT));
  if (!file.IsOpen()) {
    return LeadsNowhere(GetLastError()) ? Abandoned::kNone : Abandoned::kStays;
  }
  FILE_DISPOSITION_INFO deleted = {TRUE};
  const bool is_removed =
      CanBeAbandoned(file.get()) && !IsRefused(FileCall::kRemove, path) &&
      SetFileInformationByHandle(file.get(), FileDispositionInfo, &deleted, sizeof deleted) != 0;
  return is_removed ? Abandoned::kRemoved : Abandoned::kStays;
}

std::vector<std::string> PathsThatBeginWith(const std::string& start) {
  std::vector<std::string> paths;
  if (IsRefused(FileCall::kAsk, FolderOf(start))) return paths;
  WIN32_FIND_DATAW found = {};
  const HANDLE search = FindFirstFileW((SystemPath(start) + L'*').c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return paths;
  const std::unique_ptr<void, CloseSearch> closes(search);
  const std::string folder = start.substr(0, NameStart(start));
  do {
    std::string path = folder + ToUtf8(found.cFileName);
    // The system also compares the short names that it gives to long ones.
    if (path.starts_with(start)) paths.push_back(std::move(path));
  } while (FindNextFileW(search, &found) != 0);
  return paths;
}

// Renaming has written the names through.
void FlushFolder(const std::string&) {}

}  // namespace quarvel::platform
