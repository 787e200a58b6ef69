#include "platform/qt/key_press.h"

namespace quarvel::platform::qt {

KeyPress ToKeyPress(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  if (modifiers.testFlag(Qt::AltModifier) || modifiers.testFlag(Qt::MetaModifier)) return {};
  KeyPress press;
  press.ctrl = modifiers.testFlag(Qt::ControlModifier);
  press.shift = modifiers.testFlag(Qt::ShiftModifier);
  const int key = event.key();
  if (key >= Qt::Key_A && key <= Qt::Key_Z) {
    press.key = Key::kLetter;
    press.letter = static_cast<char>('A' + (key - Qt::Key_A));
    return press;
  }
  switch (key) {
    case Qt::Key_Delete:
      press.key = Key::kDelete;
      return press;
    case Qt::Key_F1:
      press.key = Key::kF1;
      return press;
    case Qt::Key_F2:
      press.key = Key::kF2;
      return press;
    default:
      return {};
  }
}

}  // namespace quarvel::platform::qt
