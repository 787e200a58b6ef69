#include "platform/file_watch.h"

#include <utility>

namespace quarvel::platform {
namespace {

FileWatch* current_watch = nullptr;

bool IsFaultTold(FileCall call, const std::string& path, const std::string& to, std::size_t& size) {
  const FileFault fault = current_watch->Before(call, path, to, size);
  if (fault == FileFault::kNone) return false;
  SetSystemError(fault);
  return true;
}

}  // namespace

FileWatch* SetFileWatch(FileWatch* watch) { return std::exchange(current_watch, watch); }

bool IsRefused(FileCall call, const std::string& path, const std::string& to) {
  if (current_watch == nullptr) return false;
  std::size_t none = 0;
  return IsFaultTold(call, path, to, none);
}

bool IsTransferRefused(FileCall call, const std::string& path, std::size_t& size) {
  return current_watch != nullptr && IsFaultTold(call, path, {}, size);
}

}  // namespace quarvel::platform
