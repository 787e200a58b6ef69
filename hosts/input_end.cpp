#include "hosts/input_end.h"

#include <algorithm>
#include <string_view>

#include "mps/end_line.h"
#include "platform/automation_error.h"

namespace quarvel::hosts {

std::size_t InputEnd::Read(char* buffer, std::size_t capacity) {
  constexpr auto kMost = static_cast<std::size_t>(mps::kEndOfModel);
  const std::size_t count = bytes_->Read(buffer, capacity);
  const std::size_t taken = std::min(count, kMost);
  last_.append(buffer + count - taken, taken);
  if (last_.size() > kMost) last_.erase(0, last_.size() - kMost);
  return count;
}

bool InputEnd::IsCutOff() {
  constexpr std::size_t kPiece = std::size_t{1} << 16;
  try {
    const std::unique_ptr<char[]> piece(new char[kPiece]);
    while (Read(piece.get(), kPiece) > 0) continue;
  } catch (const AutomationError&) {
    return false;
  }
  const bool ends_within_line = !last_.empty() && last_.back() != '\n' && last_.back() != '\r';
  return ends_within_line && !mps::HasEndLine(last_);
}

}  // namespace quarvel::hosts
