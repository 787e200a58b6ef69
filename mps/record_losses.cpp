#include "mps/record_losses.h"

#include "model/record_number.h"
#include "model/record_types.h"

namespace quarvel::mps {

std::string_view ReversedWords(const model::Bounds& bounds) {
  return model::AreReversed(bounds) ? "are reversed" : "the component takes for reversed";
}

void RecordLosses::AddRow(LossKind kind, std::int32_t row, const std::string& words) const {
  losses_.Add(kind, [&] { return Loss{"row", model::Public(row), data_.Rows[row].Name, words}; });
}

void RecordLosses::AddColumn(LossKind kind, std::int32_t column, const std::string& words) const {
  losses_.Add(kind, [&] {
    return Loss{"column", model::Public(column), data_.Columns[column].Name, words};
  });
}

void RecordLosses::AddLimits(std::int32_t number, const model::Bounds& back, bool changes) const {
  const model::RowRecord& row = data_.Rows[number];
  const model::RowType type = model::RowTypeOf(back.LowerBound, back.UpperBound);
  const bool is_reversed = StopsAt(row);
  if (AreSame(row, back) && type == row.Type && !is_reversed) return;
  const std::string limits =
      "of type " + model::TypeText(row.Type) + " has the limits " + IntervalText(row) + ", which ";
  const std::string becomes = limits + "read back as " + IntervalText(back);
  if (row.Type == model::RowType::kFree) {
    return AddRow(LossKind::kFreeRowLimits, number, becomes + ": this type limits nothing");
  }
  if (is_reversed)
    return AddRow(LossKind::kReversed, number, limits + std::string(ReversedWords(row)));
  if (changes) return AddRow(LossKind::kRowLimits, number, becomes);
  if (!AreSame(row, back)) AddRow(LossKind::kDigits, number, becomes);
  if (type != row.Type) {
    AddRow(LossKind::kRowType, number, limits + "read back as type " + model::TypeText(type));
  }
}

}  // namespace quarvel::mps
