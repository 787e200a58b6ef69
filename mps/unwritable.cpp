#include "mps/unwritable.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "model/record_number.h"
#include "mps/name_losses.h"
#include "mps/read_back.h"
#include "mps/text_losses.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

using model::BoundLimit;
using model::Bounds;
using model::ColumnRecord;
using model::ColumnType;
using model::ElementEntry;
using model::ModelData;
using model::RowRecord;
using model::RowType;

bool AreSame(const Bounds& a, const Bounds& b) {
  return a.LowerBound == b.LowerBound && a.UpperBound == b.UpperBound;
}

bool AreFinite(const Bounds& bounds) {
  return std::isfinite(bounds.LowerBound) && std::isfinite(bounds.UpperBound);
}

// Whether both say the same but for the digits of a value: what is absent, what is equal.
bool AreAlike(const Bounds& a, const Bounds& b) {
  return model::HasLower(a.LowerBound) == model::HasLower(b.LowerBound) &&
         model::HasUpper(a.UpperBound) == model::HasUpper(b.UpperBound) &&
         (a.LowerBound == a.UpperBound) == (b.LowerBound == b.UpperBound) &&
         b.LowerBound <= b.UpperBound;
}

std::string BoundWord(double bound) {
  if (bound == BoundLimit) return "inf";
  if (bound == -BoundLimit) return "-inf";
  return text::RoundTripText(bound);
}

std::string Interval(const Bounds& bounds) {
  return '[' + BoundWord(bounds.LowerBound) + ", " + BoundWord(bounds.UpperBound) + ']';
}

// Whether the row has no other limits than those its type speaks of.
bool TypeSaysItsLimits(const RowRecord& row) {
  switch (row.Type) {
    case RowType::kEqual:
      return row.LowerBound == row.UpperBound;
    case RowType::kGreater:
      return row.UpperBound == BoundLimit;
    case RowType::kLess:
      return row.LowerBound == -BoundLimit;
    case RowType::kNone:
    case RowType::kFree:
    case RowType::kRanged:
      break;
  }
  return true;
}

// Walks a model and gathers its losses.
class LossFinder {
 public:
  explicit LossFinder(const model::ModelStore& store) : store_(store), data_(store.data()) {}

  Losses Find() {
    AddTextLosses(data_, losses_);
    for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) CheckColumn(j);
    for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) CheckRow(i);
    CheckColumnOrder();
    CheckElementOrder();
    AddNameLosses(store_, losses_);
    return std::move(losses_);
  }

 private:
  static bool IsInteger(const ColumnRecord& column) { return column.Type == ColumnType::kInteger; }

  void AddRow(LossKind kind, std::int32_t i, const std::string& words) {
    losses_.Add(kind, [&] { return Loss{"row", model::Public(i), data_.Rows[i].Name, words}; });
  }
  void AddColumn(LossKind kind, std::int32_t j, const std::string& words) {
    losses_.Add(kind, [&] {
      return Loss{"column", model::Public(j), data_.Columns[j].Name, words};
    });
  }

  void CheckColumn(std::int32_t j);
  void CheckBounds(std::int32_t j);
  void CheckElements(std::int32_t j);
  void CheckElement(std::int32_t j, const ElementEntry& element, std::int32_t& kept);
  void NoteVanished(std::int32_t j, const ElementEntry& element);
  void CheckRow(std::int32_t i);
  void CheckLimits(std::int32_t i);
  void CheckColumnOrder();
  void CheckElementOrder();
  bool MeetsARowTwice() const;
  std::vector<bool> RowsInAnotherOrder() const;

  const model::ModelStore& store_;
  const ModelData& data_;
  Losses losses_;
  std::vector<std::int32_t> vanished_;  // coefficients of each row; empty as long as there are none
};

void LossFinder::CheckColumn(std::int32_t j) {
  const ColumnRecord& column = data_.Columns[j];
  if (column.ElementCount() == 0) {
    if (!HasBoundLine(column))
      return AddColumn(LossKind::kEmptyColumn, j, "is left out: it has no elements");
    return AddColumn(LossKind::kLimitOfEmpty, j,
                     "has no elements, so that its bounds " + Interval(column) +
                         " are those of a column that the file does not have");
  }
  if (!IsInteger(column) && column.Type != ColumnType::kContinuous) {
    AddColumn(LossKind::kColumnType, j, "reads back with type R");
  }
  CheckBounds(j);
  CheckElements(j);
}

void LossFinder::CheckBounds(std::int32_t j) {
  const ColumnRecord& column = data_.Columns[j];
  if (!AreFinite(column))
    return AddColumn(LossKind::kNotFinite, j, "has a bound that is no number");
  if (column.LowerBound > column.UpperBound) {
    return AddColumn(LossKind::kReversed, j,
                     "has the bounds " + Interval(column) + ", which are reversed");
  }
  const Bounds back = BoundsReadBack(column);
  if (AreSame(column, back)) return;
  AddColumn(AreAlike(column, back) ? LossKind::kDigits : LossKind::kColumnBounds, j,
            "has the bounds " + Interval(column) + ", which read back as " + Interval(back));
}

void LossFinder::CheckElements(std::int32_t j) {
  std::int32_t kept = 0;
  for (const ElementEntry& element : data_.Columns[j].Elements) CheckElement(j, element, kept);
  if (kept == 0) {
    AddColumn(LossKind::kEmptied, j, "would be left without elements: all are written as 0");
  }
}

