// The stored fields of a model, as plain data: no name index, no memory of lists, nothing deferred.
// Numbers are 1-based. Its invariant (model/model_check.h): every coefficient stands in exactly one
// row's and one column's list with the same value, and the counts agree. Only a ModelStore keeps
// it, so everything but the store and its parts sees this const.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/bounds.h"
#include "model/element_store.h"
#include "model/name_text.h"
#include "model/one_based.h"
#include "model/record_types.h"

namespace quarvel::model {

using ElementList = OneBased<ElementEntry, ElementStore>;
using RowNumbers = OneBased<std::int32_t, std::vector<std::int32_t>>;

// What rows and columns have in common. Bounds limit a row's activity or a column's variable. A
// fresh record has no name and type, bounds 0 and 0, and no list.
struct ModelRecord : Bounds {
  ElementList Elements;
  NameText Name;  // at the end: the type of a row or column stands in the same eight bytes

  std::int32_t ElementCount() const { return Elements.size(); }
};
struct RowRecord : ModelRecord {
  RowType Type = RowType::kNone;
};
struct ColumnRecord : ModelRecord {
  ColumnType Type = ColumnType::kNone;
};
static_assert(sizeof(RowRecord) <= 48 && sizeof(ColumnRecord) <= 48);

// The fields that no record, list or index depends on: whoever holds the store may set them.
struct ModelSettings {
  std::string strMPSFile;                  // path of the file being read
  std::int16_t ReadMPSFileErr = 0;         // result of the last read: -1 read, 0 not
  bool frmViewEquationsIsShowing = false;  // the viewer window is open, or a host says so
  std::string ModelName;
  std::string ModelDescription;             // lines joined by CR LF
  std::string FileLocation;                 // path of the model's file
  std::int16_t LogFileNumber = 0;           // 0 when no simplification log is open
  bool DefaultToPlusMinusInfinity = false;  // new columns of a read get lower bound -1E+10
  bool LongNameWarningShown = false;        // never reset
  bool EndLineMissing = false;              // the last read came to the file's end before ENDATA
  std::int64_t LinesRead = 0;               // by that read, when it came to an end of either kind
};

struct ModelData : ModelSettings {
  std::int32_t NumberOfRows = 0;
  std::int32_t NumberOfColumns = 0;
  std::int32_t NumberOfElements = 0;
  std::int32_t NumberOfBindingRows = 0;     // rows of a type that binds
  std::int32_t NumberOfNonBindingRows = 0;  // the others
  // The counts, not the array sizes, say how many there are: MakeNewModel leaves one hidden record
  // in each.
  OneBased<RowRecord> Rows;
  OneBased<ColumnRecord> Columns;
  RowNumbers BindingRows;     // ascending row numbers
  RowNumbers NonBindingRows;  // ascending row numbers
};

}  // namespace quarvel::model
