#include "model/record_kind.h"

#include "model/lp_model.h"

namespace quarvel {

const RecordKind kRowKind = {
    .noun = "row",
    .title = "Row",
    .plural = "Rows",
    .other = kColumnKind,
    .first_type = "L",
    .count = &LPModel::NumberOfRows,
    .name = &LPModel::RowName,
    .type = &LPModel::RowType,
    .lower = &LPModel::RowLowerBound,
    .upper = &LPModel::RowUpperBound,
    .elements = &LPModel::RowNumberElements,
    .element_at = &LPModel::RowElementCol,
    .element_value = &LPModel::RowElementValue,
    .set_name = &LPModel::SetRowName,
    .set_type = &LPModel::SetRowType,
    .set_lower = &LPModel::SetRowLowerBound,
    .set_upper = &LPModel::SetRowUpperBound,
    .add = &LPModel::AddRow,
    .remove = &LPModel::DeleteRow,
    .find = &FindRow,
};

const RecordKind kColumnKind = {
    .noun = "column",
    .title = "Column",
    .plural = "Columns",
    .other = kRowKind,
    .first_type = "R",
    .count = &LPModel::NumberOfColumns,
    .name = &LPModel::ColName,
    .type = &LPModel::ColType,
    .lower = &LPModel::ColLowerBound,
    .upper = &LPModel::ColUpperBound,
    .elements = &LPModel::ColNumberElements,
    .element_at = &LPModel::ColElementrow,
    .element_value = &LPModel::ColElementvalue,
    .set_name = &LPModel::SetColName,
    .set_type = &LPModel::SetColType,
    .set_lower = &LPModel::SetColLowerBound,
    .set_upper = &LPModel::SetColUpperBound,
    .add = &LPModel::AddColumn,
    .remove = &LPModel::DeleteColumn,
    .find = &FindColumn,
};

bool HasRecord(const LPModel& model, const RecordKind& kind, std::int32_t number) {
  return InRange(number, (model.*kind.count)());
}

}  // namespace quarvel
