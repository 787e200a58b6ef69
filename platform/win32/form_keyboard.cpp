#include "platform/win32/form_keyboard.h"

#include "platform/basic_controls.h"
#include "platform/focus_order.h"
#include "platform/menu.h"
#include "platform/win32/form_window.h"
#include "platform/win32/key_press.h"
#include "text/upper_case.h"

namespace quarvel::platform::win32 {
namespace {

using KeyUse = ControlView::KeyUse;

const Control* ControlOf(const ControlView* window) {
  return window == nullptr ? nullptr : &window->control();
}

bool GoToNextStop(const FormWindow& form, const ControlView* from, bool backwards) {
  const Control* const next = NextStop(form.form(), ControlOf(from), !backwards);
  if (next != nullptr) form.Find(*next)->TakeFocus();
  return true;
}

bool GoToNeighbour(const ControlView* from, int step) {
  if (from == nullptr || from->control().kind() != ControlKind::kOptionButton) return false;
  GoInGroup(static_cast<const OptionButton&>(from->control()), step);
  return true;
}

bool PressEnter(const FormWindow& form, ControlView* focused) {
  const KeyUse use = focused == nullptr ? KeyUse::kNone : focused->PressEnter();
  if (use != KeyUse::kNone) return use == KeyUse::kDone;
  form.form().PressDefaultButton();
  return true;
}

bool PressEscape(const FormWindow& form, ControlView* focused) {
  const KeyUse use = focused == nullptr ? KeyUse::kNone : focused->PressEscape();
  if (use != KeyUse::kNone) return use == KeyUse::kDone;
  form.form().PressEscape();
  return true;
}

bool PressKey(const FormWindow& form, ControlView* focused, WPARAM key) {
  const KeyPress press = ToKeyPress(key);
  if (press.key == Key::kNone) return false;
  const KeyUse use = focused == nullptr ? KeyUse::kNone : focused->Press(press);
  if (use != KeyUse::kNone) return use == KeyUse::kDone;
  return !form.alive() || PressShortcut(form.form(), press);
}

bool PressAccessKey(const FormWindow& form, WPARAM character) {
  if (character <= ' ' || character > '~') return false;
  const char wanted = text::UpperCaseAscii(static_cast<char>(character));
  for (const Control* words : form.form().controls()) {
    const Control& control = *words;
    if (control.access_key == 0 || text::UpperCaseAscii(control.access_key) != wanted) continue;
    if (!control.visible() || control.kind() == ControlKind::kMenuItem) continue;
    const Control* const target = LedTo(form.form(), control);
    if (target == nullptr || !CanHaveFocus(*target)) continue;
    form.Find(*target)->PressAccessKey();
    return true;
  }
  return false;
}

bool TakeDown(const FormWindow& form, ControlView* focused, WPARAM key) {
  if (PressKey(form, focused, key)) return true;
  const bool shift = IsDown(VK_SHIFT);
  switch (key) {
    case VK_TAB:
      if (IsDown(VK_CONTROL)) return TurnPage(form.form(), !shift);
      return GoToNextStop(form, focused, shift);
    case VK_RETURN:
      return PressEnter(form, focused);
    case VK_ESCAPE:
      return PressEscape(form, focused);
    case VK_LEFT:
    case VK_UP:
      return GoToNeighbour(focused, -1);
    case VK_RIGHT:
    case VK_DOWN:
      return GoToNeighbour(focused, 1);
    default:
      return false;
  }
}

bool Take(const FormWindow& form, const MSG& message) {
  ControlView* const focused = form.Find(message.hwnd);
  switch (message.message) {
    case WM_KEYDOWN:
      return TakeDown(form, focused, message.wParam);
    case WM_SYSCHAR:
      return PressAccessKey(form, message.wParam);
    case WM_CHAR:
      if (focused != nullptr && focused->TakesLetters()) return false;
      return PressAccessKey(form, message.wParam);
    default:
      return false;
  }
}

}  // namespace

bool TakeKey(const MSG& message) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  FormWindow* const form = FormWindow::Of(GetAncestor(message.hwnd, GA_ROOT));
  if (form == nullptr || !form->alive() || !IsWindowEnabled(form->handle())) return false;
  bool taken = false;
  form->ForUser([&] { taken = Take(*form, message); });
  return taken;
}

}  // namespace quarvel::platform::win32
