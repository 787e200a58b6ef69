// How the files of this folder call the system.
#pragma once

#include <cerrno>
#include <string>

#include "platform/file_watch.h"

namespace quarvel::platform {

template <typename Call>
auto RetryInterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

// Makes the call unless a watch refuses it; -1 is a failure, as the system's calls have it.
template <typename Call>
auto MakeCall(FileCall kind, const std::string& path, Call call) {
  return IsRefused(kind, path) ? decltype(call()){-1} : RetryInterrupted(call);
}

// Opens a file, which programs that are started do not inherit; raises when it cannot.
int OpenDescriptor(const std::string& path, int flags);

// Takes the lock, LOCK_SH or LOCK_EX, without waiting.
enum class LockAnswer { kTaken, kHeldByAnother, kNoLocks };
LockAnswer TryLock(int descriptor, int lock, const std::string& path);

}  // namespace quarvel::platform
