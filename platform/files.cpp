#include "platform/files.h"

#include <algorithm>
#include <utility>

namespace quarvel::platform {
namespace {

constexpr std::size_t kBufferSize = std::size_t{128} * 1024;

std::string NewBuffer() {
  std::string buffer;
  buffer.reserve(kBufferSize);
  return buffer;
}

}  // namespace

InputFile::InputFile(const std::string& path)
    : file_(SystemFile::OpenForReading(path)), size_(file_.Size()) {}

std::size_t InputFile::Read(char* buffer, std::size_t capacity) {
  return capacity == 0 ? 0 : file_.Read(buffer, capacity);
}

OutputFile::OutputFile(const std::string& path)
    : buffer_(NewBuffer()), file_(SystemFile::OpenForWriting(path)) {}

OutputFile::OutputFile(SystemFile file) : buffer_(NewBuffer()), file_(std::move(file)) {}

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
    written_ = other.written_;
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
    written_ += bytes.size();
    if (buffer_.size() + bytes.size() > kBufferSize) FlushBuffer();
    if (bytes.size() >= kBufferSize) {
      file_.Write(bytes);
    } else {
      buffer_.append(bytes);
    }
  });
}

void OutputFile::Append(SystemFile& from, std::uint64_t size) {
  Guard([&] {
    while (size > 0) {
      FlushBuffer();
      buffer_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size, kBufferSize)));
      const std::size_t count = from.Read(buffer_.data(), buffer_.size());
      if (count == 0) RaiseRunTimeError(RunTimeError::kDeviceIoError);
      buffer_.resize(count);
      written_ += count;
      size -= count;
    }
  });
}

void OutputFile::Flush() {
  Guard([this] { FlushBuffer(); });
}

void OutputFile::FlushToDisk() {
  Guard([this] {
    FlushBuffer();
    file_.FlushToDisk();
  });
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
  SystemFile input = SystemFile::OpenForReading(from);
  const std::uint64_t size = input.Size();
  OutputFile output(to);
  output.Append(input, size);
  output.Close();
}

std::string LastBytes(const std::string& path, std::uint64_t count) {
  SystemFile file = SystemFile::OpenForReading(path);
  return LastBytes(file, count);
}

std::string LastBytes(SystemFile& file, std::uint64_t count) {
  const std::uint64_t size = file.Size();
  std::string bytes(static_cast<std::size_t>(std::min(size, count)), '\0');
  file.MoveTo(size - bytes.size());
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::size_t read = file.Read(bytes.data() + done, bytes.size() - done);
    if (read == 0) break;
    done += read;
  }
  bytes.resize(done);
  return bytes;
}

}  // namespace quarvel::platform
