// Of how many rows and columns a look needs nothing done and nothing else compared first: of all that are
// counted and stored while nothing is deferred, of none otherwise. Whoever gives records back or defers
// something says so before.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "model/model_data.h"

namespace quarvel::model {

class ReadyRecords {
 public:
  // Nothing is deferred.
  bool settled() const { return settled_; }
  std::size_t rows() const { return rows_; }
  std::size_t columns() const { return columns_; }

  void SetSettled(bool settled, const ModelData& data) {
    settled_ = settled;
    Count(data);
  }
  // Records were appended, or others taken over.
  void Count(const ModelData& data) {
    rows_ = settled_ ? Of(data.Rows, data.NumberOfRows) : 0;
    columns_ = settled_ ? Of(data.Columns, data.NumberOfColumns) : 0;
  }
  // All records are going, and nothing is deferred.
  void Clear() { *this = ReadyRecords(); }

 private:
  // Fields that were taken over may count more than they store.
  template <class Record>
  static std::size_t Of(const OneBased<Record>& records, std::int32_t count) {
    return static_cast<std::size_t>(std::clamp(count, 0, records.size()));
  }

  bool settled_ = true;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
};

}  // namespace quarvel::model
