// Changes of coefficients in a model in which there may be gaps, by position.

#include <algorithm>

#include "model/deferred_work.h"

namespace quarvel::model {
namespace {

std::int32_t FirstIn(const ElementList& list, std::int32_t position, ListPlaces* places) {
  if (places != nullptr) return places->First(position);
  const auto found = std::find_if(list.begin(), list.end(), [position](const ElementEntry& entry) {
    return entry.Index == position;
  });
  return found == list.end() ? 0 : static_cast<std::int32_t>(found - list.begin()) + 1;
}

// Where places are known the others keep theirs.
void TakeOut(ElementList& list, std::int32_t place, ListPlaces* places) {
  if (places == nullptr) {
    list.Remove(place);
    return;
  }
  places->Remove(place, list[place].Index);
  list[place].Index = Gaps::kNowhere;
}

// Both or none.
void NotePlacesOfNew(const LongListsOfBoth& lists, std::int32_t row, std::int32_t column) {
  ListPlaces* const of_row = lists.rows.Known(row);
  ListPlaces* const of_column = lists.columns.Known(column);
  if (of_row != nullptr) of_row->Append(column);
  if (of_column == nullptr) return;
  try {
    of_column->Append(row);
  } catch (...) {
    if (of_row != nullptr) of_row->TakeBackAppend(column);
    throw;
  }
}

}  // namespace

std::int32_t DeferredWork::FirstInRow(std::int32_t row, std::int32_t column) {
  const ElementList& list = model_.data.Rows[row].Elements;
  return FirstIn(list, column, long_.rows.Find(row, list, removals_.columns));
}

std::int32_t DeferredWork::FirstInColumn(std::int32_t column, std::int32_t row) {
  const ElementList& list = model_.data.Columns[column].Elements;
  return FirstIn(list, row, long_.columns.Find(column, list, removals_.rows));
}

std::int32_t DeferredWork::PlaceInRow(std::int32_t position, std::int32_t k) {
  const Gaps& columns = removals_.columns;
  if (!columns.open()) return k;
  const ElementList& list = model_.data.Rows[position].Elements;
  return PlaceOfKth(k, list, columns, long_.rows.Find(position, list, columns));
}

std::int32_t DeferredWork::FindElement(std::int32_t r, std::int32_t c) {
  ReadyForElements();
  const std::int32_t row = RowPosition(r);
  const std::int32_t place = FirstInRow(row, ColumnPosition(c));
  const Gaps& columns = removals_.columns;
  if (place == 0 || !columns.open()) return place;
  if (const ListPlaces* places = long_.rows.Known(row)) return places->NumberOf(place);
  const ElementList& list = model_.data.Rows[row].Elements;
  return static_cast<std::int32_t>(
      std::count_if(list.begin(), list.begin() + place,
                    [&](const ElementEntry& entry) { return !columns.IsGone(entry.Index); }));
}

void DeferredWork::AddElement(std::int32_t r, std::int32_t c, double value) {
  CheckOneMore(model_.data.NumberOfElements);
  ReadyForElements();
  ModelData& data = model_.data;
  const std::int32_t row = RowPosition(r);
  const std::int32_t column = ColumnPosition(c);
  ElementList& row_list = data.Rows[row].Elements;
  ElementList& column_list = data.Columns[column].Elements;
  const auto is_new = [&] {
    return row_list.size() <= column_list.size() ? FirstInRow(row, column) == 0
                                                 : FirstInColumn(column, row) == 0;
  };
  const bool agrees = agreement_.WillSurviveNewPair() && is_new();
  row_list.MakeRoom();
  column_list.MakeRoom();
  NotePlacesOfNew(long_, row, column);
  row_list.Append({column, value});
  column_list.Append({row, value});
  if (removals_.columns.open()) ++removals_.left_in_rows[row];
  if (!removals_.left_in_columns.empty()) ++removals_.left_in_columns[column];
  ++data.NumberOfElements;
  if (agrees) {
    NoteAgreeingChange();
  } else {
    NoteChange();
  }
}

void DeferredWork::SetElementValue(std::int32_t r, std::int32_t k, double value) {
  ReadyForElements();
  ModelData& data = model_.data;
  const std::int32_t row = RowPosition(r);
  ElementEntry& element = data.Rows[row].Elements[PlaceInRow(row, k)];
  const std::int32_t column = element.Index;
  const bool is_stored = column >= 1 && column <= data.Columns.size();
  const std::int32_t place = is_stored ? FirstInColumn(column, row) : 0;
  element.Value = value;  // even when its column raises
  agreement_.NoteValueSet();
  ElementList& column_list = data.Columns[column].Elements;
  if (place != 0) column_list[place].Value = value;
}

// What a long list loses stays in it as a gap until gaps are closed.
void DeferredWork::RemoveElement(std::int32_t r, std::int32_t k) {
  ReadyForElements();
  ModelData& data = model_.data;
  const std::int32_t row = RowPosition(r);
  ElementList& row_list = data.Rows[row].Elements;
  long_.rows.Find(row, row_list, removals_.columns);  // moving what stands behind is a walk too
  const std::int32_t place = PlaceInRow(row, k);
  const std::int32_t column = row_list[place].Index;
  ElementList& column_list = data.Columns[column].Elements;
  const std::int32_t column_place = FirstInColumn(column, row);
  ListPlaces* const row_places = long_.rows.Known(row);
  ListPlaces* const column_places = long_.columns.Known(column);
  if (row_places != nullptr) removals_.OpenColumns(model_);
  if (column_places != nullptr) removals_.OpenRows(model_);
  model_.ready.SetSettled(empty() && removals_.empty(), data);
  if (column_place != 0) TakeOut(column_list, column_place, column_places);
  TakeOut(row_list, place, row_places);
  if (removals_.columns.open()) --removals_.left_in_rows[row];
  if (column_place != 0 && !removals_.left_in_columns.empty()) {
    --removals_.left_in_columns[column];
  }
  --data.NumberOfElements;
  NoteAgreeingChange();
}

}  // namespace quarvel::model
