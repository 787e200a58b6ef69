// The windows that an object keeps for itself, each made on first use.
#pragma once

#include <memory>

#include "model/model_view.h"
#include "mps/frm_mps_file_open.h"
#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "platform/desktop.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {

class ModelWindows {
 public:
  // Both outlive the windows. The viewer is attached to `view` once it is made.
  ModelWindows(platform::Desktop& desktop, model::ViewLink& view)
      : desktop_(desktop), view_(view) {}

  mps::frmMPSFileOpen& file_open() { return Made(file_open_); }
  mps::frmSetDefaultBounds& default_bounds() { return Made(default_bounds_); }
  mps::frmProgress& progress() { return Made(progress_); }
  viewer::frmViewEquations& viewer() {
    view_.Attach(Made(viewer_));
    return *viewer_;
  }
  // Takes the viewer off the screen; nothing while there is none.
  void UnloadViewer() {
    if (viewer_) viewer_->Unload();
  }

 private:
  template <class Window>
  Window& Made(std::unique_ptr<Window>& window) {
    if (!window) window = std::make_unique<Window>(desktop_);
    return *window;
  }

  platform::Desktop& desktop_;
  model::ViewLink& view_;
  std::unique_ptr<mps::frmMPSFileOpen> file_open_;
  std::unique_ptr<mps::frmSetDefaultBounds> default_bounds_;
  std::unique_ptr<mps::frmProgress> progress_;
  std::unique_ptr<viewer::frmViewEquations> viewer_;
};

}  // namespace quarvel
