// The seam where a test stands between the files of this room and the system: each call is told
// before it is made, and may be refused or cut short. Without a watch nothing is different.
#pragma once

#include <cstddef>
#include <string>

namespace quarvel::platform {

enum class FileCall {
  kAsk,        // about a name or an open file
  kOpen,       // what exists
  kCreate,     // or empty, where it exists
  kRead,       // bytes
  kWrite,      // bytes
  kResize,     // also reserving room
  kLock,       // against others
  kSetTraits,  // owner, rights
  kFlush,      // a file or a folder to the disk
  kRename,
  kRemove,
  kClose,  // is made in any case, as the system does it for who ended
};

// What the system says instead of making the call.
enum class FileFault { kNone, kDeviceError, kDiskFull, kNotPermitted };

class FileWatch {
 public:
  virtual ~FileWatch() = default;
  // Before a call on the file of that path; `to` is the new name in a renaming, else empty. `size`
  // is the number of bytes to transfer, which may be lowered to any number but 0. Throws nothing.
  virtual FileFault Before(FileCall call, const std::string& path, const std::string& to,
                           std::size_t& size) = 0;
};

// Has `watch` told of all calls from now on (nullptr: nobody), and gives who was told before. For
// one thread; it must outlive its time as the watch.
FileWatch* SetFileWatch(FileWatch* watch);

// True when the call is not to be made; the system's last error is set as if it had failed.
bool IsRefused(FileCall call, const std::string& path, const std::string& to = {});
// The same for a transfer of `size` bytes, which is lowered to what may be transferred.
bool IsTransferRefused(FileCall call, const std::string& path, std::size_t& size);

// Sets the system's last error to what stands for that fault. For IsRefused alone.
void SetSystemError(FileFault fault);

}  // namespace quarvel::platform
