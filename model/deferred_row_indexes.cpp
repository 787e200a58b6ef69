#include "model/deferred_row_indexes.h"

#include "model/stored_model.h"

namespace quarvel::model {

bool DeferredRowIndexes::Append(std::int32_t number, std::int32_t last, RowType type) {
  const RowList list = ListOf(type);
  if (number <= listed_ && list != ListOf(RowType::kNone)) return false;
  appended_[Place(list)].push_back(last);
  return true;
}

void DeferredRowIndexes::Unmark(std::int32_t position) noexcept {
  for (CountedMarks& marks : marks_) {
    if (position <= marks.size()) marks.Unmark(position);
  }
}

void DeferredRowIndexes::NoteChanged(std::int32_t position, RowList list) noexcept {
  NoteGone(position);
  CountedMarks& marks = marks_[Place(list)];
  if (position <= marks.size()) marks.Mark(position);
}

void DeferredRowIndexes::NoteMoved() noexcept {
  for (CountedMarks& marks : marks_) marks.Clear();
}

// Positions up to that of the last listed row that have no marks yet.
void DeferredRowIndexes::MarkListed(const ModelData& data, const Gaps& rows) {
  if (listed_ == 0) return;
  const std::int32_t last = rows.PositionOf(listed_);
  for (std::int32_t position = marks_[0].size() + 1; position <= last; ++position) {
    const std::size_t kind = Place(ListOf(data.Rows[position].Type));
    const bool is_left = !rows.IsGone(position);
    for (CountedMarks& marks : marks_) marks.MakeRoom();
    marks_[kind].Append(is_left);
    marks_[1 - kind].Append(false);
  }
}

std::int32_t DeferredRowIndexes::Count(RowList list, const ModelData& data, const Gaps& rows) {
  MarkListed(data, rows);
  return marks_[Place(list)].count() + static_cast<std::int32_t>(appended_[Place(list)].size());
}

std::int32_t DeferredRowIndexes::At(RowList list, std::int32_t k, const ModelData& data,
                                    const Gaps& rows) {
  if (k < 1 || k > Count(list, data, rows)) RaiseSubscriptOutOfRange();
  const CountedMarks& marks = marks_[Place(list)];
  if (k <= marks.count()) return rows.NumberOf(marks.PositionOf(k));
  return appended_[Place(list)][static_cast<std::size_t>(k - marks.count() - 1)];
}

void DeferredRowIndexes::Forget() noexcept {
  due_ = false;
  for (Numbers& appended : appended_) appended.clear();
  NoteMoved();
}

void DeferredRowIndexes::CatchUp(ModelData& data) {
  if (!due_) return;
  RebuildRowIndexes(data, listed_);
  for (const RowList list : {RowList::kNonBinding, RowList::kBinding}) {
    for (const std::int32_t row : appended_[Place(list)]) AppendToRowIndex(data, row, list);
  }
  Forget();
}

void AppendToRowIndex(ModelData& data, std::int32_t last, RowList list) {
  const bool binds = list == RowList::kBinding;
  RowNumbers& index = binds ? data.BindingRows : data.NonBindingRows;
  index.Append(last);
  ++(binds ? data.NumberOfBindingRows : data.NumberOfNonBindingRows);
}

}  // namespace quarvel::model
