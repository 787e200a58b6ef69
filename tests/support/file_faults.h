// Faults in the calls that files make to the system: one of them fails, is cut short, or is the
// last that the process makes.
#pragma once

#include <cstddef>
#include <string>

#include "platform/file_watch.h"

namespace quarvel {

enum class FaultKind {
  kNone,          // the calls are only counted
  kDeviceError,   // the call fails, and no other
  kDiskFull,      // so do, from the call on, all that take room on the disk
  kNotPermitted,  // the call fails, and no other
  kCutShort,      // the call transfers half of what it was asked to, where it transfers bytes
  kEnds,          // the process ends before the call
  kEndsInside,    // the same, but half of the bytes are transferred, where it transfers some
};

// Stands between the files and the system while it lives. After the end of the process, calls fail
// and change nothing.
class FileFaults : public platform::FileWatch {
 public:
  // `at` is the number of the call, from 1.
  FileFaults(FaultKind kind, int at);
  ~FileFaults() override;
  FileFaults(const FileFaults&) = delete;
  FileFaults& operator=(const FileFaults&) = delete;

  int calls() const { return calls_; }
  // False when there were too few calls.
  bool happened() const { return calls_ >= at_; }
  bool ended() const;

  platform::FileFault Before(platform::FileCall call, const std::string& path,
                             const std::string& to, std::size_t& size) override;

 private:
  platform::FileFault AtTheCall(std::size_t& size) const;
  platform::FileFault AfterIt(platform::FileCall call) const;

  FaultKind kind_;
  int at_;
  int calls_ = 0;
  platform::FileWatch* const before_;
};

}  // namespace quarvel
