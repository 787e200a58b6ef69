// Saving a store to a file, without a user: where it goes, the backup while the model's own file is
// overwritten, and what becomes of both when something fails. What the file holds is the writers'
// business (mps_writer.h, exact_writer.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/model_store.h"
#include "mps/backup.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "platform/automation_error.h"
#include "platform/file_replacement.h"
#include "platform/system_names.h"

namespace quarvel::mps {

class ModelWriter;

// How the commands save, and the component without any of it.
struct SaveManner {
  BackupManner backup = BackupManner::kComponent;
  // The file as it was read: one that is there and is another by now is left alone, which is a failure
  // (platform/file_replacement.h).
  std::optional<platform::FileStamp> read_as = {};
};

enum class SaveResult : std::int16_t { kSaved = -1, kCancelled = 0, kNotSaved = 1 };

// Hears of a save, in the order in which things happen. The store may be looked at; Written and Failed
// may do anything with it.
class SaveListener {
 public:
  virtual ~SaveListener() = default;
  // The next piece of the new contents. Whoever wants to see or change them does so here; what is to stand
  // in the file is written to it. What it raises is a failure of the save.
  virtual void Take(std::string_view piece, platform::OutputFile& file);
  // All is written, and nothing replaced yet. False gives up: the file stays as it was.
  virtual bool Accepts(platform::FileReplacement& file);
  // There are no coefficients; the file is empty now.
  virtual void NothingWritten() = 0;
  // What had the name of the backup before has that name now.
  virtual void Kept(const std::string& name);
  // The file is there, its backup too. The writer knows what it wrote.
  virtual void Written(const ModelWriter& writer) = 0;
  // The file is there, and its backup could not be deleted afterwards.
  virtual void BackupStays(const std::string& name);
  // `notes`: what there is to say of the files, each note behind a line end.
  virtual void Failed(const AutomationError& failure, const std::string& notes) = 0;
};

// The path becomes the model's location when it is saved. Saved also when there was nothing to write. Not
// saved: an empty path, what the listener did not accept, or a failure it has heard of. The facts are
// written by the free layout alone.
SaveResult SaveFile(model::ModelStore& store, const std::string& path, FileLayout layout,
                    const FileFacts& facts, SaveListener& listener, const SaveManner& manner = {});

}  // namespace quarvel::mps
