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
  explicit Examination(const ModelData& data)
      : data_(data),
        odd_rows_(Offset(data.NumberOfRows) + 1),
        odd_columns_(Offset(data.NumberOfColumns) + 1) {}

  void Run() {
    CollectRowsOfColumns();
    Numbers seen(odd_rows_.size(), 0);
    for (std::int32_t c = 1; c <= data_.NumberOfColumns; ++c) CompareColumn(c, seen);
  }

  bool found_any() const { return found_any_; }
  std::vector<bool>& odd_rows() { return odd_rows_; }
  std::vector<bool>& odd_columns() { return odd_columns_; }

 private:
  // The rows that name column c stand in rows_ from starts_[c] up to starts_[c + 1].
  void CollectRowsOfColumns() {
    starts_.assign(odd_columns_.size() + 1, 0);
    ForEachRowEntry([this](std::int32_t, std::int32_t c) { ++starts_[Offset(c) + 1]; });
    for (std::size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
    rows_.resize(starts_.back());
    std::vector<std::size_t> next = starts_;
    ForEachRowEntry(
        [this, &next](std::int32_t r, std::int32_t c) { rows_[next[Offset(c)]++] = r; });
  }

  template <class Visit>
  void ForEachRowEntry(const Visit& visit) {
    for (std::int32_t r = 1; r <= data_.NumberOfRows; ++r) {
      for (const ElementEntry& entry : data_.Rows[r].Elements) {
        if (IsNumber(entry.Index, data_.NumberOfColumns)) {
          visit(r, entry.Index);
        } else {
          MarkRow(r);
        }
      }
    }
  }

  // seen[r]: c while row r names column c, -c once the column's list has named it back.
  void CompareColumn(std::int32_t c, Numbers& seen) {
    for (std::size_t i = starts_[Offset(c)]; i < starts_[Offset(c) + 1]; ++i) {
      if (seen[Offset(rows_[i])] == c) MarkPair(rows_[i], c);
      seen[Offset(rows_[i])] = c;
    }
    for (const ElementEntry& entry : data_.Columns[c].Elements) {
      if (!IsNumber(entry.Index, data_.NumberOfRows)) {
        MarkColumn(c);
        continue;
      }
      if (seen[Offset(entry.Index)] != c) MarkPair(entry.Index, c);
      seen[Offset(entry.Index)] = -c;
    }
    for (std::size_t i = starts_[Offset(c)]; i < starts_[Offset(c) + 1]; ++i) {
      if (seen[Offset(rows_[i])] != -c) MarkPair(rows_[i], c);
    }
  }

  void MarkRow(std::int32_t r) {
    odd_rows_[Offset(r)] = true;
    found_any_ = true;
  }
  void MarkColumn(std::int32_t c) {
    odd_columns_[Offset(c)] = true;
    found_any_ = true;
  }
  void MarkPair(std::int32_t r, std::int32_t c) {
    MarkRow(r);
    MarkColumn(c);
  }

  const ModelData& data_;
  std::vector<bool> odd_rows_;
  std::vector<bool> odd_columns_;
  std::vector<std::size_t> starts_;
  Numbers rows_;
  bool found_any_ = false;
};

bool NamesAColumnTwiceRunning(const RowRecord& row) {
  return std::adjacent_find(row.Elements.begin(), row.Elements.end(),
                            [](const ElementEntry& one, const ElementEntry& other) {
                              return one.Index == other.Index;
                            }) != row.Elements.end();
}

}  // namespace

void ListAgreement::Forget() {
  extent_ = Extent::kNothing;
  odd_rows_ = std::vector<bool>();
  odd_columns_ = std::vector<bool>();
}

void ListAgreement::NoteFilled(Changes now) {
  Forget();
  extent_ = Extent::kAllButPairs;
  as_of_ = now;
}

void ListAgreement::Examine(const ModelData& data, Changes now) {
  const bool only_pairs = extent_ == Extent::kAllButPairs && as_of_ == now;
  Forget();
  if (!only_pairs || std::any_of(data.Rows.begin(), data.Rows.end(), NamesAColumnTwiceRunning)) {
    Examination examination(data);
    examination.Run();
    if (examination.found_any()) {
      odd_rows_.swap(examination.odd_rows());
      odd_columns_.swap(examination.odd_columns());
    }
  }
  extent_ = Extent::kAll;
  as_of_ = now;
}

}  // namespace quarvel::model
