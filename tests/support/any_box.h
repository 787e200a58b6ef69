// Boxes for tests of those who show them.
#pragma once

#include <string>
#include <string_view>

#include "platform/box.h"

namespace quarvel::platform {

// A note with one button, a question with more.
inline Box AnyBox(std::string_view text, MsgBoxStyle style,
                  std::string_view title = kDefaultTitle) {
  Box box = LookOf(style).asks() ? Question(BoxKind::kConfirmStop, text, style, title) : Note(text);
  box.title = title;
  return box;
}

}  // namespace quarvel::platform
