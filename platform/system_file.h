// The thin layer between files.cpp and the operating system: one open file, and the few questions
// about names that only the system can answer. For files.cpp and log_file alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quarvel::platform {

// An open file without a buffer. Closed by its destructor. Movable only.
class SystemFile {
 public:
  SystemFile() = default;
  ~SystemFile();
  SystemFile(SystemFile&& other) noexcept;
  SystemFile& operator=(SystemFile&& other) noexcept;

  static SystemFile OpenForReading(const std::string& path);
  // Creates the file or empties it.
  static SystemFile OpenForWriting(const std::string& path);
  // Takes over an open file descriptor, or a Windows handle.
  static SystemFile Own(std::intptr_t handle) { return SystemFile(handle); }

  bool IsOpen() const { return handle_ != kClosed; }
  // The size in bytes; 0 for what has none (a pipe).
  std::uint64_t Size() const;
  // At least one byte, unless the end is reached.
  std::size_t Read(char* buffer, std::size_t capacity);
  // All of `bytes`, or an error.
  void Write(std::string_view bytes);
  // Raises what the system found only now. The file is closed in any case.
  void Close();

 private:
  static constexpr std::intptr_t kClosed = -1;
  explicit SystemFile(std::intptr_t handle) : handle_(handle) {}

  // A file descriptor, or a Windows handle; both have -1 for none.
  std::intptr_t handle_ = kClosed;
};

struct SystemFileInfo {
  bool is_folder = false;
  std::uint64_t size = 0;
};

// What a name leads to; nothing when it leads nowhere or cannot be asked about.
std::optional<SystemFileInfo> AskSystemAbout(const std::string& path);

// Raises the general error of the system's last failure, which happened while working on `path`.
[[noreturn]] void RaiseSystemError(const std::string& path);

// Raises 75 for an empty name and 52 for one that no system can have.
void CheckFileName(const std::string& path);

}  // namespace quarvel::platform
