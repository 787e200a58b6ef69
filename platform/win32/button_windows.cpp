#include "platform/win32/button_windows.h"

#include "platform/win32/form_window.h"

namespace quarvel::platform::win32 {
namespace {

LRESULT CALLBACK PaintGround(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                             DWORD_PTR) noexcept {
  if (message != WM_ERASEBKGND) return DefSubclassProc(window, message, w, l);
  RECT area;
  GetClientRect(window, &area);
  FillRect(reinterpret_cast<HDC>(w), &area, GetSysColorBrush(COLOR_BTNFACE));
  return 1;
}

WPARAM CheckState(bool checked) { return checked ? BST_CHECKED : BST_UNCHECKED; }

}  // namespace

void FrameWindow::Fill() {
  SetWindowSubclass(handle(), PaintGround, 1, 0);
  ShowCaption();
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
