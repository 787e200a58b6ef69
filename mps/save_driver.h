// Saving a store: where the file goes, the backup while the model's own file is overwritten, and
// what the user hears. What the file holds is the writer's business (mps_writer.h).
#pragma once

#include <cstdint>
#include <string>

#include "model/model_store.h"
#include "platform/desktop.h"

namespace quarvel::mps {

class frmMPSFileOpen;

enum class SaveResult : std::int16_t { kSaved = -1, kCancelled = 0, kNotSaved = 1 };

// Saved also when there was nothing to write, after its box. Not saved: an empty path, or an error,
// after its box.
SaveResult SaveModel(model::ModelStore& store, platform::Desktop& desktop, const std::string& path);

// Asks for a path; empty when the user cancelled, after a beep.
std::string ChoosePathToSave(const model::ModelStore& store, frmMPSFileOpen& file_dialog);

}  // namespace quarvel::mps
