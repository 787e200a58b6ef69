#include <cstdint>
#include <string_view>

#include "model/error_reports.h"
#include "model/line_names.h"
#include "model/long_name.h"
#include "model/lp_model.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel {
namespace {

struct NameRefusals {
  std::string_view spaces;
  std::string_view empty;
  std::string_view in_use;
};

constexpr NameRefusals kRowRefusals = {
    "Row not added:  spaces are not allowed in row names",
    "Row not added:  empty name given",
    "Row not added:  that name is already in use",
};

constexpr NameRefusals kColumnRefusals = {
    "Column not added:  spaces are not allowed in column names",
    "Column not added:  empty name given",
    "Column not added:  that name is already in use",
};

// The text of the first rule that refuses the name; empty when it may be added.
std::string_view RefusalOf(std::string_view name, const NameRefusals& refusals, bool in_use) {
  if (name.find(' ') != std::string_view::npos) return refusals.spaces;
  if (name.empty()) return refusals.empty;
  return in_use ? refusals.in_use : std::string_view();
}

// Appends a record, or takes over the hidden one of a new model with all it holds.
template <class Record>
Record& AppendRecord(OneBased<Record>& lines, std::int32_t& count, std::string_view name,
                     const NameKey& key, NameIndex& names) {
  lines.Resize(count + 1);
  ++count;
  lines[count].Name = name;
  names.Add(key, name, count, NamesOf(lines));
  return lines[count];
}

void WarnOnceOfLongName(LPModel& model, std::string_view name) {
  if (model.raw_data().LongNameWarningShown || !IsLongName(name)) return;
  model.desktop().MsgBox(platform::Note(kLongNameWarning));
  model.raw_data().LongNameWarningShown = true;
}

}  // namespace

void LPModel::AddElement(std::int32_t row, std::int32_t col, double val) {
  ModelData& data = Settled();
  if (!InRange(row, data.NumberOfRows) || !InRange(col, data.NumberOfColumns)) {
    Refuse("Invalid row or column given when attempting to AddElement()");
    return;
  }
  data.agreement.NoteAdding(data, row + 1, col + 1);
  data.Rows[row + 1].Elements.Append({col + 1, val});
  data.Columns[col + 1].Elements.Append({row + 1, val});
  ++data.NumberOfElements;
}

std::int16_t LPModel::AddRow(std::string_view RowName) {
  ModelData& data = Settled();
  const NameKey key = NameKey::Of(RowName);
  const bool in_use = FindRow(data, key, RowName) != 0;
  if (const auto refusal = RefusalOf(RowName, kRowRefusals, in_use); !refusal.empty()) {
    Refuse(refusal);
    return 0;
  }
  AppendRecord(data.Rows, data.NumberOfRows, RowName, key, data.row_names);
  WarnOnceOfLongName(*this, RowName);
  return -1;
}

std::int16_t LPModel::AddColumn(std::string_view ColName) {
  ModelData& data = Settled();
  const NameKey key = NameKey::Of(ColName);
  const bool in_use = FindColumn(data, key, ColName) != 0;
  if (const auto refusal = RefusalOf(ColName, kColumnRefusals, in_use); !refusal.empty()) {
    Refuse(refusal);
    return 0;
  }
  ColumnRecord& column =
      AppendRecord(data.Columns, data.NumberOfColumns, ColName, key, data.column_names);
  column.UpperBound = BoundLimit;
  column.Type = ColumnType::kContinuous;
  WarnOnceOfLongName(*this, ColName);
  return -1;
}

}  // namespace quarvel
