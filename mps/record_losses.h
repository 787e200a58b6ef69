// What the look at a model before each layout (unwritable.h, exact_losses.h) has in common: telling of
// one row or column, and of the limits of a row that come back as others.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/model_data.h"
#include "mps/file_layout.h"
#include "mps/loss.h"

namespace quarvel::mps {

inline bool AreFinite(const model::Bounds& bounds) {
  return std::isfinite(bounds.LowerBound) && std::isfinite(bounds.UpperBound);
}

inline bool AreSame(const model::Bounds& a, const model::Bounds& b) {
  return a.LowerBound == b.LowerBound && a.UpperBound == b.UpperBound;
}

// "are reversed", or that they are so to the component alone.
std::string_view ReversedWords(const model::Bounds& bounds);

// Adds to the losses what is so of a record, by its stored number. Both must outlive it.
class RecordLosses {
 public:
  RecordLosses(const model::ModelData& data, FileLayout layout, Losses& losses)
      : data_(data), layout_(layout), losses_(losses) {}

  // Whether who reads the file back stops at such bounds of a record. The component, whose layout is the
  // fixed one, compares also what is stored for an absent bound.
  bool StopsAt(const model::Bounds& bounds) const {
    return layout_ == FileLayout::kFixed ? bounds.LowerBound > bounds.UpperBound
                                         : model::AreReversed(bounds);
  }

  void AddRow(LossKind kind, std::int32_t row, const std::string& words) const;
  void AddColumn(LossKind kind, std::int32_t column, const std::string& words) const;
  // For a row with a type and with limits that are numbers, which reads back with the limits `back`.
  // `changes`: what they limit is another thing then, not only in digits.
  void AddLimits(std::int32_t row, const model::Bounds& back, bool changes) const;

 private:
  const model::ModelData& data_;
  FileLayout layout_;
  Losses& losses_;
};

}  // namespace quarvel::mps
