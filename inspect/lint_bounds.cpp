#include "inspect/lint_parts.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using model::BoundLimit;
using mps::FileProblem;
using mps::FileProblemCode;
using text::GeneralText;

// A number beyond the limit, or at that of the other side.
bool IsOddLower(double lower) { return lower < -BoundLimit || lower >= BoundLimit; }
bool IsOddUpper(double upper) { return upper > BoundLimit || upper <= -BoundLimit; }

std::string WhatBecomesOf(const model::Bounds& bounds) {
  std::string words;
  if (IsOddLower(bounds.LowerBound)) {
    words = "the lower one, " + GeneralText(bounds.LowerBound) +
            (model::HasLower(bounds.LowerBound) ? ", is kept as it is" : ", counts as none");
  }
  if (IsOddUpper(bounds.UpperBound)) {
    if (!words.empty()) words += "; ";
    words += "the upper one, " + GeneralText(bounds.UpperBound) +
             (model::HasUpper(bounds.UpperBound) ? ", is kept as it is" : ", counts as none");
  }
  return words;
}

void LintLimit(const model::ModelRecord& record, const LintListener& listener) {
  if (!IsOddLower(record.LowerBound) && !IsOddUpper(record.UpperBound)) return;
  listener.Tell(FileProblemCode::kBeyondLimit, [&record] {
    return FileProblem{.code = {}, .item = record.Name, .made = WhatBecomesOf(record)};
  });
}

std::string AllowedValues(double lower) {
  if (!model::HasLower(lower)) return "any value is allowed here";
  return "any value from " + GeneralText(lower) + " on is allowed here";
}

// Only a column whose upper bound no line of BOUNDS speaks of is read differently.
void LintInteger(const model::ColumnRecord& column, const LintListener& listener) {
  if (column.Type != model::ColumnType::kInteger || model::HasUpper(column.UpperBound)) return;
  listener.Tell(FileProblemCode::kIntegerWithoutUpper, [&column] {
    return FileProblem{
        .code = {},
        .item = column.Name,
        .made = AllowedValues(column.LowerBound) + "; to other readers the upper bound is 1"};
  });
}

}  // namespace

void LintBounds(const model::ModelData& data, const mps::FileFacts& facts,
                const LintListener& listener) {
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data.Columns[j];
    LintLimit(column, listener);
    if (!facts.SaysUpper(j)) LintInteger(column, listener);
  }
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    if (data.Rows[i].Type != model::RowType::kFree) LintLimit(data.Rows[i], listener);
  }
}

}  // namespace quarvel::inspect
