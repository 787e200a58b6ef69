// Holds off other saves of the same file between the look whether it is still what was read, and its
// replacement: of two that both would replace what they have read, the second one finds the contents
// of the first.
//
// It stands in the way of those that take it too, and of nobody who reads or writes the file. Not
// held, without a word, where the system or the file system has no such locks, and where there is no
// file or it may not be opened for writing.
#pragma once

#include <cstdint>
#include <string>

#include "platform/system_names.h"

namespace quarvel::platform {

// Goes with the object, also when the process ends. Belongs to the thread that made it.
class SaveLock {
 public:
  // Of the file at `path`, no link, which has that stamp as far as is known. Raises 70 when others hold it
  // for more than a few seconds.
  SaveLock(const std::string& path, const FileStamp& stamp);
  ~SaveLock();
  SaveLock(const SaveLock&) = delete;
  SaveLock& operator=(const SaveLock&) = delete;

 private:
  static constexpr std::intptr_t kNone = -1;
  static constexpr int kLongestWait = 3000;  // milliseconds

  // A file descriptor, or a Windows handle.
  std::intptr_t handle_ = kNone;
};

}  // namespace quarvel::platform
