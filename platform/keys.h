// Keys that mean something to the component, whatever a toolkit calls them.
#pragma once

#include <string>

namespace quarvel::platform {

enum class Key { kNone, kDelete, kF1, kF2, kLetter };

struct KeyPress {
  Key key = Key::kNone;
  char letter = 0;  // 'A' to 'Z' for kLetter
  bool ctrl = false;
  bool shift = false;
  bool operator==(const KeyPress&) const = default;
};

constexpr KeyPress Ctrl(char letter) { return {Key::kLetter, letter, true, false}; }
constexpr KeyPress CtrlShift(char letter) { return {Key::kLetter, letter, true, true}; }

// As menus print it: "Ctrl+S", "Ctrl+Shift+S", "Del", "F2"; empty for none.
std::string KeyText(KeyPress press);

}  // namespace quarvel::platform
