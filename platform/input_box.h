// The box that asks for one line of text: a form like any other, as large as its question wants. A
// drawer that has windows shows it for Desktop::InputBox.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/input_controls.h"

namespace quarvel::platform {

// What a drawer knows of the screen that the box will stand on, in form units.
struct WordsOnScreen {
  // The largest inner area that a window may have there.
  int width = 0;
  int height = 0;
  // How high words are in a label of that width which breaks them into lines.
  std::function<int(std::string_view words, int width)> height_of;
};

class frmInputBox : public Form {
 public:
  frmInputBox(Desktop& desktop, const WordsOnScreen& screen, std::string_view prompt,
              std::string_view title, std::string_view default_text);

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
  static Growth GrowthFor(std::string_view prompt, const WordsOnScreen& screen);

  std::string entered_;
};

// For drawers: Desktop::InputBox by this form.
std::string AskLine(Desktop& desktop, const WordsOnScreen& screen, std::string_view prompt,
                    std::string_view title, std::string_view default_text);

}  // namespace quarvel::platform
