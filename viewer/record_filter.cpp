#include "viewer/record_filter.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace quarvel::viewer {
namespace {

bool KeepsAll(const ModelQueries&, std::int32_t) { return true; }

template <char kType>
bool IsRow(const ModelQueries& model, std::int32_t i) {
  const std::string text = model.RowType(i);
  return text.size() == 1 && text[0] == kType;
}

template <char kType>
bool IsColumn(const ModelQueries& model, std::int32_t j) {
  const std::string text = model.ColType(j);
  return text.size() == 1 && text[0] == kType;
}

constexpr FilterEntry kRowEntries[] = {
    {"show all", KeepsAll},
    {"non-binding/objectives", IsRow<'N'>},
    {"constraints",
     [](const ModelQueries& model, std::int32_t i) { return !IsRow<'N'>(model, i); }},
    {"less than", IsRow<'L'>},
    {"greater than", IsRow<'G'>},
    {"ranges", IsRow<'R'>},
    {"equalities", IsRow<'E'>},
};

constexpr FilterEntry kColumnEntries[] = {
    {"show all", KeepsAll},
    {"real", IsColumn<'R'>},
    {"integer", IsColumn<'I'>},
    // Not offered; binary columns have their position all the same.
    {nullptr, IsColumn<'B'>},
};

}  // namespace

const FilterEntries kRowFilters = kRowEntries;
const FilterEntries kColumnFilters = kColumnEntries;

bool Keeps(FilterEntries entries, int position, const ModelQueries& model, std::int32_t number) {
  if (position < 0 || position >= static_cast<int>(entries.size())) return false;
  return entries[static_cast<std::size_t>(position)].keeps(model, number);
}

void RecordFilter::Run(std::int32_t count, bool invert,
                       const std::function<bool(std::int32_t)>& keeps) {
  shown_.clear();
  for (std::int32_t number = 0; number < count; ++number) {
    if (keeps(number) != invert) shown_.push_back(number);
  }
  shown_.shrink_to_fit();
}

void RecordFilter::Clear() {
  shown_.clear();
  shown_.shrink_to_fit();
}

std::optional<std::int32_t> RecordFilter::At(int place) const {
  if (place < 0 || place >= count()) return std::nullopt;
  return shown_[static_cast<std::size_t>(place)];
}

std::optional<int> RecordFilter::PlaceOf(std::int32_t number) const {
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), number);
  if (found == shown_.end() || *found != number) return std::nullopt;
  return static_cast<int>(found - shown_.begin());
}

}  // namespace quarvel::viewer
