// Writes a model and looks at what was written before it takes the file's place, or goes out: without a
// desktop, a box or a question. The component's own save is mps/save_driver.h.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "inspect/receipt.h"
#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "platform/automation_error.h"
#include "platform/byte_sink.h"
#include "platform/byte_source.h"
#include "platform/system_names.h"

namespace quarvel::inspect {

enum class WriteStage : std::uint8_t { kWriting, kVerifying };

struct WriteProgress {
  WriteStage stage;
  std::uint64_t bytes;  // of the file as it is before it is packed
  double part;          // of the stage, 0 to 1
};

struct WriteOptions {
  mps::FileLayout layout = mps::FileLayout::kFree;
  // Writes also what reads back with other limits, bounds, types or another objective.
  bool allow_changes = false;
  // Writes only what reads back as it is.
  bool strict = false;
  // The file as it was read. One that is there and is another by now is left alone: kFailed.
  std::optional<platform::FileStamp> read_as = {};
  // What bytes go through on their way to a file, as to be packed, and what gives them back; without them
  // they stay as they are.
  std::function<std::unique_ptr<platform::ByteSink>(platform::ByteSink& stored)> pack = {};
  std::function<std::unique_ptr<platform::ByteSource>(std::unique_ptr<platform::ByteSource> stored)>
      unpack = {};
  // Called now and then; false gives up: nothing is replaced or goes out, the outcome is kFailed or
  // kNotSame. It must not touch the store.
  std::function<bool(const WriteProgress&)> on_progress = {};
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
  // In words, the first name or value that does not stand where fixed columns have it; empty: all do.
  std::string long_field = {};
  std::string kept = {};    // the name that what had the name of the backup is kept under
  std::string backup = {};  // the name of the backup where it could not be deleted
  std::optional<AutomationError> failure = {};
  std::string notes = {};  // what the failure left in files, each note behind a line end
};

// Saves as SaveFile (mps/file_save.h) does: the old file or the new one, whole; the path becomes the
// model's location. The backup of the model's own file stands beside it (mps/backup.h). Unless the outcome is
// kWritten the file is as it was, but for what a failure leaves.
// What cannot be replaced (a pipe, a device) is written without being read again.
// Cost: of finding what is lost, the write and a read; while that goes on, twice the memory of the model.
FileWrite WriteFile(model::ModelStore& store, const mps::FileFacts& facts, const std::string& path,
                    const WriteOptions& options);

// The same to `to`, which gets all of it at once and as it is, after it was read again; the model's location
// stays. Costs the memory of the file in addition.
FileWrite WriteStream(const model::ModelStore& store, const mps::FileFacts& facts,
                      platform::ByteSink& to, const WriteOptions& options);

}  // namespace quarvel::inspect
