// Saving a store as the component does, and what the user hears of it. What becomes of the files is
// the business of file_save.h.
#pragma once

#include <string>

#include "model/model_store.h"
#include "mps/file_save.h"
#include "platform/desktop.h"

namespace quarvel::mps {

class frmMPSFileOpen;

// Saved also when there was nothing to write, after its box. Not saved: an empty path, or an error,
// after its box.
SaveResult SaveModel(model::ModelStore& store, platform::Desktop& desktop, const std::string& path);

// Asks for a path; empty when the user cancelled, after a beep.
std::string ChoosePathToSave(const model::ModelStore& store, frmMPSFileOpen& file_dialog);

}  // namespace quarvel::mps
