#include "model/immediate_removal.h"

namespace quarvel::model {
namespace {

void LowerAbove(ElementList& list, std::int32_t number) {
  for (ElementEntry& entry : list) {
    if (entry.Index > number) --entry.Index;
  }
}

template <class Record>
void RemoveRecord(OneBased<Record>& records, std::int32_t number, std::int32_t& count) {
  records.Remove(number);
  --count;
  if (count == 0) records.Release();
}

}  // namespace

bool DropFirst(ElementList& list, std::int32_t number) {
  for (std::int32_t k = 1; k <= list.size(); ++k) {
    if (list[k].Index != number) continue;
    list.Remove(k);
    return true;
  }
  return false;
}

void RemoveRowNow(StoredModel& model, std::int32_t r) {
  ModelData& data = model.data;
  RemoveRecord(data.Rows, r, data.NumberOfRows);
  model.row_names.MarkStale();
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    ElementList& list = data.Columns[c].Elements;
    if (DropFirst(list, r)) --data.NumberOfElements;
    LowerAbove(list, r);
  }
}

void RemoveColumnNow(StoredModel& model, std::int32_t c) {
  ModelData& data = model.data;
  RemoveRecord(data.Columns, c, data.NumberOfColumns);
  model.column_names.MarkStale();
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    ElementList& list = data.Rows[r].Elements;
    if (DropFirst(list, c)) --data.NumberOfElements;
    LowerAbove(list, c);
  }
}

}  // namespace quarvel::model
