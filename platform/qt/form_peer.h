// What keeps a form's window on the screen.
#pragma once

#include <memory>

#include "platform/form.h"
#include "platform/qt/event_pump.h"
#include "platform/qt/form_window.h"
#include "platform/qt/stage.h"

namespace quarvel::platform::qt {

class QtFormPeer : public FormPeer {
 public:
  // Shows the window over the one that is on top.
  QtFormPeer(Stage& stage, EventPump& pump, Form& form, bool modal);
  ~QtFormPeer() override;

  void CaptionChanged() override { window_->CaptionChanged(); }
  void ControlChanged(const Control& control, Change change) override {
    window_->Mirror(control, change);
  }
  // The first time also waits until the window is painted. Letting events run for that is safe only
  // here, where the form has its peer already: one of them may close the form.
  void BringToFront() override;

 private:
  Stage& stage_;
  EventPump& pump_;
  std::unique_ptr<FormWindow> window_;
  bool painted_ = false;
};

}  // namespace quarvel::platform::qt
