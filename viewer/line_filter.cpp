#include "viewer/line_filter.h"

#include <algorithm>

namespace quarvel {

bool KeepsRow(int position, std::string_view type) {
  switch (position) {
    case kShowAll:
      return true;
    case 1:
      return type == "N";
    case 2:
      return type != "N";
    case 3:
      return type == "L";
    case 4:
      return type == "G";
    case 5:
      return type == "R";
    case 6:
      return type == "E";
    default:
      return false;
  }
}

// The box offers no entry for binary columns; they have their position all the same.
bool KeepsColumn(int position, std::string_view type) {
  switch (position) {
    case kShowAll:
      return true;
    case 1:
      return type == "R";
    case 2:
      return type == "I";
    case 3:
      return type == "B";
    default:
      return false;
  }
}

void LineFilter::Run(std::int32_t count, bool invert,
                     const std::function<bool(std::int32_t)>& keeps) {
  shown_.clear();
  for (std::int32_t number = 0; number < count; ++number) {
    if (keeps(number) != invert) shown_.push_back(number);
  }
  shown_.shrink_to_fit();
}

void LineFilter::Clear() {
  shown_.clear();
  shown_.shrink_to_fit();
}

std::optional<std::int32_t> LineFilter::At(int place) const {
  if (place < 0 || place >= count()) return std::nullopt;
  return shown_[static_cast<std::size_t>(place)];
}

std::optional<int> LineFilter::PlaceOf(std::int32_t number) const {
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), number);
  if (found == shown_.end() || *found != number) return std::nullopt;
  return static_cast<int>(found - shown_.begin());
}

}  // namespace quarvel
