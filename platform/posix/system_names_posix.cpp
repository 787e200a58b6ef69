// Names and what stands under them on POSIX systems.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/posix/posix_calls.h"
#include "platform/system_file.h"
#include "platform/system_names.h"

namespace quarvel::platform {
namespace {

// As many as the system itself follows.
constexpr int kMostLinks = 40;

// A descriptor that is closed again; nothing more is wanted of it, so failures do not matter.
class ScopedDescriptor {
 public:
  explicit ScopedDescriptor(int descriptor) : descriptor_(descriptor) {}
  ~ScopedDescriptor() {
    if (descriptor_ != -1) close(descriptor_);
  }
  ScopedDescriptor(const ScopedDescriptor&) = delete;
  ScopedDescriptor& operator=(const ScopedDescriptor&) = delete;
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

NameKind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return NameKind::kFile;
  if (S_ISDIR(mode)) return NameKind::kFolder;
  return S_ISLNK(mode) ? NameKind::kLink : NameKind::kOther;
}

FileStamp StampOf(const struct stat& status) {
  return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size), TimeOf(status)};
}

// A file that was made here and abandoned: this user's, plain, without a second name.
bool CanBeAbandoned(const struct stat& status) {
  const uid_t user = geteuid();
  return S_ISREG(status.st_mode) && status.st_nlink == 1 && (status.st_uid == user || user == 0);
}

// True when the name still leads to the open file, which is locked: so it stays.
bool IsNameOf(const std::string& path, const struct stat& opened) {
  struct stat named = {};
  const auto ask = [&] { return lstat(path.c_str(), &named); };
  return MakeCall(FileCall::kAsk, path, ask) == 0 && named.st_dev == opened.st_dev &&
         named.st_ino == opened.st_ino;
}

// Errors that say: this name is not to be taken by renaming, though its file may be written.
bool ForbidsTaking(int code) {
  return code == EACCES || code == EPERM || code == EBUSY || code == EXDEV || code == ETXTBSY;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Links among what the system tells of processes lead to what a process has open, and not by a path.
bool IsOpenFile(const std::string& link) {
  struct statfs status = {};
  return statfs(FolderOf(link).c_str(), &status) == 0 && status.f_type == PROC_SUPER_MAGIC;
}

struct Followed {
  std::string name;
  bool is_open_file = false;
};

Followed Follow(const std::string& path) {
  std::string name = path;
  std::string target(PATH_MAX, '\0');
  for (int link = 0; link < kMostLinks; ++link) {
    const ssize_t size = MakeCall(
        FileCall::kAsk, name, [&] { return readlink(name.c_str(), target.data(), target.size()); });
    if (size == -1) {
      if (errno != EINVAL && errno != ENOENT && errno != ENOTDIR) RaiseSystemError(name);
      return {.name = name};
    }
    if (IsOpenFile(name)) return {.name = name, .is_open_file = true};
    const std::string next = target.substr(0, static_cast<std::size_t>(size));
    name = next.starts_with('/') ? next : FolderOf(name).append("/").append(next);
  }
  errno = ELOOP;
  RaiseSystemError(path);
}

// The way of file systems that cannot rename without replacing.
bool RenameAfterLook(const std::string& from, const std::string& to) {
  if (AskAboutName(to)) return false;
  if (rename(from.c_str(), to.c_str()) == -1) RaiseSystemError(from);
  return true;
}

}  // namespace

std::optional<NamedFile> AskAboutName(const std::string& path) {
  struct stat status = {};
  const auto ask = [&] { return lstat(path.c_str(), &status); };
  if (MakeCall(FileCall::kAsk, path, ask) == 0) {
    return NamedFile{KindOf(status.st_mode), StampOf(status)};
  }
  if (errno != ENOENT && errno != ENOTDIR) RaiseSystemError(path);
  return std::nullopt;
}

std::string FinalName(const std::string& path) { return Follow(path).name; }

bool IsNameOfOpenFile(const std::string& path) { return Follow(path).is_open_file; }

std::optional<FileTraits> AskForWriting(const std::string& path) {
  CheckFileName(path);
  struct stat status = {};
  const auto ask = [&] { return stat(path.c_str(), &status); };
  if (MakeCall(FileCall::kAsk, path, ask) == -1) {
    if (errno != ENOENT) RaiseSystemError(path);
    return std::nullopt;
  }
  // Opening a pipe waits for who reads it, and who reads it would see it closed again.
  if (!S_ISREG(status.st_mode) || IsNameOfOpenFile(path)) return FileTraits{};
  return SystemFile::OpenExisting(path).Traits();
}

bool IsSameName(const std::string& a, const std::string& b) { return a == b; }

std::size_t NameStart(const std::string& path) { return path.rfind('/') + 1; }

bool RenameOver(const std::string& from, const std::string& to) {
  if (!IsRefused(FileCall::kRename, from, to) && rename(from.c_str(), to.c_str()) == 0) return true;
  if (!ForbidsTaking(errno)) RaiseSystemError(to);
  return false;
}

bool RenameToFree(const std::string& from, const std::string& to) {
  if (IsRefused(FileCall::kRename, from, to)) RaiseSystemError(from);
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno == EEXIST) return false;
  if (errno != EINVAL && errno != ENOSYS) RaiseSystemError(from);
  return RenameAfterLook(from, to);
}

Abandoned RemoveAbandoned(const std::string& path) {
  constexpr int kLook = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
  const ScopedDescriptor file(
      MakeCall(FileCall::kOpen, path, [&] { return open(path.c_str(), kLook); }));
  if (file.get() == -1) return errno == ENOENT ? Abandoned::kNone : Abandoned::kStays;
  struct stat status = {};
  if (fstat(file.get(), &status) == -1 || !CanBeAbandoned(status)) return Abandoned::kStays;
  if (TryLock(file.get(), LOCK_EX, path) != LockAnswer::kTaken) return Abandoned::kStays;
  if (!IsNameOf(path, status)) return Abandoned::kNone;
  const auto remove = [&] { return unlink(path.c_str()); };
  return MakeCall(FileCall::kRemove, path, remove) == 0 ? Abandoned::kRemoved : Abandoned::kStays;
}

std::vector<std::string> PathsThatBeginWith(const std::string& start) {
  std::vector<std::string> paths;
  const std::string folder = FolderOf(start);
  if (IsRefused(FileCall::kAsk, folder)) return paths;
  const std::unique_ptr<DIR, CloseFolder> opened(opendir(folder.c_str()));
  if (!opened) return paths;
  const std::string_view first = std::string_view(start).substr(NameStart(start));
  while (const dirent* const entry = readdir(opened.get())) {
    const std::string_view name = entry->d_name;
    if (name.starts_with(first)) paths.push_back(start + std::string(name.substr(first.size())));
  }
  return paths;
}

void FlushFolder(const std::string& folder) {
  constexpr int kLook = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
  const ScopedDescriptor opened(
      MakeCall(FileCall::kOpen, folder, [&] { return open(folder.c_str(), kLook); }));
  // What may be written and not read cannot be flushed.
  if (opened.get() == -1) return;
  const auto flush = [&] { return fsync(opened.get()); };
  if (MakeCall(FileCall::kFlush, folder, flush) == 0) return;
  if (errno != EINVAL && errno != ENOTSUP && errno != EROFS) RaiseSystemError(folder);
}

}  // namespace quarvel::platform
