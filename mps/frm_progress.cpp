#include "mps/frm_progress.h"

#include <utility>

#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::mps {

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
  if (!start_) return;
  starting_ = true;
  const auto start = start_;  // what it does may unload the window
  start();
}

bool frmProgress::OnQueryUnload(platform::UnloadReason) { return StopRequested; }

void frmProgress::OnUnload() {
  start_ = nullptr;
  starting_ = false;
}

void frmProgress::AskToStop() {
  const MsgBoxResult answer = desktop().MsgBox(Question(
      BoxKind::kConfirmStop, "Are you sure you wish to stop?", MsgBoxStyle::kYesNo, "Confirm"));
  if (answer != MsgBoxResult::kYes || !IsLoaded()) return;
  StopRequested = true;
  cmdStop.set_caption("Stopping...");
}

}  // namespace quarvel::mps
