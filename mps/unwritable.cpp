#include "mps/unwritable.h"

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "model/record_number.h"
#include "mps/list_losses.h"
#include "mps/name_losses.h"
#include "mps/order_losses.h"
#include "mps/read_back.h"
#include "mps/record_losses.h"
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

// Whether both say the same but for the digits of a value: what is absent, what is equal.
bool AreAlike(const Bounds& a, const Bounds& b) {
  return model::HasLower(a.LowerBound) == model::HasLower(b.LowerBound) &&
         model::HasUpper(a.UpperBound) == model::HasUpper(b.UpperBound) &&
         (a.LowerBound == a.UpperBound) == (b.LowerBound == b.UpperBound) &&
         b.LowerBound <= b.UpperBound;
}

// One of the bounds is absent, and the other is the same number. Of bounds that are both beyond the limit
// the file said what it says again.
bool IsWrittenAsFixed(const Bounds& bounds) {
  return bounds.LowerBound == bounds.UpperBound && std::fabs(bounds.LowerBound) == BoundLimit;
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
    if (!AddListLosses(store_, losses_)) return std::move(losses_);
    AddTextLosses(data_, FileLayout::kFixed, losses_);
    for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) CheckColumn(j);
    for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) CheckRow(i);
    AddOrderLosses(data_, FileLayout::kFixed, losses_);
    AddNameLosses(store_, FileLayout::kFixed, losses_);
    return std::move(losses_);
  }

 private:
  void CheckColumn(std::int32_t j);
  void CheckBounds(std::int32_t j);
  void CheckElements(std::int32_t j);
  void CheckDigits(std::int32_t j, const ElementEntry& element, double back);
  void NoteVanished(std::int32_t j, const ElementEntry& element);
  void CheckRow(std::int32_t i);
  void CheckLimits(std::int32_t i);

  const model::ModelStore& store_;
  const ModelData& data_;
  Losses losses_;
  RecordLosses told_{data_, FileLayout::kFixed, losses_};
  std::vector<std::int32_t> vanished_;  // coefficients of each row; empty as long as there are none
};

void LossFinder::CheckColumn(std::int32_t j) {
  const ColumnRecord& column = data_.Columns[j];
  if (column.ElementCount() == 0) {
    if (!HasBoundLine(column))
      return told_.AddColumn(LossKind::kEmptyColumn, j, "is left out: it has no elements");
    return told_.AddColumn(LossKind::kLimitOfEmpty, j,
                           "has no elements, so that its bounds " + IntervalText(column) +
                               " are those of a column that the file does not have");
  }
  if (column.Type != ColumnType::kInteger && column.Type != ColumnType::kContinuous) {
    told_.AddColumn(LossKind::kColumnType, j, "reads back with type R");
  }
  CheckBounds(j);
  CheckElements(j);
}

void LossFinder::CheckBounds(std::int32_t j) {
  const ColumnRecord& column = data_.Columns[j];
  if (!AreFinite(column))
    return told_.AddColumn(LossKind::kNotFinite, j, "has a bound that is no number");
  // Most columns lose nothing: no text is made for them.
  const auto bounds = [&column] { return "has the bounds " + IntervalText(column) + ", which "; };
  if (told_.StopsAt(column)) {
    return told_.AddColumn(LossKind::kReversed, j, bounds() + std::string(ReversedWords(column)));
  }
  if (IsWrittenAsFixed(column)) {
    return told_.AddColumn(LossKind::kColumnBounds, j,
                           bounds() + "are written as FX, as which other programs read them");
  }
  const Bounds back = BoundsReadBack(column);
  if (AreSame(column, back)) return;
  told_.AddColumn(AreAlike(column, back) ? LossKind::kDigits : LossKind::kColumnBounds, j,
                  bounds() + "read back as " + IntervalText(back));
}

void LossFinder::CheckElements(std::int32_t j) {
  bool keeps_any = false;
  for (const ElementEntry& element : data_.Columns[j].Elements) {
    const double back = ValueReadBack(element.Value);
    if (back == 0) {
      NoteVanished(j, element);
    } else {
      keeps_any = true;
      CheckDigits(j, element, back);
    }
  }
  if (!keeps_any) {
    told_.AddColumn(LossKind::kEmptied, j, "would be left without elements: all are written as 0");
  }
}

void LossFinder::CheckDigits(std::int32_t j, const ElementEntry& element, double back) {
  if (back == element.Value) return;
  if (!std::isfinite(element.Value)) {
    return told_.AddColumn(LossKind::kNotFinite, j, "has an element that is no number");
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
      return told_.AddRow(LossKind::kEmptyRow, i, "is left out: it has no elements");
    return told_.AddRow(LossKind::kLimitOfEmpty, i,
                        "has no elements, so that its limits " + IntervalText(row) +
                            " are those of a row that the file does not have");
  }
  const auto place = static_cast<std::size_t>(i);
  if (place < vanished_.size() && vanished_[place] == row.ElementCount()) {
    told_.AddRow(LossKind::kEmptied, i, "would be left without elements: all are written as 0");
  }
  if (row.Type == RowType::kNone) return told_.AddRow(LossKind::kNoRowType, i, "has no type");
  CheckLimits(i);
}

void LossFinder::CheckLimits(std::int32_t i) {
  const RowRecord& row = data_.Rows[i];
  if (!AreFinite(row))
    return told_.AddRow(LossKind::kNotFinite, i, "has a limit that is no number");
  const Bounds back = LimitsReadBack(row);
  told_.AddLimits(i, back, !TypeSaysItsLimits(row) || !AreAlike(row, back));
}

}  // namespace

Losses LossesOf(const model::ModelStore& store) { return LossFinder(store).Find(); }

}  // namespace quarvel::mps
