#include "platform/win32/input_box.h"

namespace quarvel::platform::win32 {

frmInputBox::frmInputBox(Desktop& desktop, std::string_view prompt, std::string_view title,
                         std::string_view default_text)
    : Form(desktop, "frmInputBox"),
      lblPrompt(*this, "lblPrompt", {12, 12, 296, 84}),
      txtInput(*this, "txtInput", {12, 104, 396, 24}),
      cmdOK(*this, "cmdOK", {320, 12, 88, 26}),
      cmdCancel(*this, "cmdCancel", {320, 44, 88, 26}) {
  SetSize(420, 140, false);
  set_caption(title);
  lblPrompt.set_caption(prompt);
  txtInput.set_text(default_text);
  cmdOK.set_caption("OK");
  cmdOK.is_default = true;
  cmdOK.on_click = [this] {
    entered_ = txtInput.text();
    Unload();
  };
  cmdCancel.set_caption("Cancel");
  cmdCancel.is_cancel = true;
  cmdCancel.on_click = [this] { Unload(); };
  txtInput.Focus();
}

}  // namespace quarvel::platform::win32
