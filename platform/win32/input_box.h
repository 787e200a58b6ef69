// The box that asks for one line of text: a form like any other, shown by the drawer itself.
#pragma once

#include <string>
#include <string_view>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/input_controls.h"

namespace quarvel::platform::win32 {

class frmInputBox : public Form {
 public:
  frmInputBox(Desktop& desktop, std::string_view prompt, std::string_view title,
              std::string_view default_text);

  // What was entered; empty when the box was closed without OK.
  const std::string& entered() const { return entered_; }

  Label lblPrompt;
  TextBox txtInput;
  Button cmdOK;
  Button cmdCancel;

 private:
  std::string entered_;
};

}  // namespace quarvel::platform::win32
