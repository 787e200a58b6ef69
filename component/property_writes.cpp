// Writes of single properties. The listed checks come first and show a box; the value is converted
// where it is assigned, except for names and types, whose own rules need the text.

#include <cstdint>
#include <string>
#include <string_view>

#include "component/lp_model.h"
#include "model/record_types.h"

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

}  // namespace

void LPModel::SetColUpperBound(std::int32_t j, const Variant& value) {
  if (!InRange(j, NumberOfColumns())) {
    return Refuse("Invalid Column number when attempting to SetColUpperBound()");
  }
  store_.ColumnBounds(Stored(j)).UpperBound = value.ToDouble();
}

void LPModel::SetColLowerBound(std::int32_t j, const Variant& value) {
  if (!InRange(j, NumberOfColumns())) {
    return Refuse("Invalid Column number when attempting to SetColLowerBound()");
  }
  store_.ColumnBounds(Stored(j)).LowerBound = value.ToDouble();
}

void LPModel::SetColName(std::int32_t col, const Variant& value) {
  if (!InRange(col, NumberOfColumns())) {
    return Refuse("Invalid Column number when attempting to SetColName()");
  }
  const std::string name = value.ToText();
  const bool in_use = store_.FindColumn(name) != 0;
  const auto refusal = RefusalOf(name, "Spaces are not allowed in column names", in_use);
  if (!refusal.empty()) return Refuse(refusal);
  store_.RenameColumn(Stored(col), name);
}

void LPModel::SetColType(std::int32_t j, const Variant& value) {
  if (!InRange(j, NumberOfColumns())) {
    return Refuse("Invalid Column number when attempting to SetColType()");
  }
  const ColumnType type = ColumnTypeOf(value.ToText());
  if (!TraitsOf(type).settable) return Refuse("Invalid Column Type");
  store_.SetColumnType(Stored(j), type);
}

void LPModel::SetModelDescription(const Variant& value) {
  store_.settings().ModelDescription = value.ToText();
}

void LPModel::SetModelName(const Variant& value) { store_.settings().ModelName = value.ToText(); }

void LPModel::SetRowName(std::int32_t row, const Variant& value) {
  if (!InRange(row, NumberOfRows())) {
    return Refuse("Invalid Row number when attempting to SetRowName()");
  }
  const std::string name = value.ToText();
  const bool in_use = store_.FindRow(name) != 0;
  const auto refusal = RefusalOf(name, "Spaces are not allowed in row names", in_use);
  if (!refusal.empty()) return Refuse(refusal);
  store_.RenameRow(Stored(row), name);
}

void LPModel::SetRowElementValue(std::int32_t row, std::int32_t rowele, const Variant& value) {
  if (!InRange(row, NumberOfRows())) {
    return Refuse("Invalid Row number when attempting to SetRowElementValue()");
  }
  if (!InRange(rowele, store_.data().Rows[Stored(row)].ElementCount())) {
    return Refuse("Invalid Element number when attempting to SetRowElementValue()");
  }
  store_.SetElementValue(Stored(row), Stored(rowele), value.ToDouble());
}

void LPModel::SetRowType(std::int32_t i, const Variant& value) {
  // Only the hidden row of a new model is stored but not counted.
  if (!InRange(i, store_.data().Rows.size())) RaiseSubscriptOutOfRange();
  if (!InRange(i, NumberOfRows())) {
    return Refuse("Invalid Row number when attempting to SetRowType()");
  }
  const auto type = RowTypeOf(value.ToText());
  if (type == quarvel::RowType::kNone) return Refuse("Invalid Row Type");
  store_.SetRowType(Stored(i), type);
}

void LPModel::SetRowLowerBound(std::int32_t i, const Variant& value) {
  if (!InRange(i, NumberOfRows())) {
    return Refuse("Invalid Row number when attempting to SetRowLowerBound()");
  }
  store_.RowBounds(Stored(i)).LowerBound = value.ToDouble();
}

void LPModel::SetRowUpperBound(std::int32_t i, const Variant& value) {
  if (!InRange(i, NumberOfRows())) {
    return Refuse("Invalid Row number when attempting to SetRowUpperBound()");
  }
  store_.RowBounds(Stored(i)).UpperBound = value.ToDouble();
}

}  // namespace quarvel
