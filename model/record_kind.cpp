#include "model/record_kind.h"

#include "model/model_store.h"
#include "model/record_number.h"

namespace quarvel::model {

const RecordKind kRowKind = {
    .noun = "row",
    .title = "Row",
    .plural = "Rows",
    .other = kColumnKind,
    .first_type = TraitsOf(RowType::kLess).letter,
    .count = &ModelQueries::NumberOfRows,
    .name = &ModelQueries::RowName,
    .type = &ModelQueries::RowType,
    .lower = &ModelQueries::RowLowerBound,
    .upper = &ModelQueries::RowUpperBound,
    .elements = &ModelQueries::RowNumberElements,
    .element_at = &ModelQueries::RowElementCol,
    .element_value = &ModelQueries::RowElementValue,
    .set_name = &ModelEdits::SetRowName,
    .set_type = &ModelEdits::SetRowType,
    .set_lower = &ModelEdits::SetRowLowerBound,
    .set_upper = &ModelEdits::SetRowUpperBound,
    .add = &ModelEdits::AddRow,
    .remove = &ModelEdits::DeleteRow,
    .find = [](const ModelStore& store, std::string_view name) { return store.FindRow(name); },
};

const RecordKind kColumnKind = {
    .noun = "column",
    .title = "Column",
    .plural = "Columns",
    .other = kRowKind,
    .first_type = TraitsOf(ColumnType::kContinuous).letter,
    .count = &ModelQueries::NumberOfColumns,
    .name = &ModelQueries::ColName,
    .type = &ModelQueries::ColType,
    .lower = &ModelQueries::ColLowerBound,
    .upper = &ModelQueries::ColUpperBound,
    .elements = &ModelQueries::ColNumberElements,
    .element_at = &ModelQueries::ColElementrow,
    .element_value = &ModelQueries::ColElementvalue,
    .set_name = &ModelEdits::SetColName,
    .set_type = &ModelEdits::SetColType,
    .set_lower = &ModelEdits::SetColLowerBound,
    .set_upper = &ModelEdits::SetColUpperBound,
    .add = &ModelEdits::AddColumn,
    .remove = &ModelEdits::DeleteColumn,
    .find = [](const ModelStore& store, std::string_view name) { return store.FindColumn(name); },
};

bool HasRecord(const ModelQueries& model, const RecordKind& kind, std::int32_t number) {
  return InRange(number, (model.*kind.count)());
}

}  // namespace quarvel::model
