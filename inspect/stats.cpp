#include "inspect/stats.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "inspect/name_families.h"
#include "model/model_data.h"

namespace quarvel::inspect {
namespace {

using model::ModelData;

// The families of one kind of records, put together while these are walked.
class FamilyCollector {
 public:
  // The family of the next record, which it is counted in. Valid until the next call.
  template <class Record>
  RecordFamily& Add(const Record& record, std::int32_t number) {
    const auto index = static_cast<std::size_t>(names_.Add(record.Name));
    if (index == families_.size()) families_.emplace_back().first = number;
    RecordFamily& family = families_[index];
    ++family.count;
    ++family.types[static_cast<std::size_t>(record.Type)];
    family.lower.Add(std::max(record.LowerBound, -model::BoundLimit));
    family.upper.Add(std::min(record.UpperBound, model::BoundLimit));
    return family;
  }

  std::vector<RecordFamily> Take() {
    NameFamilies::Joined joined = names_.Join();
    std::vector<RecordFamily> result(joined.patterns.size());
    for (std::size_t i = 0; i < result.size(); ++i) result[i].pattern = joined.patterns[i];
    for (std::size_t i = 0; i < families_.size(); ++i) {
      AddTo(result[static_cast<std::size_t>(joined.family_of[i])], families_[i]);
    }
    std::stable_sort(
        result.begin(), result.end(),
        [](const RecordFamily& a, const RecordFamily& b) { return a.count > b.count; });
    return result;
  }

 private:
  static void AddTo(RecordFamily& sum, const RecordFamily& part) {
    if (sum.count == 0) sum.first = part.first;
    sum.count += part.count;
    for (std::size_t t = 0; t < sum.types.size(); ++t) sum.types[t] += part.types[t];
    sum.lower.Add(part.lower);
    sum.upper.Add(part.upper);
    sum.elements.Add(part.elements);
  }

  NameFamilies names_;
  std::vector<RecordFamily> families_;  // by number of the pattern
};

// Finds the shortest, the longest and the middle.
class LengthCollector {
 public:
  explicit LengthCollector(std::int32_t count) {
    lengths_.reserve(static_cast<std::size_t>(count));
  }

  // Of the next record.
  void Add(std::int32_t length) {
    const auto number = static_cast<std::int32_t>(lengths_.size()) + 1;
    if (length == 0) ++result_.empty;
    if (number == 1 || length < At(result_.shortest)) result_.shortest = number;
    if (number == 1 || length > At(result_.longest)) result_.longest = number;
    lengths_.push_back(length);
    sum_ += length;
  }

  RecordLengths Take() {
    if (lengths_.empty()) return result_;
    result_.mean = static_cast<double>(sum_) / static_cast<double>(lengths_.size());
    const auto middle = lengths_.begin() + static_cast<std::ptrdiff_t>(lengths_.size() / 2);
    std::nth_element(lengths_.begin(), middle, lengths_.end());
    result_.median = *middle;
    if (lengths_.size() % 2 == 0) {
      result_.median = (result_.median + *std::max_element(lengths_.begin(), middle)) / 2;
    }
    return result_;
  }

 private:
  std::int32_t At(std::int32_t number) const {
    return lengths_[static_cast<std::size_t>(number) - 1];
  }

