// The parts of a store that belong together: the stored fields, the indexes of their names, and the
// memory that a read's lists stand in. For the store's own sources only.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/element_store.h"
#include "model/model_data.h"
#include "model/name_index.h"
#include "model/ready_records.h"
#include "model/record_names.h"

namespace quarvel::model {

struct StoredModel {
  ModelData data;
  // The names of rows 1..NumberOfRows and of columns 1..NumberOfColumns.
  NameIndex row_names;
  NameIndex column_names;
  // Where the lists of the last read stand.
  ElementArena row_arena;
  ElementArena column_arena;
  // A read is filling the column lists, and the row lists are still to be made of them.
  bool row_lists_behind = false;
  // What can be looked at as it is stored.
  ReadyRecords ready;
};

// The first row or column of that name, 0 when there is none. Exact comparison; constant time. No
// removal of that kind may be deferred. What takes more than a look into the index stands apart, so that
// the compiler keeps the rest small.
std::int32_t FindRowSlowly(StoredModel& model, const NameKey& key, std::string_view name);
std::int32_t FindColumnSlowly(StoredModel& model, const NameKey& key, std::string_view name);
inline std::int32_t FindRow(StoredModel& model, const NameKey& key, std::string_view name) {
  if (key.is_long() || model.row_names.stale()) return FindRowSlowly(model, key, name);
  return model.row_names.Candidate(key);
}
inline std::int32_t FindColumn(StoredModel& model, const NameKey& key, std::string_view name) {
  if (key.is_long() || model.column_names.stale()) return FindColumnSlowly(model, key, name);
  return model.column_names.Candidate(key);
}

// Recomputes both row indexes and their counts from the types of rows 1..rows. When memory runs out
// nothing has changed.
void RebuildRowIndexes(ModelData& data, std::int32_t rows);
inline void RebuildRowIndexes(ModelData& data) { RebuildRowIndexes(data, data.NumberOfRows); }

// Drops all rows and columns with their lists, names and memory; counts of rows, columns and
// elements 0. The binding-row indexes are not touched.
void ReleaseRecords(StoredModel& model);

}  // namespace quarvel::model
