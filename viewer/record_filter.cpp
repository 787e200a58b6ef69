#include "viewer/record_filter.h"

#include <algorithm>
#include <cstddef>

#include "model/record_types.h"

namespace quarvel::viewer {
namespace {

bool KeepsAll(const model::ModelQueries&, std::int32_t) { return true; }

template <model::RowType kType>
bool IsRow(const model::ModelQueries& model, std::int32_t i) {
  return model::RowTypeOf(model.RowType(i)) == kType;
}

template <model::ColumnType kType>
bool IsColumn(const model::ModelQueries& model, std::int32_t j) {
  return model::ColumnTypeOf(model.ColType(j)) == kType;
}

constexpr FilterEntry kRowEntries[] = {
    {"show all", KeepsAll},
    {"non-binding/objectives", IsRow<model::RowType::kFree>},
    {"constraints",
     [](const model::ModelQueries& model, std::int32_t i) {
       return model::TraitsOf(model::RowTypeOf(model.RowType(i))).binds;
     }},
    {"less than", IsRow<model::RowType::kLess>},
    {"greater than", IsRow<model::RowType::kGreater>},
    {"ranges", IsRow<model::RowType::kRanged>},
    {"equalities", IsRow<model::RowType::kEqual>},
};

constexpr FilterEntry kColumnEntries[] = {
    {"show all", KeepsAll},
    {"real", IsColumn<model::ColumnType::kContinuous>},
    {"integer", IsColumn<model::ColumnType::kInteger>},
    // Not offered; binary columns have their position all the same.
    {nullptr, IsColumn<model::ColumnType::kBinary>},
};

}  // namespace

const FilterEntries kRowFilters = kRowEntries;
const FilterEntries kColumnFilters = kColumnEntries;

bool Keeps(FilterEntries entries, int position, const model::ModelQueries& model,
           std::int32_t number) {
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
