// Which records a list of the viewer shows: the kept numbers in ascending order, so that a list of
// a million records holds no texts. Numbers are the model's public, 0-based ones.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "model/model_interface.h"

namespace quarvel::viewer {

// One entry of the filter box.
struct FilterEntry {
  const char* caption;  // null for an entry that the box does not offer; such stand last
  bool (*keeps)(const model::ModelQueries& model, std::int32_t number);
};
// The entries of a box by their positions.
using FilterEntries = std::span<const FilterEntry>;

extern const FilterEntries kRowFilters;
extern const FilterEntries kColumnFilters;
// The position that keeps everything, in both.
inline constexpr int kShowAll = 0;

// Whether the entry at that position keeps a record. No entry, and a position that the box does not
// have, keeps nothing.
bool Keeps(FilterEntries entries, int position, const model::ModelQueries& model,
           std::int32_t number);

class RecordFilter {
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

}  // namespace quarvel::viewer
