// What keeps a form's window on the screen, for every drawer that has windows.
#pragma once

#include <memory>
#include <utility>

#include "platform/form.h"

namespace quarvel::platform {

// `Window` is the drawer's window of a form. It lives longer than its showing: retired, it has left
// the screen and knows nothing of the form any more, and goes when no event of it is under way.
template <typename Window>
class WindowPeer : public FormPeer {
 public:
  explicit WindowPeer(std::shared_ptr<Window> window) : window_(std::move(window)) {}
  ~WindowPeer() override { window_->Retire(); }
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;

  void CaptionChanged() override { window_->CaptionChanged(); }
  void ControlChanged(const Control& control, Change change) override {
    window_->ControlChanged(control, change);
  }
  // Letting events run may end this peer; the window outlives what is done with it.
  void BringToFront() override {
    const std::shared_ptr<Window> window = window_;
    window->BringToFront();
  }

 private:
  std::shared_ptr<Window> window_;
};

}  // namespace quarvel::platform
