#include "platform/system_file.h"

#include <exception>
#include <utility>

#include "platform/automation_error.h"

namespace quarvel::platform {

SystemFile::~SystemFile() {
  try {
    Close();
  } catch (const std::exception&) {
    // Whoever wants to hear of it has called Close.
  }
}

SystemFile::SystemFile(SystemFile&& other) noexcept
    : handle_(std::exchange(other.handle_, kClosed)) {}

SystemFile& SystemFile::operator=(SystemFile&& other) noexcept {
  const SystemFile old(std::move(*this));
  handle_ = std::exchange(other.handle_, kClosed);
  return *this;
}

void CheckFileName(const std::string& path) {
  if (path.empty()) RaiseRunTimeError(RunTimeError::kPathFileAccessError);
  if (path.find('\0') != std::string::npos) RaiseRunTimeError(RunTimeError::kBadFileNameOrNumber);
}

}  // namespace quarvel::platform
