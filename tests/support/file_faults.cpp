#include "tests/support/file_faults.h"

namespace quarvel {
namespace {

using platform::FileCall;
using platform::FileFault;

bool TakesRoom(FileCall call) {
  return call == FileCall::kCreate || call == FileCall::kWrite || call == FileCall::kResize ||
         call == FileCall::kFlush;
}

std::size_t HalfOf(std::size_t size) { return (size + 1) / 2; }

}  // namespace

FileFaults::FileFaults(FaultKind kind, int at)
    : kind_(kind), at_(at), before_(platform::SetFileWatch(this)) {}

FileFaults::~FileFaults() { platform::SetFileWatch(before_); }

bool FileFaults::ended() const {
  return happened() && (kind_ == FaultKind::kEnds || kind_ == FaultKind::kEndsInside);
}

FileFault FileFaults::Before(FileCall call, const std::string&, const std::string&,
                             std::size_t& size) {
  ++calls_;
  if (calls_ == at_ && (kind_ != FaultKind::kDiskFull || TakesRoom(call))) return AtTheCall(size);
  return calls_ >= at_ ? AfterIt(call) : FileFault::kNone;
}

FileFault FileFaults::AtTheCall(std::size_t& size) const {
  switch (kind_) {
    case FaultKind::kNone:
      return FileFault::kNone;
    case FaultKind::kDiskFull:
      return FileFault::kDiskFull;
    case FaultKind::kNotPermitted:
      return FileFault::kNotPermitted;
    case FaultKind::kCutShort:
      size = HalfOf(size);
      return FileFault::kNone;
    case FaultKind::kEndsInside:
      if (size < 2) return FileFault::kDeviceError;
      size = HalfOf(size);
      return FileFault::kNone;
    default:
      return FileFault::kDeviceError;
  }
}

FileFault FileFaults::AfterIt(FileCall call) const {
  if (kind_ == FaultKind::kDiskFull && TakesRoom(call)) return FileFault::kDiskFull;
  return ended() ? FileFault::kDeviceError : FileFault::kNone;
}

}  // namespace quarvel
