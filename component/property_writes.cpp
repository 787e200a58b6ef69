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

void LPModel::SetColUpperBound(std::int32_t j, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(j, NumberOfColumns())) {
      return Refuse("Invalid Column number when attempting to SetColUpperBound()");
    }
    store_.ColumnBounds(model::Stored(j)).UpperBound = value.ToDouble();
  });
}

void LPModel::SetColLowerBound(std::int32_t j, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(j, NumberOfColumns())) {
      return Refuse("Invalid Column number when attempting to SetColLowerBound()");
    }
    store_.ColumnBounds(model::Stored(j)).LowerBound = value.ToDouble();
  });
}

void LPModel::SetColName(std::int32_t col, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(col, NumberOfColumns())) {
      return Refuse("Invalid Column number when attempting to SetColName()");
    }
    const std::string name = value.ToText();
    const bool in_use = store_.FindColumn(name) != 0;
    const auto refusal = RefusalOf(name, "Spaces are not allowed in column names", in_use);
    if (!refusal.empty()) return Refuse(refusal);
    store_.RenameColumn(model::Stored(col), name);
  });
}

void LPModel::SetColType(std::int32_t j, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(j, NumberOfColumns())) {
      return Refuse("Invalid Column number when attempting to SetColType()");
    }
    const model::ColumnType type = model::ColumnTypeOf(value.ToText());
    if (!model::TraitsOf(type).settable) return Refuse("Invalid Column Type");
    store_.SetColumnType(model::Stored(j), type);
  });
}

void LPModel::SetModelDescription(const model::Variant& value) {
  Guarded([&] { store_.settings().ModelDescription = value.ToText(); });
}

void LPModel::SetModelName(const model::Variant& value) {
  Guarded([&] { store_.settings().ModelName = value.ToText(); });
}

void LPModel::SetRowName(std::int32_t row, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(row, NumberOfRows())) {
      return Refuse("Invalid Row number when attempting to SetRowName()");
    }
    const std::string name = value.ToText();
    const bool in_use = store_.FindRow(name) != 0;
    const auto refusal = RefusalOf(name, "Spaces are not allowed in row names", in_use);
    if (!refusal.empty()) return Refuse(refusal);
    store_.RenameRow(model::Stored(row), name);
  });
}

void LPModel::SetRowElementValue(std::int32_t row, std::int32_t rowele,
                                 const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(row, NumberOfRows())) {
      return Refuse("Invalid Row number when attempting to SetRowElementValue()");
    }
    if (!model::InRange(rowele, store_.ElementsInRow(model::Stored(row)))) {
      return Refuse("Invalid Element number when attempting to SetRowElementValue()");
    }
    store_.SetElementValue(model::Stored(row), model::Stored(rowele), value.ToDouble());
  });
}

void LPModel::SetRowType(std::int32_t i, const model::Variant& value) {
  Guarded([&] {
    // Only the hidden row of a new model is stored but not counted.
    if (!model::InRange(i, store_.looks().StoredRows())) model::RaiseSubscriptOutOfRange();
    if (!model::InRange(i, NumberOfRows())) {
      return Refuse("Invalid Row number when attempting to SetRowType()");
    }
    const auto type = model::RowTypeOf(value.ToText());
    if (type == model::RowType::kNone) return Refuse("Invalid Row Type");
    store_.SetRowType(model::Stored(i), type);
  });
}

void LPModel::SetRowLowerBound(std::int32_t i, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(i, NumberOfRows())) {
      return Refuse("Invalid Row number when attempting to SetRowLowerBound()");
    }
    store_.RowBounds(model::Stored(i)).LowerBound = value.ToDouble();
  });
}

void LPModel::SetRowUpperBound(std::int32_t i, const model::Variant& value) {
  Guarded([&] {
    if (!model::InRange(i, NumberOfRows())) {
      return Refuse("Invalid Row number when attempting to SetRowUpperBound()");
    }
    store_.RowBounds(model::Stored(i)).UpperBound = value.ToDouble();
  });
}

}  // namespace quarvel
