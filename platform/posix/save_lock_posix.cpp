// Locks of open files, which one process can hold against itself too and which do not meet those
// that keep readers away from a file that is written in place.
#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/posix/posix_calls.h"
#include "platform/save_lock.h"
#include "platform/system_file.h"

namespace quarvel::platform {
namespace {

LockAnswer TryWholeFile(int descriptor, const std::string& path) {
  struct flock whole = {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  const auto take = [&] { return fcntl(descriptor, F_OFD_SETLK, &whole); };
  if (MakeCall(FileCall::kLock, path, take) != -1) return LockAnswer::kTaken;
  return errno == EAGAIN || errno == EACCES ? LockAnswer::kHeldByAnother : LockAnswer::kNoLocks;
}

}  // namespace

SaveLock::SaveLock(const std::string& path, const FileStamp&) {
  constexpr int kLook = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
  constexpr int kStep = 5;  // milliseconds
  constexpr timespec kPause = {0, kStep * 1'000'000L};
  const int descriptor = MakeCall(FileCall::kOpen, path, [&] { return open(path.c_str(), kLook); });
  if (descriptor == -1) return;
  int waited = 0;
  while (TryWholeFile(descriptor, path) == LockAnswer::kHeldByAnother) {
    if (waited >= kLongestWait) {
      close(descriptor);
      RaiseRunTimeError(RunTimeError::kPermissionDenied, kLockedByOthers);
    }
    nanosleep(&kPause, nullptr);
    waited += kStep;
  }
  handle_ = descriptor;
}

SaveLock::~SaveLock() {
  if (handle_ != kNone) close(static_cast<int>(handle_));
}

}  // namespace quarvel::platform
