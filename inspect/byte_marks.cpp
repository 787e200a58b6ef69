#include "inspect/byte_marks.h"

#include <algorithm>

namespace quarvel::inspect {

void ByteMarks::Use(std::string_view bytes) {
  if (start_ < kMark.size()) UseStart(bytes);
  while (!bytes.empty() && first_cr_line_ == 0) {
    if (is_behind_cr_ && bytes[0] != '\n') {
      first_cr_line_ = line_;
      return;
    }
    is_behind_cr_ = false;
    const std::size_t cr = bytes.find('\r');
    line_ +=
        std::count(bytes.begin(),
                   bytes.begin() + static_cast<std::ptrdiff_t>(std::min(cr, bytes.size())), '\n');
    if (cr == std::string_view::npos) return;
    is_behind_cr_ = true;
    bytes.remove_prefix(cr + 1);
  }
}

void ByteMarks::UseStart(std::string_view bytes) {
  for (const char byte : bytes.substr(0, kMark.size() - start_)) {
    if (mark_place_ == start_ && byte == kMark[start_]) ++mark_place_;
    ++start_;
  }
}

std::unique_ptr<platform::ByteSource> MarkedOpening::operator()() {
  // What has no size may be no file that can be read again.
  if (!is_first_ && !open_ && !has_size_) return nullptr;
  std::unique_ptr<platform::ByteSource> bytes =
      open_ ? open_() : std::make_unique<platform::FileBytes>(platform::InputFile(path_));
  if (!std::exchange(is_first_, false)) return bytes;
  has_size_ = bytes->size() != 0;
  return std::make_unique<MarkedBytes>(std::move(bytes), marks_);
}

}  // namespace quarvel::inspect
