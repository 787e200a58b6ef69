// Writes a file whole or not at all: the new contents come into being under a temporary name, and
// take the file's place at once when they are complete and on the disk. Whatever fails before,
// also the end of the process or of power, leaves the file as it was.
//
// The file keeps its owner, its rights and its other traits; where the path is a link, what the
// link leads to is replaced, and the link stays.
//
// Written in place is only what cannot be replaced: a file with more than one name, with an owner
// or rights that a new file cannot be given, or one that the system does not let go (on Windows,
// what somebody has open). The new contents are then complete under the temporary name before the
// file is touched. Where no temporary file can be made, and for what is no plain file (a device, a
// pipe, what a process has open), they are written to the file itself from the start.
#pragma once

#include <optional>
#include <string>

#include "platform/file_traits.h"
#include "platform/files.h"
#include "platform/save_lock.h"
#include "platform/system_names.h"
#include "platform/temporary_file.h"

namespace quarvel::platform {

class FileReplacement {
 public:
  // Raises what opening the file for writing raises. A file that does not exist yet gets the traits
  // `when_new`, if there are some. With `read_as`, only the file that has that stamp is replaced: another
  // one is left as it is, which raises 70, here or in Commit; one that is gone is made anew. Others that
  // replace the file so are held off from that look until this object goes (save_lock.h).
  explicit FileReplacement(const std::string& path, const FileTraits* when_new = nullptr,
                           const std::optional<FileStamp>& read_as = std::nullopt);

  // For the new contents.
  OutputFile& output() { return temporary_ ? temporary_->output() : *direct_; }

  // The new contents once they are written, before they take the file's place; nothing where they go to
  // the file itself from the start. Whoever does not like them lets this object go without Commit.
  std::optional<InputFile> Review();

  // Has them take the place of the old ones. Raises where they do not; see contents() then.
  void Commit();

  // The name of what is replaced: that of the path, links followed.
  const std::string& target() const { return target_; }

  enum class Contents { kOld, kNew, kIncomplete };
  // What the file holds. A device or a pipe always holds what it held.
  Contents contents() const { return contents_; }
  // Where the new contents stand whole when the file is incomplete, if anywhere.
  const std::string& kept() const { return kept_; }

 private:
  bool OpenTemporary();
  void OpenDirectly(const std::string& path);
  bool BecomeAlike();
  // False when there is no file.
  bool GuardOld();
  bool IsStillThere() const;
  bool TakePlace(bool is_there);
  bool TakeName(bool is_there);
  void WriteInPlace();

  std::string target_;
  std::optional<FileTraits> old_;      // of the file, where there is one
  std::optional<FileTraits> to_have_;  // that the new contents get
  std::optional<TemporaryFile> temporary_;
  std::optional<FileStamp> read_as_;
  std::optional<SaveLock> lock_;
  bool clears_late_ = false;  // what others have abandoned, once the file is whole
  std::optional<OutputFile> direct_;
  std::string kept_;
  Contents contents_ = Contents::kOld;
};

// Has a file hold a copy of another, in the way of FileReplacement.
void ReplaceByCopy(const std::string& from, const std::string& to);

}  // namespace quarvel::platform
