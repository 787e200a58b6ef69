#include "platform/win32/fitted_words.h"

#include <algorithm>

#include "platform/win32/dpi.h"
#include "platform/win32/thread_windows.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr wchar_t kEllipsis[] = L"...";
// More would fill no screen, and measuring takes its time.
constexpr std::size_t kMeasured = 0x3FFF;
// What a window's frame takes of the screen, in form units.
constexpr int kWindowFrame = 60;

}  // namespace

TextMeasure::TextMeasure(HFONT font)
    : screen_(GetDC(nullptr)), other_font_(SelectObject(screen_, font)) {}

TextMeasure::~TextMeasure() {
  SelectObject(screen_, other_font_);
  ReleaseDC(nullptr, screen_);
}

int TextMeasure::WidthOf(std::wstring_view words) const {
  SIZE size = {};
  const int length = static_cast<int>(std::min(words.size(), kMeasured));
  GetTextExtentPoint32W(screen_, words.data(), length, &size);
  return size.cx;
}

int TextMeasure::HeightOf(std::wstring_view words, int width) const {
  RECT room = {0, 0, width, 0};
  const int length = static_cast<int>(std::min(words.size(), kMeasured));
  DrawTextW(screen_, words.data(), length, &room,
            DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX);
  return room.bottom;
}

std::wstring TextMeasure::Shortened(std::wstring_view words, int width) const {
  if (WidthOf(words) <= width) return std::wstring(words);
  const int length = static_cast<int>(std::min(words.size(), kMeasured));
  const int left = std::max(0, width - WidthOf(kEllipsis));
  int fitting = 0;
  SIZE size = {};
  GetTextExtentExPointW(screen_, words.data(), length, left, &fitting, nullptr, &size);
  std::wstring shortened(words.substr(0, static_cast<std::size_t>(fitting)));
  // No half of a character that takes two units.
  if (!shortened.empty() && IS_HIGH_SURROGATE(shortened.back())) shortened.pop_back();
  return shortened + kEllipsis;
}

WordsOnScreen WordsOnScreenOf(HWND owner) {
  const int dpi = DpiOf(owner);
  const RECT room = WorkArea(owner);
  const auto height_of = [dpi](std::string_view words, int width) {
    const FontHolder font = MessageFont(dpi);
    const int height = TextMeasure(font.get()).HeightOf(ToWide(words), ToPixels(width, dpi));
    return ToUnits(height, dpi) + 1;
  };
  return {ToUnits(room.right - room.left, dpi) - kWindowFrame,
          ToUnits(room.bottom - room.top, dpi) - kWindowFrame, height_of};
}

}  // namespace quarvel::platform::win32
