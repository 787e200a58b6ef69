#include "platform/win32/form_keyboard.h"

#include <algorithm>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/input_controls.h"
#include "platform/menu.h"
#include "platform/win32/button_windows.h"
#include "platform/win32/form_window.h"
#include "text/upper_case.h"

namespace quarvel::platform::win32 {
namespace {

using KeyUse = ControlWindow::KeyUse;
using Windows = std::vector<ControlWindow*>;

bool IsDown(int key) { return GetKeyState(key) < 0; }

const OptionButton* AsOption(const ControlWindow& window) {
  if (window.control().kind() != ControlKind::kOptionButton) return nullptr;
  return static_cast<const OptionButton*>(&window.control());
}

// The option buttons of one group that can have the keyboard.
Windows Group(const FormWindow& form, const OptionButton& member) {
  Windows group;
  for (const auto& window : form.controls()) {
    const OptionButton* const option = AsOption(*window);
    if (option == nullptr || option->group() != member.group() || !window->CanFocus()) continue;
    group.push_back(window.get());
  }
  return group;
}

// A group of option buttons is one stop: its selected button, or the first where none is.
bool IsStop(const FormWindow& form, const ControlWindow& window) {
  if (!window.CanFocus()) return false;
  const OptionButton* const option = AsOption(window);
  if (option == nullptr || option->value()) return true;
  const Windows group = Group(form, *option);
  const bool chosen = std::any_of(group.begin(), group.end(), [](const ControlWindow* other) {
    return AsOption(*other)->value();
  });
  return !chosen && group.front() == &window;
}

Windows Stops(const FormWindow& form) {
  Windows stops;
  for (const auto& window : form.controls()) {
    if (IsStop(form, *window)) stops.push_back(window.get());
  }
  return stops;
}

// The element `step` places further in a ring; the first one where `from` is not in it.
ControlWindow* Further(const Windows& ring, const ControlWindow* from, int step) {
  if (ring.empty()) return nullptr;
  const auto place = std::find(ring.begin(), ring.end(), from);
  if (place == ring.end()) return step > 0 ? ring.front() : ring.back();
  const auto count = static_cast<int>(ring.size());
  const auto index = static_cast<int>(place - ring.begin());
  return ring[static_cast<std::size_t>((index + step + count) % count)];
}

bool GoToNextStop(const FormWindow& form, const ControlWindow* from, bool backwards) {
  ControlWindow* const next = Further(Stops(form), from, backwards ? -1 : 1);
  if (next != nullptr) next->TakeFocus();
  return true;
}

bool GoInGroup(const FormWindow& form, const ControlWindow* from, int step) {
  const OptionButton* const option = from == nullptr ? nullptr : AsOption(*from);
  if (option == nullptr) return false;
  ControlWindow* const next = Further(Group(form, *option), from, step);
  if (next != nullptr) next->PressAccessKey();
  return true;
}

bool TurnPage(const FormWindow& form, bool backwards) {
  for (const auto& window : form.controls()) {
    if (window->control().kind() != ControlKind::kTabStrip) continue;
    auto& tabs = static_cast<TabStrip&>(window->control());
    const auto count = static_cast<int>(tabs.captions().size());
    if (count > 0) tabs.Select((tabs.current() + (backwards ? count - 1 : 1)) % count);
    return true;
  }
  return false;
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
  while (index < windows.size() && !windows[index]->TakesFocus()) ++index;
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
      if (IsDown(VK_CONTROL)) return TurnPage(form, shift);
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

ControlWindow* FirstStop(const FormWindow& window) {
  const Windows stops = Stops(window);
  return stops.empty() ? nullptr : stops.front();
}

bool TakeKey(const MSG& message) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  FormWindow* const form = FormWindow::Of(GetAncestor(message.hwnd, GA_ROOT));
  if (form == nullptr || !form->alive() || !IsWindowEnabled(form->handle())) return false;
  bool taken = false;
  form->Visit([&] { taken = Take(*form, message); });
  return taken;
}

}  // namespace quarvel::platform::win32
