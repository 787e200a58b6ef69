// Text boxes of one line and of many.
#pragma once

#include "platform/input_controls.h"
#include "platform/win32/control_view.h"
#include "text/long_lines.h"

namespace quarvel::platform::win32 {

class TextView : public ViewOf<TextBox> {
 public:
  using ViewOf::ViewOf;
  void TakeFocus() override;
  KeyUse Press(KeyPress press) override;
  KeyUse PressEnter() override;
  void OnCommand(WORD code) override;

 protected:
  Style WindowStyle() const override;
  void Fill() override;
  void Show(Change change) override;

 private:
  // Positions in the window's text; the same twice when nothing is selected.
  struct Selection {
    DWORD begin = 0;
    DWORD end = 0;
  };
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

}  // namespace quarvel::platform::win32
