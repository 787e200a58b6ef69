// A model in numbers: kinds of records, sizes of numbers, lengths of lists, and families of names.
//
// Numbers of records count from 1, 0 is none. A bound at or beyond model::BoundLimit is none. Numbers of
// the model are finite.
//
// Cost: one pass over the row lists and one over the column lists; 8 bytes for each record, and what the
// families take, of which there are as many as patterns of names (name_families.h).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "inspect/number_sizes.h"
#include "model/model_store.h"

namespace quarvel::inspect {

// What the bounds of a column leave of the line of numbers. In the order in which lists tell of them.
enum class BoundShape : std::uint8_t {
  kNonNegative,  // from 0 on
  kLowerOnly,    // from another number on
  kUpperOnly,
  kZeroOne,  // from 0 to 1
  kBoxed,    // between two other numbers
  kFixed,
  kFree,
  kCrossed,  // the lower bound is above the upper one
};
inline constexpr std::size_t kBoundShapes = static_cast<std::size_t>(BoundShape::kCrossed) + 1;
BoundShape ShapeOf(const model::Bounds& bounds);

struct ValueRange {
  double from = 0;
  double to = 0;
  bool is_empty = true;

  void Add(double value);
  void Add(const ValueRange& other);
};

// The coefficients of some records, put together.
struct ElementRange {
  std::int64_t count = 0;
  ValueRange values;
  ValueRange sizes;  // magnitudes

  void Add(const ElementRange& other);
};

struct RecordLengths {
  std::int32_t empty = 0;
  std::int32_t shortest = 0;  // numbers of the first such records
  std::int32_t longest = 0;
  double mean = 0;
  double median = 0;
};

// The records whose names have one pattern.
struct RecordFamily {
  std::string pattern;
  std::int32_t count = 0;
  std::int32_t first = 0;                                        // number of its first record
  std::array<std::int32_t, model::kRowTypes.size()> types = {};  // by RowType, or by ColumnType
  ValueRange lower;                                              // -BoundLimit for none
  ValueRange upper;                                              // +BoundLimit for none
  ElementRange elements;
};

struct ModelStats {
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  std::int64_t elements = 0;
  double density = 0;  // elements / (rows * columns)

  std::array<std::int32_t, model::kRowTypes.size()> row_types = {};
  // By type and shape of the bounds.
  std::array<std::array<std::int32_t, kBoundShapes>, model::kColumnTypes.size()> column_types = {};

  NumberSizes coefficients;  // of rows that bind
  NumberSizes objective;     // of the others
  // The limits that rows which bind have: one of most, both of a ranged row.
  NumberSizes right_hand_sides;
  NumberSizes bounds;  // of columns, that are there

  RecordLengths row_lengths;
  RecordLengths column_lengths;

  // Coefficients whose row stands before in the list of their column, and the first of them.
  std::int64_t duplicates = 0;
  PlacedNumber first_duplicate;

  // The biggest first, and of two as big the one that begins earlier.
  std::vector<RecordFamily> row_families;
  std::vector<RecordFamily> column_families;
};

ModelStats StatsOf(const model::ModelStore& store);

}  // namespace quarvel::inspect
