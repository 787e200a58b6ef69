#include "platform/win32/basic_views.h"

#include <string>

#include "platform/win32/dpi.h"
#include "platform/win32/fitted_words.h"
#include "platform/win32/form_window.h"
#include "platform/win32/pace.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

// A label that is lower, in form units, has room for one line.
constexpr int kTwoLines = 30;
// Beside the caption of a frame, in form units.
constexpr int kFrameMargin = 12;
constexpr int kProgressSteps = 1000;

void PaintGround(HWND window, HDC ground) {
  RECT area;
  GetClientRect(window, &area);
  FillRect(ground, &area, GetSysColorBrush(COLOR_BTNFACE));
}

WPARAM CheckState(bool checked) { return checked ? BST_CHECKED : BST_UNCHECKED; }

}  // namespace

ControlView::Style LabelView::WindowStyle() const {
  const bool one_line = control().place().height < kTwoLines;
  return {WC_STATICW, SS_LEFT | static_cast<DWORD>(one_line ? SS_ENDELLIPSIS : SS_EDITCONTROL)};
}

void FrameView::Fill() {
  SetWindowSubclass(handle(), Receive, 1, reinterpret_cast<DWORD_PTR>(this));
  ShowFitting();
}

void FrameView::Show(Change change) {
  if (change == Change::kCaption) ShowFitting();
}

void FrameView::SetFont(HFONT font) {
  ControlView::SetFont(font);
  ShowFitting();
}

void FrameView::ShowFitting() {
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

LRESULT CALLBACK FrameView::Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                    DWORD_PTR self) noexcept {
  if (message == WM_ERASEBKGND) {
    PaintGround(window, reinterpret_cast<HDC>(w));
    return 1;
  }
  auto& frame = *reinterpret_cast<FrameView*>(self);
  if (message == WM_SIZE) {
    frame.owner().ForUser([&] {
      if (frame.alive()) frame.ShowFitting();
    });
  }
  return DefSubclassProc(window, message, w, l);
}

void ClickView::Fill() {
  ShowCaption();
  // An option button would click itself whenever it gets the keyboard.
  Send(BM_SETDONTCLICK, TRUE);
}

void ClickView::PressAccessKey() {
  TakeFocus();
  if (alive()) Click();
}

void ClickView::OnCommand(WORD code) {
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) Click();
}

ControlView::Style ButtonView::WindowStyle() const {
  const DWORD look = Own().is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  return {WC_BUTTONW, look | BS_NOTIFY | WS_TABSTOP};
}

ControlView::KeyUse ButtonView::PressEnter() {
  Click();
  return KeyUse::kDone;
}

void ButtonView::OnCommand(WORD code) {
  if (code == BN_SETFOCUS) owner().ShowDefaultButton(this);
  if (code == BN_KILLFOCUS) owner().ShowDefaultButton(nullptr);
  ClickView::OnCommand(code);
}

void ButtonView::ShowDefault(bool is_default) {
  const auto look = static_cast<WPARAM>(is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
  const auto style = static_cast<WPARAM>(GetWindowLongPtrW(handle(), GWL_STYLE));
  if ((style & BS_TYPEMASK) != look) Send(BM_SETSTYLE, look, TRUE);
}

void OptionView::Fill() {
  ClickView::Fill();
  Send(BM_SETCHECK, CheckState(Own().value()));
}

void OptionView::Show(Change change) {
  if (change == Change::kValue) Send(BM_SETCHECK, CheckState(Own().value()));
  ControlView::Show(change);
}

void CheckView::Fill() {
  ClickView::Fill();
  Send(BM_SETCHECK, CheckState(Own().checked()));
}

void CheckView::Show(Change change) {
  if (change == Change::kValue) Send(BM_SETCHECK, CheckState(Own().checked()));
  ControlView::Show(change);
}

void ProgressView::Fill() {
  Send(PBM_SETRANGE32, 0, kProgressSteps);
  shown_ = -1;
  stale_ = true;
  Flush();
}

void ProgressView::Show(Change change) {
  if (change == Change::kValue || change == Change::kRange) {
    stale_ = true;
    if (PaintIsDue(last_shown_)) Flush();
  }
}

void ProgressView::Flush() {
  if (!stale_) return;
  stale_ = false;
  const auto position = static_cast<int>(Own().Done() * kProgressSteps);
  if (position == shown_) return;
  shown_ = position;
  last_shown_ = std::chrono::steady_clock::now();
  // A bar glides to a greater value but falls to a smaller one at once: the way to be on time.
  if (position < kProgressSteps) Send(PBM_SETPOS, static_cast<WPARAM>(position + 1));
  Send(PBM_SETPOS, static_cast<WPARAM>(position));
}

}  // namespace quarvel::platform::win32
