// The stored fields of a model, as plain data. Numbers are 1-based. Its invariant (CheckModelData):
// every coefficient stands in exactly one row's and one column's list with the same value, and the
// counts agree.
#pragma once

#include <any>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/bounds.h"
#include "model/element_store.h"
#include "model/line_names.h"
#include "model/list_agreement.h"
#include "model/name_index.h"
#include "model/one_based.h"
#include "model/pending_removals.h"
#include "model/record_types.h"

namespace quarvel {

using ElementList = OneBased<ElementEntry, ElementStore>;
using RowNumbers = OneBased<std::int32_t, std::vector<std::int32_t>>;

// A row: activity limits. A column: bounds of the variable. A fresh record has no name and type,
// bounds 0 and 0, and no list.
struct LineRecord {
  std::string Name;
  double LowerBound = 0;
  double UpperBound = 0;
  ElementList Elements;

  std::int32_t ElementCount() const { return Elements.size(); }
};
struct RowRecord : LineRecord {
  RowType Type = RowType::kNone;
};
struct ColumnRecord : LineRecord {
  ColumnType Type = ColumnType::kNone;
};

struct ModelData {
  std::string strMPSFile;                  // path of the file being read
  std::int16_t ReadMPSFileErr = 0;         // result of the last read: -1 read, 0 not
  bool frmViewEquationsIsShowing = false;  // the viewer window is open, or a host says so
  std::any showFrm;                        // whatever the host stored; never looked at
  std::string ModelName;
  std::string ModelDescription;  // lines joined by CR LF
  std::int32_t NumberOfRows = 0;
  std::int32_t NumberOfColumns = 0;
  std::int32_t NumberOfElements = 0;
  std::int32_t NumberOfBindingRows = 0;     // rows of a type that binds
  std::int32_t NumberOfNonBindingRows = 0;  // the others
  // The counts, not the array sizes, say how many there are: MakeNewModel leaves one hidden record
  // in each.
  OneBased<RowRecord> Rows;
  OneBased<ColumnRecord> Columns;
  std::string FileLocation;                 // path of the model's file
  RowNumbers BindingRows;                   // ascending row numbers
  RowNumbers NonBindingRows;                // ascending row numbers
  std::int16_t LogFileNumber = 0;           // 0 when no simplification log is open
  bool DefaultToPlusMinusInfinity = false;  // new columns of a read get lower bound -1E+10
  bool LongNameWarningShown = false;        // never reset

  // Where the lists of the last read stand, and the names of rows 1..NumberOfRows and columns
  // 1..NumberOfColumns.
  ElementArena row_arena;
  ElementArena column_arena;
  mutable NameIndex row_names;
  mutable NameIndex column_names;

  // Two kinds of work are put off until somebody looks (Settle does it then), so that their cost is
  // that of one pass over the model: the row lists of a read that goes on, and the renumbering
  // after deletions.
  bool row_lists_pending = false;
  PendingRemovals removals;
  // Which deletions may be put off. Whoever changes lists other than by appending tells it.
  ListAgreement agreement;
};

// Completes what was put off; everything outside the reader and the deletion routines sees settled
// data only.
void Settle(ModelData& data);
inline bool IsSettled(const ModelData& data) {
  return !data.row_lists_pending && data.removals.empty();
}

// Drops all rows and columns with their lists, names and memory; counts of rows, columns and
// elements 0. The binding-row indexes are not touched.
void ReleaseRowsAndColumns(ModelData& data);

// The indexes of names after making them anew.
const NameIndex& RebuiltRowNames(const ModelData& data);
const NameIndex& RebuiltColumnNames(const ModelData& data);

// The first row or column of that name, 0 when there is none. Exact comparison; constant time.
inline std::int32_t FindRow(const ModelData& data, const NameKey& key, std::string_view name) {
  const NameIndex& names = data.row_names.stale() ? RebuiltRowNames(data) : data.row_names;
  return names.Find(key, name, NamesOf(data.Rows));
}
inline std::int32_t FindRow(const ModelData& data, std::string_view name) {
  return FindRow(data, NameKey::Of(name), name);
}
inline std::int32_t FindColumn(const ModelData& data, const NameKey& key, std::string_view name) {
  const NameIndex& names = data.column_names.stale() ? RebuiltColumnNames(data) : data.column_names;
  return names.Find(key, name, NamesOf(data.Columns));
}
inline std::int32_t FindColumn(const ModelData& data, std::string_view name) {
  return FindColumn(data, NameKey::Of(name), name);
}

// Recomputes both row indexes and their counts from the row types.
void RebuildRowIndexes(ModelData& data);

// The invariant: an empty text when it holds, else what is wrong. For tests, fuzzers and debug
// builds.
std::string CheckModelData(const ModelData& data);

}  // namespace quarvel
