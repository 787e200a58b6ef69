#include "model/deferred_work.h"

#include <utility>

#include "model/row_lists.h"

namespace quarvel::model {
namespace {

// The record at a position as it is seen without gaps of the other kind.
template <class Record>
void ShowWithoutGaps(const Record& stored, const Gaps& others, Record& seen) {
  seen.LowerBound = stored.LowerBound;
  seen.UpperBound = stored.UpperBound;
  seen.Name = stored.Name;
  seen.Type = stored.Type;
  seen.Elements.Release();
  for (const ElementEntry& entry : stored.Elements) {
    if (others.IsDead(entry.Index)) continue;
    seen.Elements.Append({others.NumberOf(entry.Index), entry.Value});
  }
}

}  // namespace

DeferredWork::DeferredWork(StoredModel& model, const DeferredWork& other)
    : model_(model),
      removals_(other.removals_),
      row_indexes_(other.row_indexes_),
      changes_(other.changes_),
      agreement_(other.agreement_) {
  model_.ready.SetSettled(other.empty(), model_.data);
}

void DeferredWork::DeferRowLists() {
  model_.row_lists_behind = true;
  model_.ready.SetSettled(false, model_.data);
}

void DeferredWork::Settle(bool with_row_lists) {
  if (with_row_lists) FillRowListsIfBehind();
  CloseAllGaps();
  model_.ready.SetSettled(!model_.row_lists_behind, model_.data);
}

// Walking the columns in order meets the coefficients in the order in which a read appended them,
// as long as no column was taken up again; a read settles the row lists then and keeps them up to
// date itself.
void DeferredWork::FillRowListsThatAreBehind() {
  FillRowLists(model_);
  model_.row_lists_behind = false;
  long_.Clear();
  agreement_.NoteFilled(++changes_);
}

void DeferredWork::HandOver() {
  if (removals()) Settle();
  long_.Clear();
  row_indexes_.NoteMoved();
}

// What disagreed may have gone.
void DeferredWork::CloseAllGaps() {
  if (!removals_.empty()) {
    CloseGaps(model_, removals_);
    long_.Clear();
    row_indexes_.NoteMoved();
    paid_ = 0;
    if (agreement_.everywhere()) {
      NoteAgreeingChange();
    } else {
      NoteChange();
    }
  }
  row_indexes_.CatchUp(model_.data);
}

void DeferredWork::NoteEmptied() {
  removals_.Clear();
  row_indexes_.Forget();
  paid_ = 0;
  long_.Clear();
  model_.row_lists_behind = false;
  model_.ready.Clear();
  agreement_.NoteFilled(++changes_);
}

// An eighth of a pass: copies of lists cost more than a pass does for each coefficient.
bool DeferredWork::LooksHavePaid(std::int32_t elements) {
  constexpr std::int64_t kLook = 8;
  paid_ += kLook + elements;
  const ModelData& data = model_.data;
  const std::int64_t pass =
      std::int64_t{data.Rows.size()} + data.Columns.size() + data.NumberOfElements;
  return paid_ > pass / 8;
}

const RowRecord& DeferredWork::Row(std::int32_t number) {
  FillRowListsIfBehind();
  const RowRecord& stored = model_.data.Rows[RowPosition(number)];
  if (!removals_.columns.open()) return stored;
  if (LooksHavePaid(stored.ElementCount())) {
    Settle();
    return model_.data.Rows[number];
  }
  ShowWithoutGaps(stored, removals_.columns, seen_row_);
  return seen_row_;
}

const ColumnRecord& DeferredWork::Column(std::int32_t number) {
  FillRowListsIfBehind();
  const ColumnRecord& stored = model_.data.Columns[ColumnPosition(number)];
  if (!removals_.rows.open()) return stored;
  if (LooksHavePaid(stored.ElementCount())) {
    Settle();
    return model_.data.Columns[number];
  }
  ShowWithoutGaps(stored, removals_.rows, seen_column_);
  return seen_column_;
}

std::int32_t DeferredWork::ElementsInRow(std::int32_t number) {
  FillRowListsIfBehind();
  const std::int32_t position = RowPosition(number);
  return removals_.columns.open() ? removals_.left_in_rows[position]
                                  : model_.data.Rows[position].ElementCount();
}

}  // namespace quarvel::model
