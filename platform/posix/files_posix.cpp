// Files on POSIX systems that have 64 bits wide file offsets.
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <utility>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/system_file.h"

namespace quarvel::platform {
namespace {

static_assert(sizeof(off_t) == 8);

using enum RunTimeError;

// The system takes no more in one call than a signed 32-bit count.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30;

template <typename Call>
auto RetryInterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

bool IsFolder(const std::string& path) {
  const auto info = AskSystemAbout(path);
  return info && info->is_folder;
}

RunTimeError ErrorOf(int code, const std::string& path) {
  switch (code) {
    case ENOENT:
      return IsFolder(FolderOf(path)) ? kFileNotFound : kPathNotFound;
    case ENOTDIR:
      return kPathNotFound;
    case EACCES:
    case EPERM:
      return IsFolder(path) ? kPathFileAccessError : kPermissionDenied;
    case EROFS:
    case ETXTBSY:
      return kPermissionDenied;
    case EISDIR:
    case EEXIST:
    case ENAMETOOLONG:
    case ELOOP:
      return kPathFileAccessError;
    case ENOSPC:
    case EDQUOT:
      return kDiskFull;
    case EMFILE:
    case ENFILE:
      return kTooManyFiles;
    case ENOMEM:
      return kOutOfMemory;
    default:
      return kDeviceIoError;
  }
}

int Open(const std::string& path, int flags) {
  CheckFileName(path);
  constexpr mode_t kReadableByAll = 0666;
  const int descriptor = RetryInterrupted(
      [&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, kReadableByAll); });
  if (descriptor == -1) RaiseSystemError(path);
  return descriptor;
}

struct stat StatusOf(std::intptr_t handle) {
  struct stat status = {};
  if (fstat(static_cast<int>(handle), &status) == -1) RaiseSystemError({});
  return status;
}

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
  const passwd* user = getpwuid(getuid());
  if (user == nullptr || user->pw_dir == nullptr) RaiseRunTimeError(kPathNotFound);
  return user->pw_dir;
}

void CreateFolders(const std::string& path) {
  if (IsFolder(path)) return;
  if (const std::string parent = FolderOf(path); parent != path) CreateFolders(parent);
  constexpr mode_t kPrivate = 0700;
  if (mkdir(path.c_str(), kPrivate) == 0) return;
  const int code = errno;
  if (IsFolder(path)) return;
  errno = code;
  RaiseSystemError(path);
}

}  // namespace

void RaiseSystemError(const std::string& path) { RaiseRunTimeError(ErrorOf(errno, path)); }

std::optional<SystemFileInfo> AskSystemAbout(const std::string& path) {
  struct stat status = {};
  if (path.find('\0') != std::string::npos || stat(path.c_str(), &status) == -1) {
    return std::nullopt;
  }
  const bool has_size = S_ISREG(status.st_mode);
  return SystemFileInfo{S_ISDIR(status.st_mode) != 0,
                        has_size ? static_cast<std::uint64_t>(status.st_size) : 0};
}

SystemFile SystemFile::OpenForReading(const std::string& path) {
  SystemFile file(Open(path, O_RDONLY));
  // The system opens a folder without a word and fails only when it is read.
  if (S_ISDIR(StatusOf(file.handle_).st_mode)) RaiseRunTimeError(kPathFileAccessError);
  return file;
}

SystemFile SystemFile::OpenForWriting(const std::string& path) {
  return SystemFile(Open(path, O_WRONLY | O_CREAT | O_TRUNC));
}

std::uint64_t SystemFile::Size() const {
  const struct stat status = StatusOf(handle_);
  return S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::size_t SystemFile::Read(char* buffer, std::size_t capacity) {
  const std::size_t wanted = std::min(capacity, kLargestTransfer);
  const ssize_t count =
      RetryInterrupted([&] { return read(static_cast<int>(handle_), buffer, wanted); });
  if (count == -1) RaiseSystemError({});
  return static_cast<std::size_t>(count);
}

void SystemFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t wanted = std::min(bytes.size(), kLargestTransfer);
    const ssize_t count =
        RetryInterrupted([&] { return write(static_cast<int>(handle_), bytes.data(), wanted); });
    if (count == -1) RaiseSystemError({});
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void SystemFile::Close() {
  if (!IsOpen()) return;
  // Interrupted or not, the descriptor is gone afterwards, so this call is never repeated.
  const int result = close(static_cast<int>(std::exchange(handle_, kClosed)));
  if (result == -1 && errno != EINTR) RaiseSystemError({});
}

void RemoveFile(const std::string& path) {
  CheckFileName(path);
  if (unlink(path.c_str()) == -1) RaiseSystemError(path);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  struct stat first = {};
  struct stat second = {};
  if (a.find('\0') != std::string::npos || b.find('\0') != std::string::npos) return false;
  if (stat(a.c_str(), &first) == -1 || stat(b.c_str(), &second) == -1) return false;
  return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::string FolderOf(const std::string& path) {
  const std::size_t last = path.find_last_not_of('/');
  if (last == std::string::npos) return path.empty() ? "." : "/";
  const std::size_t slash = path.rfind('/', last);
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string ComponentFolder() {
  const char* const link = "/proc/self/exe";
  std::string target(256, '\0');
  for (;;) {
    const ssize_t count = readlink(link, target.data(), target.size());
    if (count == -1) RaiseSystemError(link);
    if (static_cast<std::size_t>(count) < target.size()) {
      target.resize(static_cast<std::size_t>(count));
      return FolderOf(target);
    }
    target.resize(target.size() * 2);
  }
}

std::string StateFolder() {
  // A relative folder in the variable does not count: it would move with the current folder.
  const char* const state = std::getenv("XDG_STATE_HOME");
  const std::string base =
      state != nullptr && *state == '/' ? std::string(state) : HomeFolder() + "/.local/state";
  std::string folder = base + "/quarvel";
  CreateFolders(folder);
  return folder;
}

}  // namespace quarvel::platform
