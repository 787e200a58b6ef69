#include <vector>

#include "inspect/lint_parts.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using model::ElementEntry;
using mps::FileProblem;

// The value of the entry before `again` for the same row.
double ValueBefore(const model::ColumnRecord& column, const ElementEntry& again) {
  double value = 0;
  for (const ElementEntry& entry : column.Elements) {
    if (&entry == &again) break;
    if (entry.Index == again.Index) value = entry.Value;
  }
  return value;
}

FileProblem Describe(const model::ModelData& data, const model::ColumnRecord& column,
                     const ElementEntry& again) {
  return {.code = {},
          .item = column.Name,
          .read = data.Rows[again.Index].Name,
          .made = "in row " + data.Rows[again.Index].Name + ": " +
                  text::GeneralText(ValueBefore(column, again)) + ", then " +
                  text::GeneralText(again.Value) +
                  "; both stay, and add up; other readers keep one or refuse the file"};
}

}  // namespace

void LintPairs(const model::ModelData& data, const LintListener& listener) {
  // The last column that each row was met in.
  std::vector<std::int32_t> met(static_cast<std::size_t>(data.NumberOfRows) + 1);
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data.Columns[j];
    for (const ElementEntry& entry : column.Elements) {
      std::int32_t& last = met[static_cast<std::size_t>(entry.Index)];
      if (last == j) {
        listener.Tell(mps::FileProblemCode::kPairTwice,
                      [&] { return Describe(data, column, entry); });
      }
      last = j;
    }
  }
}

}  // namespace quarvel::inspect
