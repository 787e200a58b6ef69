// Open files on POSIX systems that have 64 bits wide file offsets.
#include <algorithm>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/posix/posix_calls.h"
#include "platform/system_file.h"
#include "platform/system_names.h"

namespace quarvel::platform {
namespace {

static_assert(sizeof(off_t) == 8);

// The system takes no more in one call than a signed 32-bit count.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30;
constexpr mode_t kReadableByAll = 0666;
constexpr mode_t kPrivate = 0600;
constexpr mode_t kAllModeBits = 07777;
constexpr const char* kAccessList = "system.posix_acl_access";

int ToDescriptor(std::intptr_t handle) { return static_cast<int>(handle); }

struct stat StatusOf(std::intptr_t handle, const std::string& path) {
  struct stat status = {};
  const auto ask = [&] { return fstat(ToDescriptor(handle), &status); };
  if (MakeCall(FileCall::kAsk, path, ask) == -1) RaiseSystemError(path);
  return status;
}

// A file that has just taken its name is in use for one more moment; so this is tried for a while.
void LockAgainstOthers(std::intptr_t handle, int lock, const std::string& path) {
  constexpr int kMostTries = 40;
  constexpr timespec kPause = {0, 5'000'000};
  for (int tries = 1; TryLock(ToDescriptor(handle), lock, path) == LockAnswer::kHeldByAnother;
       ++tries) {
    if (tries == kMostTries) {
      RaiseRunTimeError(RunTimeError::kPermissionDenied, kLockedByOthers);
    }
    nanosleep(&kPause, nullptr);
  }
}

// What only the file system itself or an administrator may give a file is not among them.
bool CanBeGiven(std::string_view attribute) {
  return attribute == kAccessList || attribute.starts_with("user.");
}

std::string AttributeNames(int descriptor) {
  std::string names;
  for (ssize_t size = flistxattr(descriptor, nullptr, 0); size > 0;) {
    names.resize(static_cast<std::size_t>(size));
    const ssize_t count = flistxattr(descriptor, names.data(), names.size());
    if (count >= 0) {
      names.resize(static_cast<std::size_t>(count));
      return names;
    }
    // More of them have come since their size was asked.
    size = errno == ERANGE ? flistxattr(descriptor, nullptr, 0) : 0;
  }
  return {};
}

void AddAttribute(int descriptor, const char* name, std::vector<FileTraits::Attribute>& all) {
  const ssize_t size = fgetxattr(descriptor, name, nullptr, 0);
  if (size < 0) return;
  std::string value(static_cast<std::size_t>(size), '\0');
  const ssize_t count = fgetxattr(descriptor, name, value.data(), value.size());
  if (count < 0) return;
  value.resize(static_cast<std::size_t>(count));
  all.push_back({name, std::move(value)});
}

std::vector<FileTraits::Attribute> AttributesOf(int descriptor) {
  std::vector<FileTraits::Attribute> attributes;
  const std::string names = AttributeNames(descriptor);
  for (std::size_t at = 0; at < names.size();) {
    const char* const name = names.c_str() + at;
    if (CanBeGiven(name)) AddAttribute(descriptor, name, attributes);
    at += std::string_view(name).size() + 1;
  }
  return attributes;
}

bool GiveAttributes(int descriptor, const FileTraits& like) {
  bool has_list = false;
  for (const auto& [name, value] : like.attributes) {
    has_list = has_list || name == kAccessList;
    if (fsetxattr(descriptor, name.c_str(), value.data(), value.size(), 0) == -1) return false;
  }
  // The folder may have given the new file a list that the other one does not have.
  return has_list || fremovexattr(descriptor, kAccessList) == 0 || errno == ENODATA ||
         errno == ENOTSUP;
}

// A file that this process has open is gone on with where it is; one of another process, at its end.
int GoOnWithOpenFile(const std::string& name) {
  const std::string number = name.substr(NameStart(name));
  if (!IsSameFile(FolderOf(name), "/proc/self/fd"))
    return OpenDescriptor(name, O_WRONLY | O_APPEND);
  int descriptor = -1;
  std::from_chars(number.data(), number.data() + number.size(), descriptor);
  const int own =
      MakeCall(FileCall::kOpen, name, [&] { return fcntl(descriptor, F_DUPFD_CLOEXEC, 0); });
  if (own == -1) RaiseSystemError(name);
  return own;
}

}  // namespace

int OpenDescriptor(const std::string& path, int flags) {
  CheckFileName(path);
  const auto kind = (flags & O_CREAT) != 0 ? FileCall::kCreate : FileCall::kOpen;
  const int descriptor = MakeCall(
      kind, path, [&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, kReadableByAll); });
  if (descriptor == -1) RaiseSystemError(path);
  return descriptor;
}

