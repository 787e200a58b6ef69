#include "platform/win32/key_press.h"

namespace quarvel::platform::win32 {

KeyPress ToKeyPress(WPARAM key) {
  KeyPress press;
  press.ctrl = IsDown(VK_CONTROL);
  press.shift = IsDown(VK_SHIFT);
  if (key == VK_DELETE) press.key = Key::kDelete;
  if (key == VK_F1) press.key = Key::kF1;
  if (key == VK_F2) press.key = Key::kF2;
  // Without Ctrl a letter is a character, which has a message of its own.
  if (key >= 'A' && key <= 'Z' && press.ctrl) {
    press.key = Key::kLetter;
    press.letter = static_cast<char>(key);
  }
  return press;
}

}  // namespace quarvel::platform::win32
