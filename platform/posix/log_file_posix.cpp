#include <cerrno>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/log_file.h"
#include "platform/posix/posix_calls.h"
#include "platform/system_file.h"

namespace quarvel::platform {
namespace {

constexpr mode_t kUserOnly = S_IRUSR | S_IWUSR;
constexpr mode_t kGroup = S_IRGRP | S_IWGRP;
constexpr mode_t kOthers = S_IROTH | S_IWOTH;
constexpr mode_t kAll = S_IRWXU | S_IRWXG | S_IRWXO;

[[noreturn]] void Refuse(std::string_view why) {
  throw AutomationError(static_cast<std::int32_t>(RunTimeError::kPathFileAccessError), "",
                        std::string(why));
}

// An open log, as long as it is not handed on.
class OpenFile {
 public:
  // Does not wait for a reader when the name is that of a pipe.
  OpenFile(const std::string& path, int flags, mode_t mode)
      : descriptor_(RetryInterrupted([&] {
          return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | O_NONBLOCK, mode);
        })) {
    if (descriptor_ != -1) return;
    if (errno == ELOOP || errno == ENXIO || errno == EISDIR) Refuse(kNoPlainFile);
    RaiseSystemError(path);
  }
  ~OpenFile() {
    if (descriptor_ != -1) close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int descriptor() const { return descriptor_; }
  struct stat Status() const {
    struct stat status = {};
    if (fstat(descriptor_, &status) == -1) RaiseSystemError({});
    return status;
  }
  SystemFile Release() { return SystemFile::Own(std::exchange(descriptor_, -1)); }

 private:
  int descriptor_;
};

struct stat StatusOfModel(const std::string& model) {
  struct stat status = {};
  if (!model.empty() && stat(model.c_str(), &status) == 0) return status;
  return {};
}

// What others may do with a log of that group: nothing that they may not do with the model.
mode_t AllowedMode(const struct stat& model, gid_t group) {
  const mode_t others = model.st_mode & (model.st_mode >> 3) & kOthers;
  const mode_t its_group = model.st_gid == group ? model.st_mode & kGroup : others << 3;
  return kUserOnly | its_group | others;
}

bool BeginsWith(int descriptor, std::string_view start) {
  if (start.empty()) return true;
  std::string found(start.size(), '\0');
  const ssize_t count = pread(descriptor, found.data(), found.size(), 0);
  return count == static_cast<ssize_t>(start.size()) && found == start;
}

bool IsUsersAlone(const struct stat& status) {
  return status.st_nlink == 1 && status.st_uid == geteuid();
}

// Emptied only after others have lost the right to read it.
SystemFile Emptied(OpenFile& file, const struct stat& model) {
  const struct stat status = file.Status();
  const mode_t mode = status.st_mode & kAll;
  const mode_t allowed = mode & AllowedMode(model, status.st_gid);
  const int descriptor = file.descriptor();
  const auto restrict = [&] { return fchmod(descriptor, allowed); };
  if (mode != allowed && RetryInterrupted(restrict) == -1) RaiseSystemError({});
  if (RetryInterrupted([&] { return ftruncate(descriptor, 0); }) == -1) RaiseSystemError({});
  return file.Release();
}

}  // namespace

OutputFile OpenLog(const LogPlace& place) {
  CheckFileName(place.path);
  const struct stat model = StatusOfModel(place.model);
  const mode_t mode = AllowedMode(model, model.st_gid);
  const int access = place.replaces.empty() ? O_WRONLY : O_RDWR;
  {
    OpenFile file(place.path, access | O_CREAT, mode);
    const struct stat status = file.Status();
    if (!S_ISREG(status.st_mode)) Refuse(kNoPlainFile);
    if (status.st_size > 0 && !BeginsWith(file.descriptor(), place.replaces)) Refuse(kNoLog);
    if (IsUsersAlone(status)) return OutputFile(Emptied(file, model));
  }
  RemoveFile(place.path);
  OpenFile file(place.path, O_WRONLY | O_CREAT | O_EXCL, mode);
  return OutputFile(Emptied(file, model));
}

}  // namespace quarvel::platform
