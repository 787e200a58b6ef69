#include "platform/system_file.h"

#include <exception>
#include <utility>

#include "platform/automation_error.h"

namespace quarvel::platform {

SystemFile::SystemFile(std::string path) : path_(std::move(path)) {}

SystemFile SystemFile::Own(std::intptr_t handle) {
  SystemFile file;
  file.handle_ = handle;
  return file;
}

SystemFile::~SystemFile() {
  try {
    Close();
  } catch (const std::exception&) {
    // Whoever wants to hear of it has called Close.
  }
}

SystemFile::SystemFile(SystemFile&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, kClosed)) {}

SystemFile& SystemFile::operator=(SystemFile&& other) noexcept {
  const SystemFile old(std::move(*this));
  path_ = std::move(other.path_);
  handle_ = std::exchange(other.handle_, kClosed);
  return *this;
}

void CheckFileName(const std::string& path) {
  if (path.empty()) RaiseRunTimeError(RunTimeError::kPathFileAccessError);
  if (path.find('\0') != std::string::npos) RaiseRunTimeError(RunTimeError::kBadFileNameOrNumber);
}

}  // namespace quarvel::platform