LockAnswer TryLock(int descriptor, int lock, const std::string& path) {
  const auto take = [&] { return flock(descriptor, lock | LOCK_NB); };
  if (MakeCall(FileCall::kLock, path, take) == 0) return LockAnswer::kTaken;
  return errno == EWOULDBLOCK ? LockAnswer::kHeldByAnother : LockAnswer::kNoLocks;
}

SystemFile SystemFile::OpenForReading(const std::string& path) {
  SystemFile file(path);
  file.handle_ = OpenDescriptor(path, O_RDONLY);
  // The system opens a folder without a word and fails only when it is read.
  if (S_ISDIR(StatusOf(file.handle_, path).st_mode)) {
    RaiseRunTimeError(RunTimeError::kPathFileAccessError);
  }
  // Part of one model and part of another would be read where somebody writes in place meanwhile.
  LockAgainstOthers(file.handle_, LOCK_SH, path);
  return file;
}

SystemFile SystemFile::OpenUndisturbed(const std::string& path) { return OpenForReading(path); }

SystemFile SystemFile::OpenForWriting(const std::string& path) {
  SystemFile file(path);
  file.handle_ = IsNameOfOpenFile(path) ? GoOnWithOpenFile(FinalName(path))
                                        : OpenDescriptor(path, O_WRONLY | O_CREAT | O_TRUNC);
  return file;
}

SystemFile SystemFile::OpenExisting(const std::string& path) {
  SystemFile file(path);
  file.handle_ = OpenDescriptor(path, O_WRONLY);
  return file;
}

SystemFile SystemFile::OpenInPlace(const std::string& path) {
  SystemFile file = OpenExisting(path);
  LockAgainstOthers(file.handle_, LOCK_EX, path);
  return file;
}

std::optional<SystemFile> SystemFile::CreateNew(const std::string& path, const FileTraits* like) {
  SystemFile file(path);
  const mode_t mode = like != nullptr ? kPrivate : kReadableByAll;
  file.handle_ = MakeCall(FileCall::kCreate, path, [&] {
    return open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY, mode);
  });
  if (!file.IsOpen()) {
    if (errno == EEXIST) return std::nullopt;
    RaiseSystemError(path);
  }
  // Before the lock stood, another process may have taken the file for abandoned.
  const int descriptor = ToDescriptor(file.handle_);
  if (TryLock(descriptor, LOCK_EX, path) == LockAnswer::kHeldByAnother) return std::nullopt;
  if (StatusOf(file.handle_, path).st_nlink == 0) return std::nullopt;
  return file;
}

