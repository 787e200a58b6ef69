// ReadMPSFile: the file is chosen, the default bounds are chosen, and the read runs inside the
// progress window.

#include <memory>

#include "model/lp_model.h"
#include "model/model_view.h"
#include "mps/frm_mps_file_open.h"
#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "mps/read_run.h"
#include "platform/file_dialog.h"
#include "platform/files.h"

namespace quarvel {
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

void AskForDefaultBounds(LPModel& model) {
  std::unique_ptr<platform::Form>& slot = model.window(WindowSlot::kDefaultBounds);
  if (!slot) slot = std::make_unique<frmSetDefaultBounds>(model.desktop());
  auto& dialog = static_cast<frmSetDefaultBounds&>(*slot);
  dialog.Parent = &model;
  dialog.Load();
  dialog.ShowModal();
}

// The model of a read, whose open viewer pauses until the model is complete.
class ModelOfRead : public ReadHost {
 public:
  explicit ModelOfRead(LPModel& model) : model_(model), pause_(model) {}

  void DropModel() override { model_.ClearModel(); }
  void SimplifyModel() override { model_.SimplifyMPSModel(); }
  // A host may have set the flag without a window.
  void ShowModel() override {
    pause_.End();
    ModelView* view = OpenView(model_);
    if (model_.frmViewEquationsIsShowing() && view != nullptr) view->RefreshForm();
  }

 private:
  LPModel& model_;
  ViewPause pause_;
};

}  // namespace

std::int16_t LPModel::ReadMPSFile() {
  // A read or simplification of this model is going on and its window can show one thing only:
  // nothing is touched.
  if (ProgressWindow(*this).IsShowing()) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  platform::FileDialog request;
  request.kind = platform::FileDialog::Kind::kOpen;
  request.title = "Identify the MPS file to open";
  request.filter = "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*";
  data_.strMPSFile.clear();
  data_.strMPSFile = FileDialogHost(*this).Choose(request, data_.FileLocation);
  data_.FileLocation = data_.strMPSFile;
  if (data_.strMPSFile.empty()) return 1;

  AskForDefaultBounds(*this);

  frmProgress& progress = ProgressWindow(*this);
  const std::uint64_t length = LengthForBar(data_.strMPSFile);
  progress.Load();
  progress.SetModel(this);
  progress.set_caption(kReadingCaption);
  progress.bar.set_range(0, static_cast<float>(length));
  progress.ShowModal();
  return data_.ReadMPSFileErr;
}

std::int16_t LPModel::StartFileReding() {
  frmProgress& progress = ProgressWindow(*this);
  ModelOfRead owner(*this);
  ReadRun(data_, desktop_, owner, progress.TakeStart() ? &progress : nullptr).Run();
  return data_.ReadMPSFileErr;
}

}  // namespace quarvel
