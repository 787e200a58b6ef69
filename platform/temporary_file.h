// A new file under a temporary name, which takes another name once it is complete. Whatever happens
// before, also the end of the process, nothing but this file is left incomplete.
//
// Temporary names stand beside the name to be taken: ".model.mps.quarvel-0~" for "model.mps", the
// number being the first whose name is free. A name is never written to or followed when something
// stands there already. A process that ends leaves its file; ClearAbandoned of the next file that is
// made for the same name deletes it, while the file of a process that still runs stays. So no file of
// another origin should have such a name.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_traits.h"
#include "platform/files.h"
#include "platform/system_names.h"

namespace quarvel::platform {

class TemporaryFile {
 public:
  // Stands in the folder of `beside` and is named after the file name of `named_after`. With
  // `like`, nobody else can read it before it has those traits.
  TemporaryFile(const std::string& beside, const std::string& named_after, const FileTraits* like);
  // Deletes the file unless it was renamed or kept. Silent.
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& path() const { return path_; }
  OutputFile& output() { return *output_; }

  // False when not all of the traits can be given to it.
  bool TakeTraits(const FileTraits& like);
  // Brings the file to the disk; raises unless every byte arrived.
  void Complete();
  // All that was written, from the start. Nothing may be written any more.
  InputFile Reread();
  // At most `count` bytes from the end of a complete file.
  std::string LastBytes(std::uint64_t count);

  bool HasOwnerOf(const FileTraits& file);
  // Deletes what processes that have ended left for the same name. What it cannot is left to the next
  // file that is made for it.
  void ClearAbandoned() const noexcept;

  // Takes the name in place of what has it, and has the disk know it; once it has the name, no
  // memory is needed. False when the system does not let this name be taken so: the file is still
  // here.
  bool TakeName(const std::string& name);
  // False when something has that name.
  bool TakeFreeName(const std::string& name);
  bool is_renamed() const { return is_renamed_; }
  // The file stays under its temporary name.
  void Keep() { is_kept_ = true; }
  // Has the disk know that name.
  void FlushName() const;

 private:
  void Renamed();

  std::string stem_;
  std::string folder_;
  int slot_ = 0;  // the number in its name
  std::string path_;
  std::optional<OutputFile> output_;
  bool is_renamed_ = false;
  bool is_kept_ = false;
};

// Whether a file of that path would be taken for a temporary one, and cleared.
bool IsTemporaryName(const std::string& path);

// The names of the temporary files that stand beside that file and are named after it, in no certain
// order: of saves that go on and of such as were ended. None where the folder cannot be read.
std::vector<std::string> TemporaryNamesBeside(const std::string& path);

// A complete copy of the file, beside `name`. As readable as the file, or by this user alone where
// not all of its traits can be kept. Raises 70 where somebody is writing the file in place.
std::unique_ptr<TemporaryFile> CopyBeside(const std::string& file, const std::string& name);

// Whether that file is such a copy, and nobody has written to it since: it bears the second in which the
// file was written, with a part of a second that tells it from all but one in ten million others. False
// also where the file system keeps no times as exact as that.
bool IsUntouchedCopy(const FileStamp& stamp);

}  // namespace quarvel::platform