std::uint64_t SystemFile::Size() const {
  const struct stat status = StatusOf(handle_, path_);
  return S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::size_t SystemFile::Read(char* buffer, std::size_t capacity) {
  std::size_t wanted = std::min(capacity, kLargestTransfer);
  if (IsTransferRefused(FileCall::kRead, path_, wanted)) RaiseSystemError(path_);
  const ssize_t count =
      RetryUntilStopped([&] { return read(ToDescriptor(handle_), buffer, wanted); });
  if (count == -1) RaiseSystemError(path_);
  return static_cast<std::size_t>(count);
}

void SystemFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    std::size_t wanted = std::min(bytes.size(), kLargestTransfer);
    if (IsTransferRefused(FileCall::kWrite, path_, wanted)) RaiseSystemError(path_);
    const ssize_t count =
        CallThatGrows([&] { return write(ToDescriptor(handle_), bytes.data(), wanted); });
    if (count == -1) RaiseSystemError(path_);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void SystemFile::MoveTo(std::uint64_t position) {
  if (lseek(ToDescriptor(handle_), static_cast<off_t>(position), SEEK_SET) == -1) {
    RaiseSystemError(path_);
  }
}

SystemFile SystemFile::Duplicate() const {
  SystemFile file(path_);
  file.handle_ = MakeCall(FileCall::kOpen, path_,
                          [&] { return fcntl(ToDescriptor(handle_), F_DUPFD_CLOEXEC, 0); });
  if (!file.IsOpen()) RaiseSystemError(path_);
  return file;
}

void SystemFile::Reserve(std::uint64_t size) {
  if (size == 0) return;
  const auto length = static_cast<off_t>(size);
  const auto reserve = [&] {
    return fallocate(ToDescriptor(handle_), FALLOC_FL_KEEP_SIZE, 0, length);
  };
  if (!IsRefused(FileCall::kResize, path_) && CallThatGrows(reserve) == 0) return;
  if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG) RaiseSystemError(path_);
}

void SystemFile::CutOff(std::uint64_t size) {
  const auto length = static_cast<off_t>(size);
  const auto cut = [&] { return ftruncate(ToDescriptor(handle_), length); };
  if (MakeCall(FileCall::kResize, path_, cut) == -1) RaiseSystemError(path_);
}

void SystemFile::FlushToDisk() {
  const auto flush = [&] { return fsync(ToDescriptor(handle_)); };
  if (MakeCall(FileCall::kFlush, path_, flush) == 0) return;
  // A pipe, a terminal, some network file systems.
  if (errno != EINVAL && errno != ENOTSUP && errno != EROFS) RaiseSystemError(path_);
}

void SystemFile::Close() {
  if (!IsOpen()) return;
  // Interrupted or not, the descriptor is gone afterwards, so this call is never repeated.
  const int result = close(ToDescriptor(std::exchange(handle_, kClosed)));
  if (result == -1 && errno != EINTR) RaiseSystemError(path_);
  if (IsRefused(FileCall::kClose, path_)) RaiseSystemError(path_);
}

FileTraits SystemFile::Traits() const {
  const struct stat status = StatusOf(handle_, path_);
  return {.is_plain = S_ISREG(status.st_mode),
          .links = status.st_nlink,
          .mode = status.st_mode & kAllModeBits,
          .time = TimeOf(status),
          .owner = status.st_uid,
          .group = status.st_gid,
          .attributes = AttributesOf(ToDescriptor(handle_))};
}

bool SystemFile::TakeTraits(const FileTraits& like) {
  const int descriptor = ToDescriptor(handle_);
  const struct stat own = StatusOf(handle_, path_);
  if (IsRefused(FileCall::kSetTraits, path_)) return false;
  // In this order: who may read it becomes known before anybody else can.
  if ((own.st_uid != like.owner || own.st_gid != like.group) &&
      fchown(descriptor, like.owner, like.group) == -1) {
    return false;
  }
  if (!GiveAttributes(descriptor, like)) return false;
  // A file system without rights of its own does not let them be set, even to what they are.
  return (own.st_mode & kAllModeBits) == like.mode || fchmod(descriptor, like.mode) == 0;
}

bool SystemFile::SetTime(std::int64_t time) {
  const timespec contents = {.tv_sec = time / kTicksOfSecond,
                             .tv_nsec = time % kTicksOfSecond * kNanosecondsOfTick};
  const timespec times[] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, contents};
  const auto set = [&] { return futimens(ToDescriptor(handle_), times); };
  return MakeCall(FileCall::kSetTraits, path_, set) == 0;
}

void SystemFile::RemoveName() {
  const auto remove = [&] { return unlink(path_.c_str()); };
  if (MakeCall(FileCall::kRemove, path_, remove) == -1) RaiseSystemError(path_);
}

}  // namespace quarvel::platform
