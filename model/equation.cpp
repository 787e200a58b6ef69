#include "model/equation.h"

#include <cmath>

#include "model/record_types.h"
#include "text/numbers.h"

namespace quarvel::model {
namespace {

using text::GeneralText;

std::string BoundsOf(const RowRecord& row) {
  if (row.Type == RowType::kEqual) return " equal to " + GeneralText(row.UpperBound);
  const RowTypeTraits& type = TraitsOf(row.Type);
  std::string text;
  if (type.has_lower) text += " with lower bound " + GeneralText(row.LowerBound);
  if (type.has_lower && type.has_upper) text += " and";
  if (type.has_upper && !type.has_lower) text += " with";
  if (type.has_upper) text += " upper bound " + GeneralText(row.UpperBound);
  return text;
}

}  // namespace

std::string EquationStart(const RowRecord& row) {
  // The first sign of a ranged row points this way for every host that parses the text.
  return row.Type == RowType::kRanged ? GeneralText(row.LowerBound) + "  >=  " : "";
}

void AppendTerm(std::string& text, const ModelData& data, const ElementEntry& entry) {
  text += entry.Value < 0 ? " - " : " + ";
  text::AppendGeneralText(text, std::fabs(entry.Value));
  text += '*';
  text += data.Columns[entry.Index].Name;
}

std::string EquationEnd(const RowRecord& row) {
  const RowTypeTraits& type = TraitsOf(row.Type);
  std::string text;
  if (!type.sign.empty()) {
    text.append("  ").append(type.sign).append("  ");
    text::AppendGeneralText(text, type.has_upper ? row.UpperBound : row.LowerBound);
  } else if (row.Type == RowType::kFree) {
    text.append("  (").append(type.noun).append(")");
  }
  return text;
}

std::string EmptyRowText(const RowRecord& row) {
  std::string text = "This row has no elements.  ";
  if (row.Type == RowType::kNone) return text;
  text += row.Type == RowType::kEqual ? "It is an " : "It is a ";
  return text.append(TraitsOf(row.Type).noun).append(" row").append(BoundsOf(row)).append(".");
}

}  // namespace quarvel::model
