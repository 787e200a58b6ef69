#include "model/deferred_work.h"

#include <algorithm>
#include <utility>

#include "model/immediate_removal.h"
#include "model/row_lists.h"
#include "model/stored_model.h"

namespace quarvel::model {

DeferredWork::DeferredWork(StoredModel& model, const DeferredWork& other)
    : model_(model),
      empty_(other.empty_),
      removals_(other.removals_),
      changes_(other.changes_),
      agreement_(other.agreement_) {}

void DeferredWork::DeferRowLists() {
  model_.row_lists_behind = true;
  empty_ = false;
}

// Walking the columns in order meets the coefficients in the order in which a read appended them,
// as long as no column was taken up again; a read settles the row lists then and keeps them up to
// date itself.
void DeferredWork::Settle() {
  if (std::exchange(model_.row_lists_behind, false)) {
    FillRowLists(model_);
    agreement_.NoteFilled(++changes_);
  }
  CloseAllGaps();
  empty_ = true;
}

// What disagrees is marked by position, and what lists say of numbers that are not there may come
// true once the gaps are closed.
void DeferredWork::CloseAllGaps() {
  if (removals_.empty()) return;
  CloseGaps(model_, removals_);
  if (agreement_.everywhere()) {
    NoteAgreeingChange();
  } else {
    NoteChange();
  }
}

// The row indexes outlive the rows, so they still hear of the gaps.
void DeferredWork::NoteEmptied() {
  model_.row_lists_behind = false;
  CloseAllGaps();
  empty_ = true;
  agreement_.NoteFilled(++changes_);
}

void DeferredWork::NoteAdding(std::int32_t r, std::int32_t c) {
  if (agreement_.WillSurvive(model_.data, r, c)) {
    NoteAgreeingChange();
  } else {
    NoteChange();
  }
}

std::int32_t DeferredWork::Position(Kind kind, std::int32_t number) {
  if (model_.row_lists_behind || removals_.HasOther(kind)) Settle();
  return removals_.Position(kind, number);
}

// Settles what must not be deferred while a record of that kind is: removals of the other kind, and
// so many removals behind this one that closing their gaps is no dearer than moving them. The
// agreement of the lists is known afterwards.
std::int32_t DeferredWork::PositionToRemove(Kind kind, std::int32_t number) {
  if (removals_.IsCostly(Position(kind, number))) Settle();
  if (!agreement_.Known(changes_)) {
    Settle();
    agreement_.Examine(model_.data, changes_);
  }
  return removals_.Position(kind, number);
}

void DeferredWork::Note(Kind kind, std::int32_t position, std::int32_t elements) {
  removals_.Note(kind, position);
  empty_ = false;
  model_.data.NumberOfElements -= elements;
  NoteAgreeingChange();
}

void DeferredWork::RemoveRow(std::int32_t number) {
  const std::int32_t position = PositionToRemove(Kind::kRows, number);
  if (agreement_.RowAgrees(position)) {
    Note(Kind::kRows, position, model_.data.Rows[position].ElementCount());
    --model_.data.NumberOfRows;
  } else {
    Settle();
    NoteChange();
    RemoveRowNow(model_, number);
  }
}

std::vector<std::int32_t> DeferredWork::RemoveColumn(std::int32_t number) {
  const std::int32_t position = PositionToRemove(Kind::kColumns, number);
  if (agreement_.ColumnAgrees(position)) return NoteColumn(position);
  Settle();
  NoteChange();
  return RemoveColumnNow(model_, number);
}

std::vector<std::int32_t> DeferredWork::NoteColumn(std::int32_t position) {
  ModelData& data = model_.data;
  const ElementList& list = data.Columns[position].Elements;
  OneBased<std::int32_t>& left = removals_.elements_left();
  if (left.empty() && !list.empty()) {
    left.Resize(data.NumberOfRows);
    for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) left[r] = data.Rows[r].ElementCount();
  }
  std::vector<std::int32_t> emptied;
  for (const ElementEntry& entry : list) {
    if (--left[entry.Index] == 0) emptied.push_back(entry.Index);
  }
  Note(Kind::kColumns, position, list.size());
  --data.NumberOfColumns;
  std::sort(emptied.begin(), emptied.end());
  return emptied;
}

}  // namespace quarvel::model
