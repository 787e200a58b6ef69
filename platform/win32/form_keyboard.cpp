#include "platform/win32/form_keyboard.h"

#include <algorithm>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/focus_order.h"
#include "platform/menu.h"
#include "platform/win32/form_window.h"
#include "text/upper_case.h"

namespace quarvel::platform::win32 {
namespace {

using KeyUse = ControlWindow::KeyUse;

bool IsDown(int key) { return GetKeyState(key) < 0; }

const Control* ControlOf(const ControlWindow* window) {
  return window == nullptr ? nullptr : &window->control();
}

bool GoToNextStop(const FormWindow& form, const ControlWindow* from, bool backwards) {
  const Control* const next = NextStop(form.form(), ControlOf(from), !backwards);
  if (next != nullptr) form.Find(*next)->TakeFocus();
  return true;
}

// In a ring of the option's group.
bool GoInGroup(const FormWindow& form, const ControlWindow* from, int step) {
  if (from == nullptr || from->control().kind() != ControlKind::kOptionButton) return false;
  const auto& option = static_cast<const OptionButton&>(from->control());
  const std::vector<OptionButton*> group = UsableGroup(form.form(), option);
  const auto place = std::find(group.begin(), group.end(), &option);
  if (place == group.end()) return true;
  const auto count = static_cast<int>(group.size());
  const int next = (static_cast<int>(place - group.begin()) + step + count) % count;
  form.Find(*group[static_cast<std::size_t>(next)])->PressAccessKey();
  return true;
}

bool PressEnter(const FormWindow& form, ControlWindow* focused) {
  const KeyUse use = focused == nullptr ? KeyUse::kNone : focused->PressEnter();
  if (use != KeyUse::kNone) return use == KeyUse::kDone;
  form.form().PressDefaultButton();
  return true;
}

bool PressEscape(const FormWindow& form, ControlWindow* focused) {
  const KeyUse use = focused == nullptr ? KeyUse::kNone : focused->PressEscape();
  if (use != KeyUse::kNone) return use == KeyUse::kDone;
  if (form.form().PressCancelButton() || !form.alive()) return true;
  // A dialog without a cancel button closes; a window with menus is no dialog.
  if (MenuBar(form.form()).empty()) form.form().RequestClose();
  return true;
}

KeyPress PressOf(WPARAM key) {
  KeyPress press;
  press.ctrl = IsDown(VK_CONTROL);
  press.shift = IsDown(VK_SHIFT);
  if (key == VK_DELETE) press.key = Key::kDelete;
  if (key == VK_F1) press.key = Key::kF1;
  if (key == VK_F2) press.key = Key::kF2;
  if (key >= 'A' && key <= 'Z' && press.ctrl) {
    press.key = Key::kLetter;
    press.letter = static_cast<char>(key);
  }
  return press;
}

bool PressKey(const FormWindow& form, ControlWindow* focused, WPARAM key) {
  const KeyPress press = PressOf(key);
  if (press.key == Key::kNone) return false;
  const KeyUse use = focused == nullptr ? KeyUse::kNone : focused->Press(press);
  if (use != KeyUse::kNone) return use == KeyUse::kDone;
  return !form.alive() || PressShortcut(form.form(), press);
}

// The access key of a label or a frame leads to what comes after it.
ControlWindow* FromWords(const FormWindow& form, std::size_t index) {
  const auto& windows = form.controls();
  while (index < windows.size() && !TakesKeys(windows[index]->control())) ++index;
  return index < windows.size() ? windows[index].get() : nullptr;
}

bool PressAccessKey(const FormWindow& form, WPARAM character) {
  if (character <= ' ' || character > '~') return false;
  const char wanted = text::UpperCaseAscii(static_cast<char>(character));
  const auto& windows = form.controls();
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const Control& control = windows[i]->control();
    if (control.access_key == 0 || text::UpperCaseAscii(control.access_key) != wanted) continue;
    if (!control.visible()) continue;
    ControlWindow* const target = FromWords(form, i);
    if (target == nullptr || !target->CanFocus()) continue;
    target->PressAccessKey();
    return true;
  }
  return false;
}

bool TakeDown(const FormWindow& form, ControlWindow* focused, WPARAM key) {
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
      return GoInGroup(form, focused, -1);
    case VK_RIGHT:
    case VK_DOWN:
      return GoInGroup(form, focused, 1);
    default:
      return false;
  }
}

bool Take(const FormWindow& form, const MSG& message) {
  ControlWindow* const focused = form.Find(message.hwnd);
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
  form->Visit([&] { taken = Take(*form, message); });
  return taken;
}

}  // namespace quarvel::platform::win32
