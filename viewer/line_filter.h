// Which rows or columns a list of the viewer shows: the kept numbers in ascending order, so that a
// list of a million lines holds no texts. Numbers are the model's public, 0-based ones.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace quarvel {

// Whether an entry of the filter box, by its position, keeps a row or column of that type. No
// entry, and an entry that the box does not have, keeps nothing.
bool KeepsRow(int position, std::string_view type);
bool KeepsColumn(int position, std::string_view type);
// The position that keeps everything, without a look at types.
inline constexpr int kShowAll = 0;

class LineFilter {
 public:
  // Keeps of the numbers 0..count-1 those that `keeps` keeps, or, inverted, all the others.
  void Run(std::int32_t count, bool invert, const std::function<bool(std::int32_t)>& keeps);
  void Clear();

  std::int32_t count() const { return static_cast<std::int32_t>(shown_.size()); }
  // The number that the list shows at that place, nothing for a place outside the list.
  std::optional<std::int32_t> At(int place) const;
  // The place of a number in the list; nothing when it is not shown. Logarithmic.
  std::optional<int> PlaceOf(std::int32_t number) const;

 private:
  std::vector<std::int32_t> shown_;
};

}  // namespace quarvel
