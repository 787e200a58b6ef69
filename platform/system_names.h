// What only the operating system knows of names and can do with them, for the classes of this room
// that replace files, and for backups.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_traits.h"

namespace quarvel::platform {

// Tells a file from every other one, and from itself after it was written again.
struct FileStamp {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  std::uint64_t size = 0;
  std::int64_t time = 0;  // when its contents were written last, in 1E-7 seconds
  bool operator==(const FileStamp&) const = default;
};

enum class NameKind { kFile, kFolder, kLink, kOther };

struct NamedFile {
  NameKind kind = NameKind::kOther;
  FileStamp stamp;
};

// What stands under the name itself, links not followed. Nothing where nothing does; raises when
// the system does not tell.
std::optional<NamedFile> AskAboutName(const std::string& path);

// The stamp of the file that has this name; nothing where there is none or it cannot be known.
std::optional<FileStamp> StampUnder(const std::string& path);

// The same, links followed.
std::optional<FileStamp> StampBehind(const std::string& path);

// The name that a link, or a chain of links, ends at; another name is given back as it is. What it
// ends at need not exist. The name of an open file is such an end.
std::string FinalName(const std::string& path);

// True of a name that the system has for what some process has open, as /dev/stdout and /dev/fd/3 are:
// what is written there belongs behind what that process has written, whatever the file is called.
bool IsNameOfOpenFile(const std::string& path);

// The traits of a file that exists and can be opened for writing; nothing where there is none. What
// is no plain file, or is named as an open one, is not opened. Raises as opening it for writing does.
std::optional<FileTraits> AskForWriting(const std::string& path);

// Whether two names without a folder are one in a folder of this system (on Windows in any case).
bool IsSameName(const std::string& a, const std::string& b);

// Where the name of the file begins in its path; the path's size when there is none.
std::size_t NameStart(const std::string& path);

// Gives the file another name, in the same folder. What had that name is gone at the same moment.
// False when the system lets this name not be taken in that way; raises other failures.
bool RenameOver(const std::string& from, const std::string& to);
// False when something has that name.
bool RenameToFree(const std::string& from, const std::string& to);

enum class Abandoned { kNone, kRemoved, kStays };
// Removes a file that SystemFile::CreateNew made and that no process has open any more. It stays
// where it is in use, and where it can be no such file (a link, a folder, another user's).
Abandoned RemoveAbandoned(const std::string& path);

// The paths that begin with `start`, whose folder and first part of a name it is; none where the folder
// cannot be read.
std::vector<std::string> PathsThatBeginWith(const std::string& start);

// Has the names in that folder on the disk, where the system can. Takes no memory.
void FlushFolder(const std::string& folder);

}  // namespace quarvel::platform
