// The progress window of long operations: a caption with a percentage, a bar, and a Stop button.
//
// A read runs inside its modal showing: it is prepared with StartWith, and being activated starts
// the read, once. A simplification shows the same window, not modal and without StartWith, so it
// starts nothing. The window closes only after StopRequested is set, which the long
// operation does itself when it is done.
#pragma once

#include <functional>
#include <utility>

#include "platform/basic_controls.h"
#include "platform/form.h"

namespace quarvel::mps {

class frmProgress : public platform::Form {
 public:
  explicit frmProgress(platform::Desktop& desktop);

  // What the next showing does once it is activated. Dropped when the window unloads.
  void StartWith(std::function<void()> start) { start_ = std::move(start); }

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

  std::function<void()> start_;
  bool starting_ = false;
};

}  // namespace quarvel::mps
