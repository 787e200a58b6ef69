// The copy of a model's own file that stands beside it while the file is saved.
//
// Its name is the file's with "bkp" for the last extension ("model.bkp" of "model.mps"). It takes that
// name when it is complete; a link of that name is never followed. It can be read by nobody who cannot
// read the file.
//
// What has the name already, also a pipe or a device, and for the commands a link (the component
// replaces it), is kept as "model.bkp.1" (the first number that is free), unless it
// is a backup that an earlier save has left, which nobody has written to since, and is no better than
// the file: one is better when the file is empty, or does not end as a model does, and it is whole.
// And where the file has the backup's name itself, the backup gets such a name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/system_names.h"
#include "platform/temporary_file.h"

namespace quarvel::mps {

// What a save does with the backup of the model's own file.
enum class BackupManner : std::uint8_t {
  // As the component: a point in a folder's name counts as that of an extension, and a path without a
  // point gets "bkp" at its end. A file that is gone cannot be saved. The backup stays after a failure.
  kComponent,
  // It stands beside the file, whatever the folders are called, and a name without extension gets ".bkp".
  // A file that is gone is made anew. The backup stays only where the file is not what it was.
  kBeside,
};

class Backup {
 public:
  Backup(const std::string& path, BackupManner manner);

  // Raises when the copy cannot be made. What had the name has it still then, or kept() says where it is, or
  // the copy, which is whole, stands in the place of an earlier backup. For commands nothing else is left; for
  // the component a copy that is whole may be.
  void Make();
  // Deletes the copy, and only it; false when it stays, which is no failure: whoever gets that far has a good
  // file.
  bool Delete() noexcept;
  // Has the file hold the copy's contents again; false when that fails. The copy stays.
  bool Restore() noexcept;

  bool is_made() const { return stamp_.has_value(); }
  // Made, and still there.
  bool IsThere() const;
  // The name for the copy, until Make finds that the file has it itself.
  const std::string& name() const { return name_; }
  // The name that what had this one is kept under; empty when nothing was.
  const std::string& kept() const { return kept_; }

 private:
  void TakeFreeName(platform::TemporaryFile& copy);
  void TakeName(platform::TemporaryFile& copy, bool is_folder);
  std::optional<platform::FileStamp> StampOfCopy() const;
  // The copy, of which nobody was told.
  void RemoveSilently() const noexcept;
  bool MayGo(const platform::NamedFile& there, platform::TemporaryFile& copy) const;
  void Keep();

  std::string path_;
  BackupManner manner_;
  std::string name_;
  std::string kept_;
  std::optional<platform::FileStamp> stamp_;
};

}  // namespace quarvel::mps
