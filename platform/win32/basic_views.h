// Labels, frames, buttons, option buttons, check boxes and progress bars.
#pragma once

#include <chrono>

#include "platform/basic_controls.h"
#include "platform/win32/control_view.h"

namespace quarvel::platform::win32 {

// Of one line, which ends in an ellipsis where it has no room, or of many, which break inside words
// without blanks too.
class LabelView : public ControlView {
 public:
  using ControlView::ControlView;
  bool TakesLetters() const override { return false; }

 protected:
  Style WindowStyle() const override;
  void Fill() override { ShowCaption(); }
};

// Stands behind the other controls and paints its own ground, which the form leaves out. Its window
// has as much of the caption as there is room for, and an ellipsis.
class FrameView : public ControlView {
 public:
  using ControlView::ControlView;
  void SetFont(HFONT font) override;
  bool TakesLetters() const override { return false; }

 protected:
  Style WindowStyle() const override { return {WC_BUTTONW, BS_GROUPBOX}; }
  void Fill() override;
  void Show(Change change) override;

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                  DWORD_PTR self) noexcept;
  void ShowFitting();
};

// What is clicked with the mouse, the space bar or its access key.
class ClickView : public ControlView {
 public:
  using ControlView::ControlView;
  bool TakesLetters() const override { return false; }
  void PressAccessKey() override;
  void OnCommand(WORD code) override;

 protected:
  void Fill() override;
  virtual void Click() = 0;
};

class ButtonView : public ClickView {
 public:
  using ClickView::ClickView;
  KeyUse PressEnter() override;
  void OnCommand(WORD code) override;
  // Whether it looks like the button that Enter presses.
  void ShowDefault(bool is_default);
  bool WantsDefault() const { return Own().is_default; }

 protected:
  Style WindowStyle() const override;
  void Click() override { Own().Click(); }

 private:
  Button& Own() const { return static_cast<Button&>(control()); }
};

class OptionView : public ClickView {
 public:
  using ClickView::ClickView;
  OptionButton& Own() const { return static_cast<OptionButton&>(control()); }

 protected:
  Style WindowStyle() const override {
    return {WC_BUTTONW, BS_RADIOBUTTON | BS_NOTIFY | WS_TABSTOP};
  }
  void Fill() override;
  void Show(Change change) override;
  void Click() override { Own().Click(); }
};

class CheckView : public ClickView {
 public:
  using ClickView::ClickView;

 protected:
  Style WindowStyle() const override { return {WC_BUTTONW, BS_CHECKBOX | BS_NOTIFY | WS_TABSTOP}; }
  void Fill() override;
  void Show(Change change) override;
  void Click() override { Own().Click(); }

 private:
  CheckBox& Own() const { return static_cast<CheckBox&>(control()); }
};

// Shows at most about eight values a second: what comes between is deferred until Flush.
class ProgressView : public ViewOf<ProgressBar> {
 public:
  using ViewOf::ViewOf;
  bool TakesLetters() const override { return false; }
  void Flush() override;

 protected:
  Style WindowStyle() const override { return {PROGRESS_CLASSW, PBS_SMOOTH}; }
  void Fill() override;
  void Show(Change change) override;

 private:
  int shown_ = 0;
  bool stale_ = false;
  std::chrono::steady_clock::time_point last_shown_{};
};

}  // namespace quarvel::platform::win32
