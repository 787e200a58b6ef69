#include "platform/files.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace quarvel::platform {
namespace {

constexpr std::size_t kBufferSize = std::size_t{128} * 1024;

}  // namespace

InputFile::InputFile(const std::string& path)
    : file_(SystemFile::OpenForReading(path)), size_(file_.Size()) {}

std::size_t InputFile::Read(char* buffer, std::size_t capacity) {
  return capacity == 0 ? 0 : file_.Read(buffer, capacity);
}

OutputFile::OutputFile(const std::string& path) : OutputFile(SystemFile::OpenForWriting(path)) {}

OutputFile::OutputFile(SystemFile file) : file_(std::move(file)) { buffer_.reserve(kBufferSize); }

OutputFile::~OutputFile() {
  try {
    Close();
  } catch (const std::exception&) {
    // Whoever wants to hear of it has called Close.
  }
}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  if (this != &other) {
    // The old file gets its last bytes before its place is taken.
    const OutputFile old(std::move(*this));
    file_ = std::move(other.file_);
    buffer_ = std::move(other.buffer_);
    failure_ = std::move(other.failure_);
  }
  return *this;
}

template <typename Step>
void OutputFile::Guard(Step step) {
  if (failure_) throw AutomationError(*failure_);
  if (!file_.IsOpen()) RaiseRunTimeError(RunTimeError::kBadFileNameOrNumber);
  try {
    step();
  } catch (...) {
    failure_ = CurrentError();
    throw;
  }
}

void OutputFile::FlushBuffer() {
  file_.Write(buffer_);
  buffer_.clear();
}

void OutputFile::Write(std::string_view bytes) {
  Guard([this, bytes] {
    if (buffer_.size() + bytes.size() > kBufferSize) FlushBuffer();
    if (bytes.size() >= kBufferSize) {
      file_.Write(bytes);
    } else {
      buffer_.append(bytes);
    }
  });
}

void OutputFile::Flush() {
  Guard([this] { FlushBuffer(); });
}

void OutputFile::Close() {
  if (!file_.IsOpen()) return;
  SystemFile closing;
  try {
    Flush();
  } catch (...) {
    closing = std::move(file_);
    throw;
  }
  file_.Close();
}

bool FileExists(const std::string& path) {
  const auto info = AskSystemAbout(path);
  return info && !info->is_folder;
}

std::uint64_t FileLength(const std::string& path) {
  CheckFileName(path);
  const auto info = AskSystemAbout(path);
  if (!info) RaiseSystemError(path);
  if (info->is_folder) RaiseRunTimeError(RunTimeError::kPathFileAccessError);
  return info->size;
}

void CopyFileContents(const std::string& from, const std::string& to) {
  if (IsSameFile(from, to)) RaiseRunTimeError(RunTimeError::kPermissionDenied);
  // In this order, so that a missing source does not empty the target.
  InputFile input(from);
  OutputFile output(to);
  std::vector<char> piece(kBufferSize);
  // As many bytes as the file had when it was opened: a device that never ends would fill the disk.
  for (std::uint64_t left = input.size(); left > 0;) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left, piece.size()));
    const std::size_t count = input.Read(piece.data(), wanted);
    if (count == 0) break;
    output.Write({piece.data(), count});
    left -= count;
  }
  output.Close();
}

}  // namespace quarvel::platform
