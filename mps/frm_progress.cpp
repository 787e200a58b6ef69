#include "mps/frm_progress.h"

#include <memory>
#include <utility>

#include "model/lp_model.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel {

using platform::BoxKind;
using platform::MsgBoxResult;
using platform::MsgBoxStyle;

frmProgress::frmProgress(platform::Desktop& desktop)
    : Form(desktop, "frmProgress"),
      bar(*this, "barProgress", {12, 16, 376, 22}),
      cmdStop(*this, "cmdStop", {150, 54, 100, 28}) {
  SetSize(400, 96, false);
  cmdStop.is_cancel = true;
  cmdStop.is_stop = true;
  cmdStop.access_key = 'S';
  cmdStop.on_click = [this] { AskToStop(); };
}

bool frmProgress::TakeStart() { return std::exchange(starting_, false); }

void frmProgress::Finish() {
  StopRequested = true;
  Unload();
}

void frmProgress::OnLoad() {
  StopRequested = false;
  set_caption("");
  cmdStop.set_caption("Stop");
  bar.set_range(0, 0);
  bar.set_value(0);
}

void frmProgress::OnActivate() {
  if (!StopRequested) cmdStop.set_caption("Stop");
  if (model_ == nullptr) return;
  starting_ = true;
  model_->StartFileReding();
}

bool frmProgress::OnQueryUnload(platform::UnloadReason) { return StopRequested; }

void frmProgress::OnUnload() {
  model_ = nullptr;
  starting_ = false;
}

void frmProgress::AskToStop() {
  const MsgBoxResult answer = desktop().MsgBox(Question(
      BoxKind::kConfirmStop, "Are you sure you wish to stop?", MsgBoxStyle::kYesNo, "Confirm"));
  if (answer != MsgBoxResult::kYes || !IsLoaded()) return;
  StopRequested = true;
  cmdStop.set_caption("Stopping...");
}

frmProgress& ProgressWindow(LPModel& model) {
  std::unique_ptr<platform::Form>& slot = model.window(WindowSlot::kProgress);
  if (!slot) slot = std::make_unique<frmProgress>(model.desktop());
  return static_cast<frmProgress&>(*slot);
}

}  // namespace quarvel
