#include "platform/win32/input_box.h"

#include <algorithm>

#include "platform/win32/dpi.h"
#include "platform/win32/fitted_text.h"
#include "platform/win32/thread_windows.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

// In form units: the box, and the room in it for the question.
constexpr int kWidth = 420;
constexpr int kHeight = 140;
constexpr int kQuestionWidth = 296;
constexpr int kQuestionHeight = 84;
constexpr int kStep = 100;
constexpr int kWindowFrame = 60;

// What a window on the screen of that one may take of it, in form units.
SIZE ScreenRoom(HWND window, int dpi) {
  MONITORINFO info = {};
  info.cbSize = sizeof(info);
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &info);
  return {ToUnits(info.rcWork.right - info.rcWork.left, dpi) - kWindowFrame,
          ToUnits(info.rcWork.bottom - info.rcWork.top, dpi) - kWindowFrame};
}

}  // namespace

// Higher up to half of the screen, then wider, and higher again when there is no other room.
frmInputBox::Growth frmInputBox::GrowthFor(std::string_view prompt) {
  const HWND owner = OwnerWindow();
  const int dpi = DpiOf(owner);
  const FontHolder font = MessageFont(dpi);
  const TextMeasure measure(font.get());
  const std::wstring words = ToWide(prompt);
  const SIZE screen = ScreenRoom(owner, dpi);
  const int widest = std::max(0, static_cast<int>(screen.cx) - kWidth);
  const int highest = std::max(0, static_cast<int>(screen.cy) - kHeight);
  Growth growth;
  for (;; growth.x = std::min(growth.x + kStep, widest)) {
    const int height = measure.HeightOf(words, ToPixels(kQuestionWidth + growth.x, dpi));
    growth.y = std::clamp(ToUnits(height, dpi) + 1 - kQuestionHeight, 0, highest);
    if (growth.y <= screen.cy / 2 - kHeight || growth.x == widest) return growth;
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

frmInputBox::frmInputBox(Desktop& desktop, std::string_view prompt, std::string_view title,
                         std::string_view default_text)
    : frmInputBox(desktop, GrowthFor(prompt)) {
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
