// What only the operating system knows of names and can do with them, for the classes of this room
// that replace files, and for backups.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/file_traits.h"

namespace quarvel::platform {

// Tells a file from every other one, and mostly from itself after it was written again.
struct FileStamp {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  std::uint64_t size = 0;
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

// The name that a link, or a chain of links, ends at; another name is given back as it is. What it
// ends at need not exist.
std::string FinalName(const std::string& path);

// The traits of a file that exists and can be opened for writing; nothing where there is none. What
// is no plain file is not opened. Raises as opening it for writing does.
std::optional<FileTraits> AskForWriting(const std::string& path);

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

// Has the names in that folder on the disk, where the system can. Takes no memory.
void FlushFolder(const std::string& folder);

}  // namespace quarvel::platform
