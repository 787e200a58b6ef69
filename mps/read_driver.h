// Reading a file into a store: where the file comes from, which bounds its columns get, and the
// read inside the progress window. What the read does is in read_run.h.
#pragma once

#include <cstdint>
#include <functional>

#include "model/model_store.h"
#include "mps/read_ending.h"
#include "platform/desktop.h"

namespace quarvel::mps {

class frmMPSFileOpen;
class frmProgress;
class frmSetDefaultBounds;

enum class ReadResult : std::int16_t { kRead = -1, kNotRead = 0, kNoFile = 1 };

struct ReadWindows {
  frmMPSFileOpen& file_open;
  frmSetDefaultBounds& default_bounds;
  frmProgress& progress;
};

// Asks for a file and for default bounds and shows the progress window, which calls `start` once it
// is there. Raises 400 while that window is on the screen, with nothing touched.
ReadResult ChooseAndRead(model::ModelStore& store, const ReadWindows& windows,
                         const std::function<void()>& start);

// Reads settings().strMPSFile into the store. The outcome is settings().ReadMPSFileErr too. `window`
// shows progress when this is the read that its activation has started.
ReadResult ReadInto(model::ModelStore& store, platform::Desktop& desktop, ReadHost& host,
                    frmProgress& window);

}  // namespace quarvel::mps