  std::vector<std::int32_t> lengths_;
  std::int64_t sum_ = 0;
  RecordLengths result_;
};

void AddLimits(const model::RowRecord& row, std::int32_t r, NumberSizes& sizes) {
  const model::RowTypeTraits& type = model::TraitsOf(row.Type);
  if (type.has_lower && model::HasLower(row.LowerBound)) sizes.Add(row.LowerBound, r, 0);
  const bool is_told = type.has_lower && row.UpperBound == row.LowerBound;
  if (type.has_upper && model::HasUpper(row.UpperBound) && !is_told) {
    sizes.Add(row.UpperBound, r, 0);
  }
}

// Of one list, put together without branches.
ElementRange RangeOf(const model::ElementList& list) {
  ElementRange range;
  range.count = static_cast<std::int64_t>(list.size());
  if (range.count == 0) return range;
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  ValueRange values = {kInfinite, -kInfinite, false};
  ValueRange sizes = {kInfinite, 0, false};
  for (const model::ElementEntry& entry : list) {
    const double value = entry.Value;
    const double size = std::abs(value);
    values.from = value < values.from ? value : values.from;
    values.to = value > values.to ? value : values.to;
    sizes.from = size < sizes.from ? size : sizes.from;
    sizes.to = size > sizes.to ? size : sizes.to;
  }
  range.values = values;
  range.sizes = sizes;
  return range;
}

void WalkRows(const ModelData& data, ModelStats& stats) {
  FamilyCollector families;
  LengthCollector lengths(data.NumberOfRows);
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    const model::RowRecord& row = data.Rows[r];
    ++stats.row_types[static_cast<std::size_t>(row.Type)];
    lengths.Add(row.ElementCount());
    const bool binds = model::TraitsOf(row.Type).binds;
    if (binds) AddLimits(row, r, stats.right_hand_sides);
    NumberSizes& sizes = binds ? stats.coefficients : stats.objective;
    for (const model::ElementEntry& entry : row.Elements) sizes.Add(entry.Value, r, entry.Index);
    families.Add(row, r).elements.Add(RangeOf(row.Elements));
  }
  stats.row_lengths = lengths.Take();
  stats.row_families = families.Take();
}

void AddBounds(const model::Bounds& column, std::int32_t c, NumberSizes& sizes) {
  if (model::HasLower(column.LowerBound)) sizes.Add(column.LowerBound, 0, c);
  if (model::HasUpper(column.UpperBound)) sizes.Add(column.UpperBound, 0, c);
}

void CountDuplicates(const ModelData& data, ModelStats& stats) {
  model::OneBased<std::int32_t> last_column;  // that named the row
  last_column.Resize(data.NumberOfRows);
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    for (const model::ElementEntry& entry : data.Columns[c].Elements) {
      const bool is_second = std::exchange(last_column[entry.Index], c) == c;
      if (is_second && stats.duplicates++ == 0)
        stats.first_duplicate = {entry.Value, entry.Index, c};
    }
  }
}

void WalkColumns(const ModelData& data, ModelStats& stats) {
  FamilyCollector families;
  LengthCollector lengths(data.NumberOfColumns);
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    const model::ColumnRecord& column = data.Columns[c];
    ++stats.column_types[static_cast<std::size_t>(column.Type)]
                        [static_cast<std::size_t>(ShapeOf(column))];
    lengths.Add(column.ElementCount());
    AddBounds(column, c, stats.bounds);
    families.Add(column, c).elements.Add(RangeOf(column.Elements));
  }
  stats.column_lengths = lengths.Take();
  stats.column_families = families.Take();
}

}  // namespace

BoundShape ShapeOf(const model::Bounds& bounds) {
  using enum BoundShape;
  const double lower = bounds.LowerBound;
  const double upper = bounds.UpperBound;
  if (model::AreReversed(bounds)) return kCrossed;
  if (model::AreFixed(bounds)) return kFixed;
  if (!model::HasLower(lower)) return model::HasUpper(upper) ? kUpperOnly : kFree;
  if (!model::HasUpper(upper)) return lower == 0 ? kNonNegative : kLowerOnly;
  return lower == 0 && upper == 1 ? kZeroOne : kBoxed;
}

void ValueRange::Add(double value) {
  from = is_empty ? value : std::min(from, value);
  to = is_empty ? value : std::max(to, value);
  is_empty = false;
}

void ValueRange::Add(const ValueRange& other) {
  if (other.is_empty) return;
  Add(other.from);
  Add(other.to);
}

void ElementRange::Add(const ElementRange& other) {
  count += other.count;
  values.Add(other.values);
  sizes.Add(other.sizes);
}

ModelStats StatsOf(const model::ModelStore& store) {
  const ModelData& data = store.data();
  ModelStats stats;
  stats.rows = data.NumberOfRows;
  stats.columns = data.NumberOfColumns;
  stats.elements = data.NumberOfElements;
  const double places = static_cast<double>(stats.rows) * static_cast<double>(stats.columns);
  stats.density = places == 0 ? 0 : static_cast<double>(stats.elements) / places;
  WalkRows(data, stats);
  WalkColumns(data, stats);
  if (!store.looks().KnowsPairsDistinct()) CountDuplicates(data, stats);
  return stats;
}

}  // namespace quarvel::inspect
