#include "viewer/element_value.h"

#include <cstddef>

#include "platform/box.h"
#include "text/picture.h"

namespace quarvel::viewer {

void WarnOfLongValue(platform::Desktop& desktop, double value) {
  constexpr std::size_t kStandardLength = 12;
  if (text::PictureText(value, text::Picture::kElement).size() <= kStandardLength) return;
  desktop.MsgBox(platform::Note(
      "The value entered is longer than is allowed in a standard MPS file.\r\nThis model can still "
      "be saved, but other programs which read MPS files may not be able to read it."));
}

}  // namespace quarvel::viewer
