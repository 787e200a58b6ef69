#include "platform/win32/button_windows.h"

#include <string>

#include "platform/win32/dpi.h"
#include "platform/win32/fitted_text.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

// A label that is lower, in form units, has room for one line.
constexpr int kTwoLines = 30;
// Beside the caption of a frame, in form units.
constexpr int kFrameMargin = 12;

void PaintGround(HWND window, HDC ground) {
  RECT area;
  GetClientRect(window, &area);
  FillRect(ground, &area, GetSysColorBrush(COLOR_BTNFACE));
}

WPARAM CheckState(bool checked) { return checked ? BST_CHECKED : BST_UNCHECKED; }

}  // namespace

ControlWindow::Style LabelWindow::WindowStyle() const {
  const bool one_line = control().place().height < kTwoLines;
  return {WC_STATICW, SS_LEFT | static_cast<DWORD>(one_line ? SS_ENDELLIPSIS : SS_EDITCONTROL)};
}

void FrameWindow::Fill() {
  SetWindowSubclass(handle(), Receive, 1, reinterpret_cast<DWORD_PTR>(this));
  ShowFitting();
}

void FrameWindow::Mirror(Change change) {
  if (change == Change::kCaption) return ShowFitting();
  ControlWindow::Mirror(change);
}

void FrameWindow::SetFont(HFONT font) {
  ControlWindow::SetFont(font);
  ShowFitting();
}

void FrameWindow::ShowFitting() {
  RECT area;
  GetClientRect(handle(), &area);
  const int width = area.right - 2 * ToPixels(kFrameMargin, owner().dpi());
  const TextMeasure measure(reinterpret_cast<HFONT>(Send(WM_GETFONT)));
  const std::wstring whole = ToWide(control().caption());
  const std::wstring shown = width > 0 ? measure.Shortened(whole, width) : whole;
  if (shown == whole) return ShowCaption();
  std::wstring marked;
  for (const wchar_t c : shown) marked.append(c == L'&' ? 2 : 1, c);
  SetWindowTextW(handle(), marked.c_str());
}

LRESULT CALLBACK FrameWindow::Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                      DWORD_PTR self) noexcept {
  if (message == WM_ERASEBKGND) {
    PaintGround(window, reinterpret_cast<HDC>(w));
    return 1;
  }
  auto& frame = *reinterpret_cast<FrameWindow*>(self);
  if (message == WM_SIZE) {
    frame.owner().Visit([&] {
      if (frame.owner().alive()) frame.ShowFitting();
    });
  }
  return DefSubclassProc(window, message, w, l);
}

void ClickWindow::Fill() {
  ShowCaption();
  // An option button would click itself whenever it gets the keyboard.
  Send(BM_SETDONTCLICK, TRUE);
}

void ClickWindow::PressAccessKey() {
  TakeFocus();
  if (owner().alive()) Click();
}

void ClickWindow::OnCommand(WORD code) {
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) Click();
}

ControlWindow::Style ButtonWindow::WindowStyle() const {
  const DWORD look = Own().is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  return {WC_BUTTONW, look | BS_NOTIFY | WS_TABSTOP};
}

ControlWindow::KeyUse ButtonWindow::PressEnter() {
  Click();
  return KeyUse::kDone;
}

void ButtonWindow::OnCommand(WORD code) {
  if (code == BN_SETFOCUS) owner().ShowDefaultButton(this);
  if (code == BN_KILLFOCUS) owner().ShowDefaultButton(nullptr);
  ClickWindow::OnCommand(code);
}

void ButtonWindow::ShowDefault(bool is_default) {
  const auto look = static_cast<WPARAM>(is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
  const auto style = static_cast<WPARAM>(GetWindowLongPtrW(handle(), GWL_STYLE));
  if ((style & BS_TYPEMASK) != look) Send(BM_SETSTYLE, look, TRUE);
}

void OptionWindow::Fill() {
  ClickWindow::Fill();
  Send(BM_SETCHECK, CheckState(Own().value()));
}

void OptionWindow::Mirror(Change change) {
  if (change == Change::kValue) Send(BM_SETCHECK, CheckState(Own().value()));
  ControlWindow::Mirror(change);
}

void CheckWindow::Fill() {
  ClickWindow::Fill();
  Send(BM_SETCHECK, CheckState(Own().checked()));
}

void CheckWindow::Mirror(Change change) {
  if (change == Change::kValue) Send(BM_SETCHECK, CheckState(Own().checked()));
  ControlWindow::Mirror(change);
}

}  // namespace quarvel::platform::win32
