#include "model/list_agreement.h"

#include <algorithm>
#include <cstddef>

#include "model/model_data.h"

namespace quarvel::model {
namespace {

using Numbers = std::vector<std::int32_t>;

std::size_t Offset(std::int32_t number) { return static_cast<std::size_t>(number); }

bool IsNumber(std::int32_t number, std::int32_t count) { return number >= 1 && number <= count; }

// Compares the columns' lists with what the rows' lists say about each column.
class Examination {
 public:
  explicit Examination(const ModelData& data) : data_(data) {}

  bool FindsDisagreement() {
    if (!CollectRowsOfColumns()) return true;
    Numbers seen(Offset(data_.NumberOfRows) + 1, 0);
    for (std::int32_t c = 1; c <= data_.NumberOfColumns; ++c) {
      if (!ColumnAgrees(c, seen)) return true;
    }
    return false;
  }

 private:
  // The rows that name column c stand in rows_ from starts_[c] up to starts_[c + 1]. False when a row
  // names a column that is not there.
  bool CollectRowsOfColumns() {
    starts_.assign(Offset(data_.NumberOfColumns) + 2, 0);
    bool all_there = true;
    ForEachRowEntry([&](std::int32_t, std::int32_t c) {
      if (IsNumber(c, data_.NumberOfColumns)) {
        ++starts_[Offset(c) + 1];
      } else {
        all_there = false;
      }
    });
    if (!all_there) return false;
    for (std::size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
    rows_.resize(starts_.back());
    std::vector<std::size_t> next = starts_;
    ForEachRowEntry(
        [this, &next](std::int32_t r, std::int32_t c) { rows_[next[Offset(c)]++] = r; });
    return true;
  }

  template <class Visit>
  void ForEachRowEntry(const Visit& visit) {
    for (std::int32_t r = 1; r <= data_.NumberOfRows; ++r) {
      for (const ElementEntry& entry : data_.Rows[r].Elements) visit(r, entry.Index);
    }
  }

  // seen[r]: c while row r names column c, -c once the column's list has named it back.
  bool ColumnAgrees(std::int32_t c, Numbers& seen) const {
    for (std::size_t i = starts_[Offset(c)]; i < starts_[Offset(c) + 1]; ++i) {
      if (seen[Offset(rows_[i])] == c) return false;
      seen[Offset(rows_[i])] = c;
    }
    const ElementList& list = data_.Columns[c].Elements;
    for (const ElementEntry& entry : list) {
      if (!IsNumber(entry.Index, data_.NumberOfRows)) return false;
      if (seen[Offset(entry.Index)] != c) return false;
      seen[Offset(entry.Index)] = -c;
    }
    return Offset(list.size()) == starts_[Offset(c) + 1] - starts_[Offset(c)];
  }

  const ModelData& data_;
  std::vector<std::size_t> starts_;
  Numbers rows_;
};

bool NamesAColumnTwiceRunning(const RowRecord& row) {
  return std::adjacent_find(row.Elements.begin(), row.Elements.end(),
                            [](const ElementEntry& one, const ElementEntry& other) {
                              return one.Index == other.Index;
                            }) != row.Elements.end();
}

}  // namespace

void ListAgreement::NoteFilled(Changes now) {
  extent_ = Extent::kAllButPairs;
  as_of_ = filled_as_of_ = now;
  disagree_ = false;
}

bool ListAgreement::KnowsPairsDistinct(const ModelData& data, Changes now) {
  if (Known(now)) return everywhere();
  if (extent_ != Extent::kAllButPairs || as_of_ != now) return false;
  if (std::any_of(data.Rows.begin(), data.Rows.end(), NamesAColumnTwiceRunning)) return false;
  extent_ = Extent::kAll;
  return true;
}

void ListAgreement::Examine(const ModelData& data, Changes now) {
  const bool only_pairs = extent_ == Extent::kAllButPairs && as_of_ == now;
  extent_ = Extent::kNothing;
  disagree_ = false;
  if (!only_pairs || std::any_of(data.Rows.begin(), data.Rows.end(), NamesAColumnTwiceRunning)) {
    disagree_ = Examination(data).FindsDisagreement();
  }
  extent_ = Extent::kAll;
  as_of_ = now;
}

}  // namespace quarvel::model
