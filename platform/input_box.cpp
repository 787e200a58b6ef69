#include "platform/input_box.h"

#include <algorithm>

namespace quarvel::platform {
namespace {

// In form units: the box, and the room in it for the question.
constexpr int kWidth = 420;
constexpr int kHeight = 140;
constexpr int kQuestionWidth = 296;
constexpr int kQuestionHeight = 84;
constexpr int kStep = 100;

}  // namespace

// Higher up to half of the screen, then wider, and higher again when there is no other room.
frmInputBox::Growth frmInputBox::GrowthFor(std::string_view prompt, const WordsOnScreen& screen) {
  const int widest = std::max(0, screen.width - kWidth);
  const int highest = std::max(0, screen.height - kHeight);
  Growth growth;
  for (;; growth.x = std::min(growth.x + kStep, widest)) {
    const int height = screen.height_of(prompt, kQuestionWidth + growth.x);
    growth.y = std::clamp(height - kQuestionHeight, 0, highest);
    if (growth.y <= screen.height / 2 - kHeight || growth.x == widest) return growth;
  }
}

frmInputBox::frmInputBox(Desktop& desktop, Growth growth)
    : Form(desktop, "frmInputBox"),
      lblPrompt(*this, "lblPrompt",
                {12, 12, kQuestionWidth + growth.x, kQuestionHeight + growth.y}),
      txtInput(*this, "txtInput", {12, 104 + growth.y, 396 + growth.x, 24}),
      cmdOK(*this, "cmdOK", {320 + growth.x, 12, 88, 26}),
      cmdCancel(*this, "cmdCancel", {320 + growth.x, 44, 88, 26}) {
  SetSize(kWidth + growth.x, kHeight + growth.y, false);
}

frmInputBox::frmInputBox(Desktop& desktop, const WordsOnScreen& screen, std::string_view prompt,
                         std::string_view title, std::string_view default_text)
    : frmInputBox(desktop, GrowthFor(prompt, screen)) {
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

std::string AskLine(Desktop& desktop, const WordsOnScreen& screen, std::string_view prompt,
                    std::string_view title, std::string_view default_text) {
  frmInputBox box(desktop, screen, prompt, title, default_text);
  box.ShowModal();
  return box.entered();
}

}  // namespace quarvel::platform
