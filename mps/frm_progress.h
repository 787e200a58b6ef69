// The progress window of long operations: a caption with a percentage, a bar, and a Stop button.
//
// A read runs inside its modal showing: ReadMPSFile prepares a showing with SetModel, and being
// activated starts the read, once. A simplification shows the same window, not modal and without
// SetModel, so it starts nothing. The window closes only after StopRequested is set, which the long
// operation does itself when it is done.
#pragma once

#include <cstdint>

#include "platform/basic_controls.h"
#include "platform/form.h"

namespace quarvel {

class LPModel;

class frmProgress : public platform::Form {
 public:
  explicit frmProgress(platform::Desktop& desktop);

  // The model that the next showing reads. Dropped when the window unloads.
  void SetModel(LPModel* model) { model_ = model; }

  // True once, for the read that this window's activation starts.
  bool TakeStart();

  // Sets the flag and closes the window: how a long operation takes its window down.
  void Finish();

  bool StopRequested = false;
  platform::ProgressBar bar;
  platform::Button cmdStop;

 protected:
  void OnLoad() override;
  void OnActivate() override;
  bool OnQueryUnload(platform::UnloadReason reason) override;
  void OnUnload() override;

 private:
  void AskToStop();

  LPModel* model_ = nullptr;
  bool starting_ = false;
};

// The progress window of that model, created on first use.
frmProgress& ProgressWindow(LPModel& model);

}  // namespace quarvel
