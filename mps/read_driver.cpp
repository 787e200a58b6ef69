#include "mps/read_driver.h"

#include <utility>

#include "mps/frm_mps_file_open.h"
#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "mps/read_run.h"
#include "platform/automation_error.h"
#include "platform/file_dialog.h"
#include "platform/files.h"

namespace quarvel::mps {
namespace {

// The reader opens the file itself and asks about a failure there; here only the bar wants the
// length.
std::uint64_t LengthForBar(const std::string& path) {
  try {
    return platform::FileLength(path);
  } catch (const AutomationError&) {
    return 0;
  }
}

// The model that the paths belong to stays as long as no read has begun.
class PathsUntilRead {
 public:
  explicit PathsUntilRead(model::ModelSettings& settings)
      : settings_(settings), file_(settings.strMPSFile), location_(settings.FileLocation) {}
  void Restore() {
    settings_.strMPSFile.swap(file_);
    settings_.FileLocation.swap(location_);
  }

 private:
  model::ModelSettings& settings_;
  std::string file_;
  std::string location_;
};

void AskForDefaultBounds(model::ModelStore& store, frmSetDefaultBounds& dialog) {
  dialog.Parent = &store;
  dialog.Load();
  dialog.ShowModal();
}

void ShowProgress(frmProgress& progress, const std::string& path, std::function<void()> start) {
  const std::uint64_t length = LengthForBar(path);
  progress.Load();
  progress.StartWith(std::move(start));
  progress.set_caption(kReadingCaption);
  progress.bar.set_range(0, static_cast<float>(length));
  progress.ShowModal();
}

ReadResult ResultOf(const model::ModelStore& store) {
  return static_cast<ReadResult>(store.settings().ReadMPSFileErr);
}

}  // namespace

ReadResult ChooseAndRead(model::ModelStore& store, const ReadWindows& windows,
                         const std::function<void()>& start) {
  frmProgress& progress = windows.progress;
  // A read or simplification of this model is going on and its window can show one thing only.
  if (progress.IsShowing()) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  platform::FileDialog request;
  request.kind = platform::FileDialog::Kind::kOpen;
  request.title = "Identify the MPS file to open";
  request.filter = "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*";
  model::ModelSettings& settings = store.settings();
  PathsUntilRead old_paths(settings);
  bool begun = false;
  try {
    settings.strMPSFile.clear();
    settings.strMPSFile = windows.file_open.Choose(request, settings.FileLocation);
    settings.FileLocation = settings.strMPSFile;
    if (settings.strMPSFile.empty()) return ReadResult::kNoFile;
    AskForDefaultBounds(store, windows.default_bounds);
    ShowProgress(progress, settings.strMPSFile, [&begun, &start] {
      begun = true;
      start();
    });
  } catch (...) {
    if (!begun) old_paths.Restore();
    throw;
  }
  return ResultOf(store);
}

ReadResult ReadInto(model::ModelStore& store, platform::Desktop& desktop, ReadHost& host,
                    frmProgress& window) {
  ReadRun(store, desktop, host, window.TakeStart() ? &window : nullptr).Run();
  return ResultOf(store);
}

}  // namespace quarvel::mps
