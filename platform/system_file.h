// The thin layer between the files of this room and the operating system: one open file, and the
// few questions about names that only the system can answer. For platform/ alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_traits.h"

namespace quarvel::platform {

// An open file without a buffer. Closed by its destructor. Movable only.
class SystemFile {
 public:
  SystemFile() = default;
  ~SystemFile();
  SystemFile(SystemFile&& other) noexcept;
  SystemFile& operator=(SystemFile&& other) noexcept;

  // Raises 70 where somebody writes it in place, as far as the system lets that be seen.
  static SystemFile OpenForReading(const std::string& path);
  // The same where nobody writes in place meanwhile; else 70.
  static SystemFile OpenUndisturbed(const std::string& path);
  // Creates the file or empties it; what is named as an open file (system_names.h) is gone on with.
  static SystemFile OpenForWriting(const std::string& path);
  // For writing over what a file holds, which stays until then.
  static SystemFile OpenExisting(const std::string& path);
  // The same where nobody else does so meanwhile; else 70.
  static SystemFile OpenInPlace(const std::string& path);
  // A new file for reading and writing, which nobody else can write or take for abandoned while it
  // is open. With `like`, no other user can read it before it gets those traits. Nothing when the
  // name is taken, by whatever it be.
  static std::optional<SystemFile> CreateNew(const std::string& path, const FileTraits* like);

  // Takes over an open file descriptor, or a Windows handle.
  static SystemFile Own(std::intptr_t handle);

  bool IsOpen() const { return handle_ != kClosed; }
  // The size in bytes; 0 for what has none (a pipe).
  std::uint64_t Size() const;
  // At least one byte, unless the end is reached.
  std::size_t Read(char* buffer, std::size_t capacity);
  // All of `bytes`, or an error.
  void Write(std::string_view bytes);
  // The next byte read or written is this one.
  void MoveTo(std::uint64_t position);
  // The same open file once more: the two share the place of the next byte.
  SystemFile Duplicate() const;
  // Claims the room on the disk for so many bytes, where the system can; the contents stay.
  void Reserve(std::uint64_t size);
  void CutOff(std::uint64_t size);
  // Has the contents on the disk. No error where the file system cannot do so.
  void FlushToDisk();
  // Raises what the system found only now. The file is closed in any case.
  void Close();

  FileTraits Traits() const;
  // Gives the file those traits; false when not all of them can be given.
  bool TakeTraits(const FileTraits& like);
  // Has its contents count as written then, in the unit of a FileStamp; false when the system does not.
  bool SetTime(std::int64_t time);
  // Deletes its name, while it is open, of a file that CreateNew made.
  void RemoveName();

 private:
  static constexpr std::intptr_t kClosed = -1;
  explicit SystemFile(std::string path);

  std::string path_;  // under which it was opened
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

// What is said beside the general error where the system tells more than that.
inline constexpr std::string_view kTooLarge =
    "the file grows over a limit of this process or of the file system";
inline constexpr std::string_view kLockedByOthers = "another program has locked the file";

// Raises 75 for an empty name and 52 for one that no system can have.
void CheckFileName(const std::string& path);

}  // namespace quarvel::platform
