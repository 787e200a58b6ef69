// Writes of single properties. The listed checks come first and show a box; the value is converted
// where it is assigned, except for names and types, whose own rules need the text.

#include <cstdint>
#include <string>
#include <string_view>

#include "model/error_reports.h"
#include "model/line_names.h"
#include "model/lp_model.h"

namespace quarvel {
namespace {

constexpr std::string_view kNameRefused = "Invalid Name";
constexpr std::string_view kNameInUse = "That name is already in use";

// The text of the first rule that refuses the name; empty when it may be set. A record's own name
// counts as in use.
std::string_view RefusalOf(std::string_view name, std::string_view spaces, bool in_use) {
  if (name.find(' ') != std::string_view::npos) return spaces;
  if (name.empty()) return kNameRefused;
  return in_use ? kNameInUse : std::string_view();
}

template <class Record>
void Rename(OneBased<Record>& lines, std::int32_t number, const std::string& name,
            NameIndex& names) {
  names.Remove(lines[number].Name, number);
  lines[number].Name = name;
  names.Add(name, number, NamesOf(lines));
}

// A row that got its first type stands in no index yet. It is taken for the last row, which is
// where new rows stand.
void AppendLastRow(const ModelData& data, RowNumbers& index, std::int32_t& count) {
  index.Resize(++count);
  index[count] = data.NumberOfRows;
}

void UpdateRowIndexes(ModelData& data, RowType old_type, RowType type) {
  const bool binding = TraitsOf(type).binds;
  if (old_type != RowType::kNone) {
    if (binding != TraitsOf(old_type).binds) RebuildRowIndexes(data);
  } else if (binding) {
    AppendLastRow(data, data.BindingRows, data.NumberOfBindingRows);
  } else {
    AppendLastRow(data, data.NonBindingRows, data.NumberOfNonBindingRows);
  }
}

}  // namespace

void LPModel::SetColUpperBound(std::int32_t j, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(j, data.NumberOfColumns)) {
    return Refuse("Invalid Column number when attempting to SetColUpperBound()");
  }
  data.Columns[j + 1].UpperBound = value.ToDouble();
}

void LPModel::SetColLowerBound(std::int32_t j, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(j, data.NumberOfColumns)) {
    return Refuse("Invalid Column number when attempting to SetColLowerBound()");
  }
  data.Columns[j + 1].LowerBound = value.ToDouble();
}

void LPModel::SetColName(std::int32_t col, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(col, data.NumberOfColumns)) {
    return Refuse("Invalid Column number when attempting to SetColName()");
  }
  const std::string name = value.ToText();
  const bool in_use = FindColumn(data, name) != 0;
  const auto refusal = RefusalOf(name, "Spaces are not allowed in column names", in_use);
  if (!refusal.empty()) return Refuse(refusal);
  Rename(data.Columns, col + 1, name, data.column_names);
}

void LPModel::SetColType(std::int32_t j, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(j, data.NumberOfColumns)) {
    return Refuse("Invalid Column number when attempting to SetColType()");
  }
  const ColumnType type = ColumnTypeOf(value.ToText());
  if (!TraitsOf(type).settable) return Refuse("Invalid Column Type");
  data.Columns[j + 1].Type = type;
}

void LPModel::SetModelDescription(const Variant& value) { data_.ModelDescription = value.ToText(); }

void LPModel::SetModelName(const Variant& value) { data_.ModelName = value.ToText(); }

void LPModel::SetRowName(std::int32_t row, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(row, data.NumberOfRows)) {
    return Refuse("Invalid Row number when attempting to SetRowName()");
  }
  const std::string name = value.ToText();
  const bool in_use = FindRow(data, name) != 0;
  const auto refusal = RefusalOf(name, "Spaces are not allowed in row names", in_use);
  if (!refusal.empty()) return Refuse(refusal);
  Rename(data.Rows, row + 1, name, data.row_names);
}

void LPModel::SetRowElementValue(std::int32_t row, std::int32_t rowele, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(row, data.NumberOfRows)) {
    return Refuse("Invalid Row number when attempting to SetRowElementValue()");
  }
  const std::int32_t r = row + 1;
  if (!InRange(rowele, data.Rows[r].ElementCount())) {
    return Refuse("Invalid Element number when attempting to SetRowElementValue()");
  }
  ElementEntry& element = data.Rows[r].Elements[rowele + 1];
  element.Value = value.ToDouble();
  for (ElementEntry& entry : data.Columns[element.Index].Elements) {
    if (entry.Index != r) continue;
    entry.Value = element.Value;
    return;
  }
}

void LPModel::SetRowType(std::int32_t i, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(i, data.Rows.size())) RaiseSubscriptOutOfRange();
  const auto old_type = data.Rows[i + 1].Type;
  // Only the hidden row of a new model is stored but not counted.
  if (!InRange(i, data.NumberOfRows)) {
    return Refuse("Invalid Row number when attempting to SetRowType()");
  }
  const auto type = RowTypeOf(value.ToText());
  if (type == quarvel::RowType::kNone) return Refuse("Invalid Row Type");
  data.Rows[i + 1].Type = type;
  UpdateRowIndexes(data, old_type, type);
}

void LPModel::SetRowLowerBound(std::int32_t i, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(i, data.NumberOfRows)) {
    return Refuse("Invalid Row number when attempting to SetRowLowerBound()");
  }
  data.Rows[i + 1].LowerBound = value.ToDouble();
}

void LPModel::SetRowUpperBound(std::int32_t i, const Variant& value) {
  ModelData& data = Settled();
  if (!InRange(i, data.NumberOfRows)) {
    return Refuse("Invalid Row number when attempting to SetRowUpperBound()");
  }
  data.Rows[i + 1].UpperBound = value.ToDouble();
}

}  // namespace quarvel
