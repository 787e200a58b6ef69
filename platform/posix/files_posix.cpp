// Names of files and folders on POSIX systems.
#include <cerrno>
#include <cstdlib>
#include <string>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/posix/posix_calls.h"
#include "platform/system_file.h"

namespace quarvel::platform {
namespace {

using enum RunTimeError;

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

void RaiseSystemError(const std::string& path) {
  if (errno == EFBIG) RaiseRunTimeError(kDiskFull, kTooLarge);
  RaiseRunTimeError(ErrorOf(errno, path));
}

void SetSystemError(FileFault fault) {
  switch (fault) {
    case FileFault::kDiskFull:
      errno = ENOSPC;
      return;
    case FileFault::kNotPermitted:
      errno = EACCES;
      return;
    default:
      errno = EIO;
  }
}

std::optional<SystemFileInfo> AskSystemAbout(const std::string& path) {
  struct stat status = {};
  if (path.find('\0') != std::string::npos) return std::nullopt;
  const auto ask = [&] { return stat(path.c_str(), &status); };
  if (MakeCall(FileCall::kAsk, path, ask) == -1) return std::nullopt;
  const bool has_size = S_ISREG(status.st_mode);
  return SystemFileInfo{S_ISDIR(status.st_mode) != 0,
                        has_size ? static_cast<std::uint64_t>(status.st_size) : 0};
}

void RemoveFile(const std::string& path) {
  CheckFileName(path);
  const auto remove = [&] { return unlink(path.c_str()); };
  if (MakeCall(FileCall::kRemove, path, remove) == -1) RaiseSystemError(path);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  struct stat first = {};
  struct stat second = {};
  if (a.find('\0') != std::string::npos || b.find('\0') != std::string::npos) return false;
  if (MakeCall(FileCall::kAsk, a, [&] { return stat(a.c_str(), &first); }) == -1) return false;
  if (MakeCall(FileCall::kAsk, b, [&] { return stat(b.c_str(), &second); }) == -1) return false;
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
