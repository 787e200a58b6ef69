// Open files on Windows.
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "platform/automation_error.h"
#include "platform/file_watch.h"
#include "platform/system_file.h"
#include "platform/win32/system_path.h"

namespace quarvel::platform {
namespace {

constexpr std::size_t kLargestTransfer = std::size_t{1} << 30;
// Attributes that a new file can be given as it is created.
constexpr DWORD kGivenAttributes = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_ENCRYPTED |
                                   FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED |
                                   FILE_ATTRIBUTE_SYSTEM;

// A file that has just taken its name is in use for one more moment; so this is tried for a while.
HANDLE OpenExistingName(const std::wstring& name, DWORD access, DWORD share) {
  constexpr int kMostTries = 40;
  constexpr DWORD kPause = 5;  // milliseconds
  for (int tries = 1;; ++tries) {
    const HANDLE handle = CreateFileW(name.c_str(), access, share, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool is_in_use =
        handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_SHARING_VIOLATION;
    if (!is_in_use || tries == kMostTries) return handle;
    Sleep(kPause);
  }
}

std::intptr_t OpenWhatIsThere(const std::string& path, DWORD access, DWORD share) {
  CheckFileName(path);
  const std::wstring name = SystemPath(path);
  const HANDLE handle = IsRefused(FileCall::kOpen, path) ? INVALID_HANDLE_VALUE
                                                         : OpenExistingName(name, access, share);
  if (handle == INVALID_HANDLE_VALUE) RaiseSystemError(path);
  return reinterpret_cast<std::intptr_t>(handle);
}

std::intptr_t OpenEmptied(const std::string& path) {
  CheckFileName(path);
  const std::wstring name = SystemPath(path);
  const HANDLE handle = IsRefused(FileCall::kCreate, path)
                            ? INVALID_HANDLE_VALUE
                            : CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                          CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) RaiseSystemError(path);
  return reinterpret_cast<std::intptr_t>(handle);
}

// Who may do what with the file, as the system keeps it; empty where it keeps nothing.
std::string DescriptorOf(HANDLE file) {
  constexpr SECURITY_INFORMATION kWanted = DACL_SECURITY_INFORMATION;
  DWORD size = 0;
  GetKernelObjectSecurity(file, kWanted, nullptr, 0, &size);
  std::string descriptor(size, '\0');
  if (size == 0 || GetKernelObjectSecurity(file, kWanted, descriptor.data(), size, &size) == 0) {
    return {};
  }
  return descriptor;
}

// A name that is about to go refuses to be opened, as a folder does that takes no new file.
bool IsTaken(const std::wstring& name, DWORD error) {
  if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) return true;
  if (error != ERROR_ACCESS_DENIED) return false;
  const bool is_there =
      GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES || GetLastError() == error;
  SetLastError(error);
  return is_there;
}

}  // namespace

SystemFile SystemFile::OpenForReading(const std::string& path) {
  SystemFile file(path);
  file.handle_ = OpenWhatIsThere(path, GENERIC_READ, kShareAll);
  return file;
}

SystemFile SystemFile::OpenUndisturbed(const std::string& path) {
  SystemFile file(path);
  file.handle_ = OpenWhatIsThere(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
  return file;
}

SystemFile SystemFile::OpenForWriting(const std::string& path) {
  SystemFile file(path);
  file.handle_ = OpenEmptied(path);
  return file;
}

SystemFile SystemFile::OpenExisting(const std::string& path) {
  SystemFile file(path);
  file.handle_ = OpenWhatIsThere(path, GENERIC_WRITE, FILE_SHARE_READ);
  return file;
}

SystemFile SystemFile::OpenInPlace(const std::string& path) { return OpenExisting(path); }

std::optional<SystemFile> SystemFile::CreateNew(const std::string& path, const FileTraits* like) {
  SystemFile file(path);
  const std::wstring name = SystemPath(path);
  SECURITY_ATTRIBUTES security = {sizeof security, nullptr, FALSE};
  std::string descriptor;
  if (like != nullptr && !like->attributes.empty()) descriptor = like->attributes.front().value;
  if (!descriptor.empty()) security.lpSecurityDescriptor = descriptor.data();
  const DWORD attributes = like != nullptr ? like->mode & kGivenAttributes : 0;
  // Whoever renames it only needs to be let delete; nobody is let read or write.
  const HANDLE handle =
      IsRefused(FileCall::kCreate, path)
          ? INVALID_HANDLE_VALUE
          : CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_DELETE,
                        &security, CREATE_NEW, attributes | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    if (IsTaken(name, GetLastError())) return std::nullopt;
    RaiseSystemError(path);
  }
  file.handle_ = reinterpret_cast<std::intptr_t>(handle);
  return file;
}

