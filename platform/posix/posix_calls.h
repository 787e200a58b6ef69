// How the files of this folder call the system.
#pragma once

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <string>

#include <sys/stat.h>

#include "platform/file_watch.h"
#include "platform/wait_end.h"

namespace quarvel::platform {

template <typename Call>
auto RetryInterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

// For calls that may wait at a pipe.
template <typename Call>
auto RetryUntilStopped(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR && (is_wait_over == nullptr || !is_wait_over())) {
    result = call();
  }
  return result;
}

inline constexpr std::int64_t kTicksOfSecond = 10'000'000;  // of a FileStamp
inline constexpr std::int64_t kNanosecondsOfTick = 100;

// When its contents were written last.
inline std::int64_t TimeOf(const struct stat& status) {
  return status.st_mtim.tv_sec * kTicksOfSecond + status.st_mtim.tv_nsec / kNanosecondsOfTick;
}

// Makes a call that lets a file grow. Over the limit that a process may have for that, it fails; the signal
// that comes with that, and ends a process that knows nothing of it, is held back from this thread and
// dropped.
template <typename Call>
auto CallThatGrows(Call call) {
  sigset_t signal;
  sigset_t before;
  sigemptyset(&signal);
  sigaddset(&signal, SIGXFSZ);
  pthread_sigmask(SIG_BLOCK, &signal, &before);
  const auto result = RetryInterrupted(call);
  const int code = errno;
  if (result == -1 && code == EFBIG) {
    constexpr timespec kNoWait = {};
    sigtimedwait(&signal, nullptr, &kNoWait);
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = code;
  return result;
}

// Makes the call unless a watch refuses it; -1 is a failure, as the system's calls have it.
template <typename Call>
auto MakeCall(FileCall kind, const std::string& path, Call call) {
  if (IsRefused(kind, path)) return decltype(call()){-1};
  // Opening a pipe waits for its other end.
  const bool may_wait = kind == FileCall::kOpen || kind == FileCall::kCreate;
  return may_wait ? RetryUntilStopped(call) : RetryInterrupted(call);
}

// Opens a file, which programs that are started do not inherit; raises when it cannot.
int OpenDescriptor(const std::string& path, int flags);

// Takes the lock, LOCK_SH or LOCK_EX, without waiting.
enum class LockAnswer { kTaken, kHeldByAnother, kNoLocks };
LockAnswer TryLock(int descriptor, int lock, const std::string& path);

}  // namespace quarvel::platform
