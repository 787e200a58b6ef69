#include "mps/exact_losses.h"

#include <cmath>
#include <string>
#include <utility>

#include "model/record_number.h"
#include "mps/exact_limits.h"
#include "mps/exact_writer.h"
#include "mps/fact_losses.h"
#include "mps/name_losses.h"
#include "mps/order_losses.h"
#include "mps/text_losses.h"
#include "mps/unwritable.h"

namespace quarvel::mps {
namespace {

using model::Bounds;
using model::ColumnRecord;
using model::ColumnType;
using model::ModelData;
using model::RowRecord;
using model::RowType;

bool AreFinite(const Bounds& bounds) {
  return std::isfinite(bounds.LowerBound) && std::isfinite(bounds.UpperBound);
}

class ExactLossFinder {
 public:
  ExactLossFinder(const model::ModelStore& store, const FileFacts& facts)
      : store_(store), data_(store.data()), facts_(facts), objective_(ObjectiveOf(data_, facts)) {}

  Losses Find() {
    AddTextLosses(data_, FileLayout::kFree, losses_);
    for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) CheckColumn(j);
    for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) CheckRow(i);
    AddOrderLosses(data_, FileLayout::kFree, losses_);
    AddFactLosses(store_, facts_, FileLayout::kFree, losses_);
    const bool keeps_blanks = NeedsFixedColumns(data_) && FitsFixedColumns();
    AddNameLosses(store_, FileLayout::kFree, losses_, keeps_blanks);
    return std::move(losses_);
  }

 private:
  void AddRow(LossKind kind, std::int32_t i, const std::string& words) {
    losses_.Add(kind, [&] { return Loss{"row", model::Public(i), data_.Rows[i].Name, words}; });
  }
  void AddColumn(LossKind kind, std::int32_t j, const std::string& words) {
    losses_.Add(kind, [&] {
      return Loss{"column", model::Public(j), data_.Columns[j].Name, words};
    });
  }

  void CheckColumn(std::int32_t j);
  void CheckRow(std::int32_t i);
  bool FitsFixedColumns() const;

  const model::ModelStore& store_;
  const ModelData& data_;
  const FileFacts& facts_;
  std::int32_t objective_;
  Losses losses_;
};

void ExactLossFinder::CheckColumn(std::int32_t j) {
  const ColumnRecord& column = data_.Columns[j];
  if (column.Type != ColumnType::kInteger && column.Type != ColumnType::kContinuous) {
    AddColumn(LossKind::kColumnType, j, "reads back with type R");
  }
  if (!AreFinite(column)) AddColumn(LossKind::kNotFinite, j, "has a bound that is no number");
  if (column.ElementCount() == 0 && data_.NumberOfRows == 0) {
    AddColumn(LossKind::kEmptyColumn, j, "is left out: there is no row for its line");
  }
  for (const model::ElementEntry& element : column.Elements) {
    if (!std::isfinite(element.Value)) {
      AddColumn(LossKind::kNotFinite, j, "has an element that is no number");
    }
    if (element.Value == 0) {
      AddColumn(LossKind::kVanishes, j,
                "has the element 0 at row " + data_.Rows[element.Index].Name +
                    ", which reads back as none");
    }
  }
}

void ExactLossFinder::CheckRow(std::int32_t i) {
  const RowRecord& row = data_.Rows[i];
  if (row.Type == RowType::kNone) return AddRow(LossKind::kNoRowType, i, "has no type");
  if (!AreFinite(row)) return AddRow(LossKind::kNotFinite, i, "has a limit that is no number");
  const Bounds back = RowLinesOf(row, i >= objective_).back;
  const RowType type = model::RowTypeOf(back.LowerBound, back.UpperBound);
  const bool is_same = back.LowerBound == row.LowerBound && back.UpperBound == row.UpperBound;
  if (is_same && type == row.Type) return;
  const std::string limits =
      "of type " + model::TypeText(row.Type) + " has the limits " + IntervalText(row) + ", which ";
  const std::string becomes = limits + "read back as " + IntervalText(back);
  if (row.Type == RowType::kFree) return AddRow(LossKind::kFreeRowLimits, i, becomes);
  if (row.LowerBound > row.UpperBound) {
    return AddRow(LossKind::kReversed, i, limits + "are reversed");
  }
  if (type != model::RowTypeOf(row.LowerBound, row.UpperBound)) {
    AddRow(LossKind::kRowLimits, i, becomes);
  } else if (!is_same) {
    AddRow(LossKind::kDigits, i, becomes);
  }
  if (type != row.Type) {
    AddRow(LossKind::kRowType, i, limits + "read back as type " + model::TypeText(type));
  }
}

bool ExactLossFinder::FitsFixedColumns() const {
  ExactWriter writer(store_, facts_);
  writer.Write([](std::string_view) {});
  return writer.fits_fixed_columns();
}

}  // namespace

Losses ExactLossesOf(const model::ModelStore& store, const FileFacts& facts) {
  return ExactLossFinder(store, facts).Find();
}

Losses LossesOf(const model::ModelStore& store, const FileFacts& facts, FileLayout layout) {
  if (layout == FileLayout::kFree) return ExactLossesOf(store, facts);
  Losses losses = LossesOf(store);
  AddFactLosses(store, facts, FileLayout::kFixed, losses);
  return losses;
}

}  // namespace quarvel::mps