std::uint64_t SystemFile::Size() const {
  if (IsRefused(FileCall::kAsk, path_)) RaiseSystemError(path_);
  if (GetFileType(ToHandle(handle_)) != FILE_TYPE_DISK) return 0;
  LARGE_INTEGER size = {};
  if (GetFileSizeEx(ToHandle(handle_), &size) == 0) RaiseSystemError(path_);
  return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t SystemFile::Read(char* buffer, std::size_t capacity) {
  std::size_t wanted = std::min(capacity, kLargestTransfer);
  if (IsTransferRefused(FileCall::kRead, path_, wanted)) RaiseSystemError(path_);
  DWORD count = 0;
  if (ReadFile(ToHandle(handle_), buffer, static_cast<DWORD>(wanted), &count, nullptr) == 0) {
    // The writer's end of a pipe went away: that is its end of file.
    if (GetLastError() == ERROR_BROKEN_PIPE) return 0;
    RaiseSystemError(path_);
  }
  return count;
}

void SystemFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    std::size_t wanted = std::min(bytes.size(), kLargestTransfer);
    if (IsTransferRefused(FileCall::kWrite, path_, wanted)) RaiseSystemError(path_);
    DWORD count = 0;
    if (WriteFile(ToHandle(handle_), bytes.data(), static_cast<DWORD>(wanted), &count, nullptr) ==
        0) {
      RaiseSystemError(path_);
    }
    bytes.remove_prefix(count);
  }
}

void SystemFile::MoveTo(std::uint64_t position) {
  LARGE_INTEGER distance = {};
  distance.QuadPart = static_cast<LONGLONG>(position);
  if (SetFilePointerEx(ToHandle(handle_), distance, nullptr, FILE_BEGIN) == 0) {
    RaiseSystemError(path_);
  }
}

// A claim beyond the file's end needs rights that users do not have.
SystemFile SystemFile::Duplicate() const {
  SystemFile file(path_);
  const HANDLE process = GetCurrentProcess();
  HANDLE copy = nullptr;
  if (IsRefused(FileCall::kOpen, path_) ||
      DuplicateHandle(process, ToHandle(handle_), process, &copy, 0, FALSE,
                      DUPLICATE_SAME_ACCESS) == 0) {
    RaiseSystemError(path_);
  }
  file.handle_ = reinterpret_cast<std::intptr_t>(copy);
  return file;
}

void SystemFile::Reserve(std::uint64_t) {}

void SystemFile::CutOff(std::uint64_t size) {
  if (IsRefused(FileCall::kResize, path_)) RaiseSystemError(path_);
  MoveTo(size);
  if (SetEndOfFile(ToHandle(handle_)) == 0) RaiseSystemError(path_);
}

void SystemFile::FlushToDisk() {
  // Pipes and consoles have no disk; flushing a pipe would wait for who reads it.
  if (GetFileType(ToHandle(handle_)) != FILE_TYPE_DISK) return;
  if (IsRefused(FileCall::kFlush, path_)) RaiseSystemError(path_);
  if (FlushFileBuffers(ToHandle(handle_)) != 0) return;
  const DWORD error = GetLastError();
  if (error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED) RaiseSystemError(path_);
}

void SystemFile::Close() {
  if (!IsOpen()) return;
  if (CloseHandle(ToHandle(std::exchange(handle_, kClosed))) == 0) RaiseSystemError(path_);
  if (IsRefused(FileCall::kClose, path_)) RaiseSystemError(path_);
}

FileTraits SystemFile::Traits() const {
  if (GetFileType(ToHandle(handle_)) != FILE_TYPE_DISK) return {};
  BY_HANDLE_FILE_INFORMATION info = {};
  if (IsRefused(FileCall::kAsk, path_) ||
      GetFileInformationByHandle(ToHandle(handle_), &info) == 0) {
    RaiseSystemError(path_);
  }
  FileTraits traits;
  traits.is_plain = true;
  traits.links = info.nNumberOfLinks;
  traits.mode = info.dwFileAttributes;
  traits.time = TimeOf(info);
  traits.attributes.push_back({{}, DescriptorOf(ToHandle(handle_))});
  return traits;
}

// It has had them since CreateNew.
bool SystemFile::TakeTraits(const FileTraits&) { return !IsRefused(FileCall::kSetTraits, path_); }

bool SystemFile::SetTime(std::int64_t time) {
  const auto ticks = static_cast<std::uint64_t>(time);
  const FILETIME contents = {.dwLowDateTime = static_cast<DWORD>(ticks),
                             .dwHighDateTime = static_cast<DWORD>(ticks >> 32)};
  return !IsRefused(FileCall::kSetTraits, path_) &&
         SetFileTime(ToHandle(handle_), nullptr, nullptr, &contents) != 0;
}

void SystemFile::RemoveName() {
  FILE_DISPOSITION_INFO deleted = {TRUE};
  if (IsRefused(FileCall::kRemove, path_) ||
      SetFileInformationByHandle(ToHandle(handle_), FileDispositionInfo, &deleted,
                                 sizeof deleted) == 0) {
    RaiseSystemError(path_);
  }
}

}  // namespace quarvel::platform
