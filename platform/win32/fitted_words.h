// Words and the room they have: measured as the windows of labels and frames paint them.
#pragma once

#include <string>
#include <string_view>

#include "platform/input_box.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

// A screen to measure on, with a font chosen; the font stays its owner's.
class TextMeasure {
 public:
  explicit TextMeasure(HFONT font);
  ~TextMeasure();
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;

  // Of one line, in pixels.
  int WidthOf(std::wstring_view words) const;
  // Of words that break between words, and inside those that are wider than the room. In pixels.
  int HeightOf(std::wstring_view words, int width) const;
  // The words, or as many of their characters as leave room for an ellipsis.
  std::wstring Shortened(std::wstring_view words, int width) const;

 private:
  HDC screen_;
  HGDIOBJ other_font_;
};

// Of labels on the screen of `owner`, on the first one without an owner.
WordsOnScreen WordsOnScreenOf(HWND owner);

}  // namespace quarvel::platform::win32
