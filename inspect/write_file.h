// Writes a model to a file and looks at what it wrote before that takes the file's place: without a
// desktop, a box or a question. The component's own save is mps/save_driver.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "inspect/receipt.h"
#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "platform/automation_error.h"
#include "platform/system_names.h"

namespace quarvel::inspect {

struct WriteOptions {
  mps::FileLayout layout = mps::FileLayout::kFree;
  // Writes also what reads back with other limits, bounds, types or another objective.
  bool allow_changes = false;
  // Writes only what reads back as it is.
  bool strict = false;
  // The file as it was read. One that is there and is another by now is left alone: kFailed.
  std::optional<platform::FileStamp> read_as = {};
};

enum class WriteOutcome : std::uint8_t {
  kWritten,
  kNothing,  // there are no coefficients, and a file without them is no model
  kLosses,   // what the layout loses is not allowed
  kNotSame,  // read again it was not what it should be: see Receipt::unexpected
  kFailed,   // see failure
};

struct FileWrite {
  WriteOutcome outcome = WriteOutcome::kFailed;
  Receipt receipt;
  // Every name and value stands where fixed columns have it.
  bool fits_fixed_columns = true;
  std::string kept = {};  // the name that what had the name of the backup is kept under
  std::optional<AutomationError> failure = {};
  std::string notes = {};  // what the failure left in files, each note behind a line end
};

// Saves as SaveFile (mps/file_save.h) does: the old file or the new one, whole; the path becomes the
// model's location. The backup of the model's own file stands beside it (mps/backup.h). Unless the outcome is kWritten the file is as it was, but for what a failure leaves.
// What cannot be replaced (a pipe, a device) is written without being read again.
// Cost: of finding what is lost, the write and a read; while that goes on, twice the memory of the model.
FileWrite WriteFile(model::ModelStore& store, const mps::FileFacts& facts, const std::string& path,
                    const WriteOptions& options);

}  // namespace quarvel::inspect
