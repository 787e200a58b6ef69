#include "mps/exact_losses.h"

#include <cmath>
#include <string>
#include <utility>

#include "mps/exact_limits.h"
#include "mps/exact_writer.h"
#include "mps/fact_losses.h"
#include "mps/list_losses.h"
#include "mps/name_losses.h"
#include "mps/order_losses.h"
#include "mps/record_losses.h"
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

class ExactLossFinder {
 public:
  ExactLossFinder(const model::ModelStore& store, const FileFacts& facts)
      : store_(store), data_(store.data()), facts_(facts), objective_(ObjectiveOf(data_, facts)) {}

  Losses Find() {
    if (!AddListLosses(store_, losses_)) return std::move(losses_);
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
  void CheckColumn(std::int32_t j);
  void CheckRow(std::int32_t i);
  bool FitsFixedColumns() const;

  const model::ModelStore& store_;
  const ModelData& data_;
  const FileFacts& facts_;
  std::int32_t objective_;
  Losses losses_;
  RecordLosses told_{data_, FileLayout::kFree, losses_};
};

void ExactLossFinder::CheckColumn(std::int32_t j) {
  const ColumnRecord& column = data_.Columns[j];
  if (column.Type != ColumnType::kInteger && column.Type != ColumnType::kContinuous) {
    told_.AddColumn(LossKind::kColumnType, j, "reads back with type R");
  }
  if (!AreFinite(column)) told_.AddColumn(LossKind::kNotFinite, j, "has a bound that is no number");
  if (told_.StopsAt(column)) {
    told_.AddColumn(LossKind::kReversed, j,
                    "has the bounds " + IntervalText(column) + ", which are reversed");
  }
  if (column.ElementCount() == 0 && data_.NumberOfRows == 0) {
    told_.AddColumn(LossKind::kEmptyColumn, j, "is left out: there is no row for its line");
  }
  for (const model::ElementEntry& element : column.Elements) {
    if (!std::isfinite(element.Value)) {
      told_.AddColumn(LossKind::kNotFinite, j, "has an element that is no number");
    }
    if (element.Value == 0) {
      told_.AddColumn(LossKind::kVanishes, j,
                      "has the element 0 at row " + data_.Rows[element.Index].Name +
                          ", which reads back as none");
    }
  }
}

void ExactLossFinder::CheckRow(std::int32_t i) {
  const RowRecord& row = data_.Rows[i];
  if (row.Type == RowType::kNone) return told_.AddRow(LossKind::kNoRowType, i, "has no type");
  if (!AreFinite(row))
    return told_.AddRow(LossKind::kNotFinite, i, "has a limit that is no number");
  const Bounds back = RowLinesOf(data_, facts_, objective_, i).back;
  const RowType type = model::RowTypeOf(back.LowerBound, back.UpperBound);
  if (AreSame(row, back) && type == row.Type && !told_.StopsAt(row)) return;
  told_.AddLimits(i, back, type != model::RowTypeOf(row.LowerBound, row.UpperBound));
}

bool ExactLossFinder::FitsFixedColumns() const {
  ExactWriter writer(store_, facts_);
  writer.Write([](std::string_view) {});
  return !writer.long_field();
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
