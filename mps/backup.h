// The copy of a model's own file that stands beside it while the file is saved.
//
// Its name is the file's with "bkp" for the last extension ("model.bkp" of "model.mps"); a point in
// a folder's name is taken as well, and a path without a point gets "bkp" at its end. It takes that
// name when it is complete, in place of what had the name; a link of that name is replaced, not
// followed. It can be read by nobody who cannot read the file.
//
// Two things are not replaced. Where the file itself is empty, or does not end as a model does, and
// a backup stands there that is better, that one is kept as "model.bkp.1" (the first number that is
// free). And where the file has the backup's name itself, the backup gets such a name.
#pragma once

#include <optional>
#include <string>

#include "platform/system_names.h"
#include "platform/temporary_file.h"

namespace quarvel::mps {

class Backup {
 public:
  explicit Backup(const std::string& path);

  // Raises when the copy cannot be made; what had the name then has it still.
  void Make();
  // Deletes the copy, and only it. Silent: whoever gets that far has a good file.
  void Delete() noexcept;
  // Has the file hold the copy's contents again; false when that fails. The copy stays.
  bool Restore() noexcept;

  // Made, and still there.
  bool IsThere() const;
  const std::string& name() const { return name_; }
  // The name of a better backup that was kept; empty when there was none.
  const std::string& kept() const { return kept_; }

 private:
  void TakeFreeName(platform::TemporaryFile& copy);
  void KeepBetter(platform::TemporaryFile& copy);

  std::string path_;
  std::string name_;
  std::string kept_;
  std::optional<platform::FileStamp> stamp_;
};

}  // namespace quarvel::mps