void LossFinder::CheckElement(std::int32_t j, const ElementEntry& element, std::int32_t& kept) {
  const double back = ValueReadBack(element.Value);
  if (back == 0) return NoteVanished(j, element);
  ++kept;
  if (back == element.Value) return;
  if (!std::isfinite(element.Value)) {
    return AddColumn(LossKind::kNotFinite, j, "has an element that is no number");
  }
  losses_.Add(LossKind::kDigits, [&] {
    return Loss{"column", model::Public(j), data_.Columns[j].Name,
                "has the element " + text::RoundTripText(element.Value) + " at row " +
                    data_.Rows[element.Index].Name + ", which reads back as " +
                    text::RoundTripText(back)};
  });
}

void LossFinder::NoteVanished(std::int32_t j, const ElementEntry& element) {
  if (vanished_.empty()) vanished_.resize(static_cast<std::size_t>(data_.NumberOfRows) + 1);
  const auto row = static_cast<std::size_t>(element.Index);
  if (row < vanished_.size()) ++vanished_[row];
  losses_.Add(LossKind::kVanishes, [&] {
    return Loss{"column", model::Public(j), data_.Columns[j].Name,
                "has the element " + text::RoundTripText(element.Value) + " at row " +
                    data_.Rows[element.Index].Name + ", which is written as 0 and left out"};
  });
}

void LossFinder::CheckRow(std::int32_t i) {
  const RowRecord& row = data_.Rows[i];
  if (row.ElementCount() == 0) {
    if (!HasLimitLine(row))
      return AddRow(LossKind::kEmptyRow, i, "is left out: it has no elements");
    return AddRow(LossKind::kLimitOfEmpty, i,
                  "has no elements, so that its limits " + Interval(row) +
                      " are those of a row that the file does not have");
  }
  const auto place = static_cast<std::size_t>(i);
  if (place < vanished_.size() && vanished_[place] == row.ElementCount()) {
    AddRow(LossKind::kEmptied, i, "would be left without elements: all are written as 0");
  }
  if (row.Type == RowType::kNone) return AddRow(LossKind::kNoRowType, i, "has no type");
  CheckLimits(i);
}

void LossFinder::CheckLimits(std::int32_t i) {
  const RowRecord& row = data_.Rows[i];
  if (!AreFinite(row)) return AddRow(LossKind::kNotFinite, i, "has a limit that is no number");
  const Bounds back = LimitsReadBack(row);
  const RowType type = model::RowTypeOf(back.LowerBound, back.UpperBound);
  if (AreSame(row, back) && type == row.Type && row.LowerBound <= row.UpperBound) return;
  const std::string limits =
      "of type " + model::TypeText(row.Type) + " has the limits " + Interval(row) + ", which ";
  const std::string becomes = limits + "read back as " + Interval(back);
  if (row.Type == RowType::kFree) return AddRow(LossKind::kFreeRowLimits, i, becomes);
  if (row.LowerBound > row.UpperBound) {
    return AddRow(LossKind::kReversed, i, limits + "are reversed");
  }
  if (!TypeSaysItsLimits(row) || !AreAlike(row, back)) {
    return AddRow(LossKind::kRowLimits, i, becomes);
  }
  if (!AreSame(row, back)) AddRow(LossKind::kDigits, i, becomes);
  if (type != row.Type) {
    AddRow(LossKind::kRowType, i, limits + "read back as type " + model::TypeText(type));
  }
}

// Integer columns stand behind all others.
void LossFinder::CheckColumnOrder() {
  std::int32_t integers = 0;
  for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
    const ColumnRecord& column = data_.Columns[j];
    if (IsInteger(column)) {
      if (column.ElementCount() > 0) ++integers;
    } else if (integers > 0 && column.ElementCount() > 0) {
      AddColumn(LossKind::kColumnOrder, j, "stands before the integer columns in the file");
    }
  }
}

// The file gives the elements of a row in the order of its columns, and those at one column in that
// column's order.
void LossFinder::CheckElementOrder() {
  const std::vector<bool> exact = MeetsARowTwice() ? RowsInAnotherOrder() : std::vector<bool>();
  for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
    std::int64_t last = 0;
    bool moved = !exact.empty() && exact[static_cast<std::size_t>(i)];
    for (const ElementEntry& element : data_.Rows[i].Elements) {
      const bool integer = IsInteger(data_.Columns[element.Index]);
      const std::int64_t place = element.Index + (integer ? std::int64_t{1} << 32 : 0);
      moved = moved || place < last;
      last = place;
    }
    if (moved) AddRow(LossKind::kElementOrder, i, "reads back with its elements in another order");
  }
}

// Whether some row has two different values in a row at one column.
bool LossFinder::MeetsARowTwice() const {
  return std::any_of(data_.Rows.begin(), data_.Rows.end(), [](const RowRecord& row) {
    return std::adjacent_find(row.Elements.begin(), row.Elements.end(),
                              [](const ElementEntry& a, const ElementEntry& b) {
                                return a.Index == b.Index && a.Value != b.Value;
                              }) != row.Elements.end();
  });
}

// By row; what stands at one column is compared with that column's list.
std::vector<bool> LossFinder::RowsInAnotherOrder() const {
  const auto size = static_cast<std::size_t>(data_.Rows.size()) + 1;
  std::vector<bool> moved(size);
  std::vector<std::int32_t> met(size);
  for (const bool integers : {false, true}) {
    for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) {
      if (IsInteger(data_.Columns[j]) != integers) continue;
      for (const ElementEntry& element : data_.Columns[j].Elements) {
        const auto row = static_cast<std::size_t>(element.Index);
        const ElementEntry& there = data_.Rows[element.Index].Elements[++met[row]];
        if (there.Index != j || there.Value != element.Value) moved[row] = true;
      }
    }
  }
  return moved;
}

}  // namespace

Losses LossesOf(const model::ModelStore& store) { return LossFinder(store).Find(); }

}  // namespace quarvel::mps
