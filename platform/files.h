// Files as the component needs them. Paths are UTF-8; on Windows they reach the system as UTF-16
// and may be longer than 260 characters. Every failure is an AutomationError with a general number:
// 53 no such file, 76 no such folder, 70 locked or not permitted, 75 not a file or not accessible
// (an empty name is neither), 52 not a possible name, 61 no space left, 67 too many open files, 57
// any other input or output failure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/automation_error.h"
#include "platform/system_file.h"

namespace quarvel::platform {

// A file open for reading. Closed by its destructor. Movable only.
class InputFile {
 public:
  // Opens for reading; others may read it meanwhile. A folder is kPathFileAccessError.
  explicit InputFile(const std::string& path);
  // Reads from the next byte of a file that is open for reading.
  explicit InputFile(SystemFile file) : file_(std::move(file)), size_(file_.Size()) {}

  // The size in bytes when it was opened; 0 for what has none (a pipe).
  std::uint64_t size() const { return size_; }

  // Reads up to `capacity` bytes to `buffer` and gives the number read; 0 only at the end.
  std::size_t Read(char* buffer, std::size_t capacity);

 private:
  SystemFile file_;
  std::uint64_t size_ = 0;
};

// A file open for writing, created or emptied when opened, with a buffer of its own. What is not
// flushed when the object goes away is written then, failures ignored: call Close to hear of them.
// After a failure nothing more is written, and every later call raises it again.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);
  // Goes on with a file that is open for writing.
  explicit OutputFile(SystemFile file);
  ~OutputFile();
  OutputFile(OutputFile&&) noexcept = default;
  OutputFile& operator=(OutputFile&& other) noexcept;

  void Write(std::string_view bytes);
  // Writes the next `size` bytes of another file; raises 57 where that ends before. Takes no memory.
  void Append(SystemFile& from, std::uint64_t size);
  // Hands everything written so far to the system.
  void Flush();
  // The same, and has the system bring it to the disk.
  void FlushToDisk();
  // Flushes and closes; raises when any byte could not be written. A second call does nothing.
  void Close();

  // The number of bytes given to Write.
  std::uint64_t written() const { return written_; }
  SystemFile& system_file() { return file_; }

 private:
  // Runs `step`, after which a failure of it is known to all later calls.
  template <typename Step>
  void Guard(Step step);
  void FlushBuffer();

  std::string buffer_;  // allocated before the file is touched
  SystemFile file_;
  std::uint64_t written_ = 0;
  std::optional<AutomationError> failure_;
};

// True when a file (not a folder) of that name exists.
bool FileExists(const std::string& path);
// The size in bytes; raises when there is no such file.
std::uint64_t FileLength(const std::string& path);
// Copies the contents, replacing `to`. A file copied to itself is 70, and stays as it is.
void CopyFileContents(const std::string& from, const std::string& to);
// At most `count` bytes from the end of a file.
std::string LastBytes(const std::string& path, std::uint64_t count);
std::string LastBytes(SystemFile& file, std::uint64_t count);
// Deletes a file; raises 53 when there is none.
void RemoveFile(const std::string& path);
// True when both names lead to one existing file (links and letter case of the system considered).
bool IsSameFile(const std::string& a, const std::string& b);

// The folder that holds the file of that path, by its text alone: "." when it names none.
std::string FolderOf(const std::string& path);

// The folder that holds the component's own file: the DLL on Windows, the program it is linked into
// elsewhere. No separator at the end.
std::string ComponentFolder();

// A folder of the user's that can be written, for the log of an unsaved model:
// XDG_STATE_HOME/quarvel (else ~/.local/state/quarvel), created when missing; on Windows the
// component's folder.
std::string StateFolder();

}  // namespace quarvel::platform
