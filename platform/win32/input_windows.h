// Windows of the controls that take words and choices, and of the progress bar.
#pragma once

#include <chrono>

#include "platform/basic_controls.h"
#include "platform/input_controls.h"
#include "platform/win32/control_window.h"
#include "text/long_lines.h"

namespace quarvel::platform::win32 {

class TextWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  void Mirror(Change change) override;
  void TakeFocus() override;
  KeyUse Press(KeyPress press) override;
  KeyUse PressEnter() override;
  void OnCommand(WORD code) override;

 protected:
  Style WindowStyle() const override;
  void Fill() override;

 private:
  // Positions in the window's text; the same twice when nothing is selected.
  struct Selection {
    DWORD begin = 0;
    DWORD end = 0;
  };
  TextBox& Own() const { return static_cast<TextBox&>(control()); }
  bool many_lines() const { return Own().lines() == TextBox::Lines::kMany; }
  Selection Selected() const;
  void ShowText();
  // Of a box that is only to be read: what is selected, or all, to the clipboard, without the
  // breaks of long lines. False when the window itself shall copy.
  bool Copies();
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                  DWORD_PTR self) noexcept;

  text::LongLines lines_{u"", u"\r\n"};  // of a box of many lines that is only to be read
};

class ComboWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  void Mirror(Change change) override;
  // As high as its place when closed, with room below for the list.
  RECT Placed(RECT place) const override;
  KeyUse PressEnter() override { return NativeWhileOpen(); }
  KeyUse PressEscape() override { return NativeWhileOpen(); }
  void OnCommand(WORD code) override;
  void Synchronize() override;

 protected:
  Style WindowStyle() const override {
    return {WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP};
  }
  void Fill() override;

 private:
  ComboBox& Own() const { return static_cast<ComboBox&>(control()); }
  KeyUse NativeWhileOpen() const;
};

// The tabs alone: what stands on their pages are the form's own controls, on the form's own ground.
class TabWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  void Mirror(Change change) override;
  RECT Placed(RECT place) const override;
  LRESULT OnNotify(NMHDR& header) override;
  void Synchronize() override;
  TabStrip& Own() const { return static_cast<TabStrip&>(control()); }

 protected:
  Style WindowStyle() const override { return {WC_TABCONTROLW, WS_TABSTOP}; }
  void Fill() override;
};

// Shows at most about eight values a second: what comes between is put off until Flush.
class ProgressWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  bool TakesLetters() const override { return false; }
  void Mirror(Change change) override;
  void Flush() override;

 protected:
  Style WindowStyle() const override { return {PROGRESS_CLASSW, PBS_SMOOTH}; }
  void Fill() override;

 private:
  ProgressBar& Own() const { return static_cast<ProgressBar&>(control()); }
  int Position() const;

  int shown_ = 0;
  bool stale_ = false;
  std::chrono::steady_clock::time_point last_shown_{};
};

}  // namespace quarvel::platform::win32
