#include "hosts/input_bytes.h"

#include <algorithm>
#include <utility>

#include "hosts/packing/file_bytes.h"
#include "platform/files.h"

namespace quarvel::hosts {
namespace {

using platform::ByteSource;

class StandardInput : public ByteSource {
 public:
  explicit StandardInput(const Streams& streams) : streams_(streams) {}
  std::uint64_t size() const override { return 0; }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    return streams_.read_bytes ? streams_.read_bytes(buffer, capacity) : 0;
  }

 private:
  const Streams& streams_;
};

}  // namespace

void StopAtSecondStandardInput(const std::vector<std::string>& paths) {
  if (std::count(paths.begin(), paths.end(), kStandardInput) < 2) return;
  throw CommandError(kUsage, "standard input can be read once only: give - once");
}

std::unique_ptr<ByteSource> InputOpener::operator()() {
  const bool again = std::exchange(is_used_, true);
  if (path_ != kStandardInput) {
    // What has no size may be a pipe, which nobody may write to any more.
    if (again && platform::FileLength(path_) == 0) return nullptr;
    return Unpacked(OpenFile(path_));
  }
  if (again) return nullptr;
  return Unpacked(std::make_unique<StandardInput>(streams_));
}

}  // namespace quarvel::hosts
