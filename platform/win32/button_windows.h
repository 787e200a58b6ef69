// Windows of the controls that carry only words or are clicked: labels, frames, buttons, option
// buttons, check boxes.
#pragma once

#include "platform/basic_controls.h"
#include "platform/win32/control_window.h"

namespace quarvel::platform::win32 {

// Of one line, which ends in an ellipsis where it has no room, or of many, which break inside words
// without blanks too.
class LabelWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  bool TakesLetters() const override { return false; }

 protected:
  Style WindowStyle() const override;
  void Fill() override { ShowCaption(); }
};

// Stands behind the other controls and paints its own ground, which the form leaves out. Its window
// has as much of the caption as there is room for, and an ellipsis.
class FrameWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  void Mirror(Change change) override;
  void SetFont(HFONT font) override;
  bool TakesLetters() const override { return false; }

 protected:
  Style WindowStyle() const override { return {WC_BUTTONW, BS_GROUPBOX}; }
  void Fill() override;

 private:
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                  DWORD_PTR self) noexcept;
  void ShowFitting();
};

// What is clicked with the mouse, the space bar or its access key.
class ClickWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  bool TakesLetters() const override { return false; }
  void PressAccessKey() override;
  void OnCommand(WORD code) override;

 protected:
  void Fill() override;
  virtual void Click() = 0;
};

class ButtonWindow : public ClickWindow {
 public:
  using ClickWindow::ClickWindow;
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

class OptionWindow : public ClickWindow {
 public:
  using ClickWindow::ClickWindow;
  void Mirror(Change change) override;
  OptionButton& Own() const { return static_cast<OptionButton&>(control()); }

 protected:
  Style WindowStyle() const override {
    return {WC_BUTTONW, BS_RADIOBUTTON | BS_NOTIFY | WS_TABSTOP};
  }
  void Fill() override;
  void Click() override { Own().Click(); }
};

class CheckWindow : public ClickWindow {
 public:
  using ClickWindow::ClickWindow;
  void Mirror(Change change) override;

 protected:
  Style WindowStyle() const override { return {WC_BUTTONW, BS_CHECKBOX | BS_NOTIFY | WS_TABSTOP}; }
  void Fill() override;
  void Click() override { Own().Click(); }

 private:
  CheckBox& Own() const { return static_cast<CheckBox&>(control()); }
};

}  // namespace quarvel::platform::win32
