// The box that asks for one line of text: a form like any other, shown by the drawer itself. It is
// as large as its question wants.
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
  // By how much the question needs more room than the box has of itself, in form units.
  struct Growth {
    int x = 0;
    int y = 0;
  };
  frmInputBox(Desktop& desktop, Growth growth);
  static Growth GrowthFor(std::string_view prompt);

  std::string entered_;
};

}  // namespace quarvel::platform::win32
