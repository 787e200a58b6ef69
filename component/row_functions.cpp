#include <cmath>

#include "component/lp_model.h"
#include "component/results.h"
#include "text/numbers.h"

namespace quarvel {
namespace {

using text::AppendGeneralText;
using text::GeneralText;

// The record of 0-based row RowNum, which need not be counted, only stored.
const RowRecord& StoredRow(const ModelData& data, std::int32_t RowNum) {
  if (!InRange(RowNum, data.Rows.size())) RaiseSubscriptOutOfRange();
  return data.Rows[Stored(RowNum)];
}

// The slot of a stored column in a caller's array, whose own bounds are checked like the model's.
template <class T>
T& Slot(std::span<T> array, std::int32_t lower_bound, std::int32_t column) {
  const auto offset = static_cast<std::size_t>(std::int64_t{Public(column)} - lower_bound);
  if (offset >= array.size()) RaiseSubscriptOutOfRange();
  return array[offset];
}

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

std::string EmptyRowText(const RowRecord& row) {
  std::string text = "This row has no elements.  ";
  if (row.Type == RowType::kNone) return text;
  text += row.Type == RowType::kEqual ? "It is an " : "It is a ";
  return text.append(TraitsOf(row.Type).noun).append(" row").append(BoundsOf(row)).append(".");
}

void AppendTerms(std::string& text, const ModelData& data, const RowRecord& row) {
  for (const ElementEntry& entry : row.Elements) {
    text += entry.Value < 0 ? " - " : " + ";
    AppendGeneralText(text, std::fabs(entry.Value));
    text += '*';
    text += data.Columns[entry.Index].Name;
  }
}

void AppendRelation(std::string& text, const RowRecord& row) {
  const RowTypeTraits& type = TraitsOf(row.Type);
  if (!type.sign.empty()) {
    text.append("  ").append(type.sign).append("  ");
    AppendGeneralText(text, type.has_upper ? row.UpperBound : row.LowerBound);
  } else if (row.Type == RowType::kFree) {
    text.append("  (").append(type.noun).append(")");
  }
}

}  // namespace

std::string LPModel::RowEquation(std::int32_t i) const {
  const ModelData& data = store_.data();
  const RowRecord& row = data.Rows[CheckRow(i, data.NumberOfRows)];
  if (row.ElementCount() == 0) return EmptyRowText(row);
  std::string text;
  // The first sign of a ranged row points this way for every host that parses the text.
  if (row.Type == quarvel::RowType::kRanged) text = GeneralText(row.LowerBound) + "  >=  ";
  AppendTerms(text, data, row);
  AppendRelation(text, row);
  return text;
}

std::int16_t LPModel::RowGradient(std::int32_t RowNum, std::span<double> Gradient,
                                  std::int32_t lower_bound) const {
  GradientResult result = GradientResult::kDone;
  for (std::int32_t c = 1; c <= NumberOfColumns(); ++c) Slot(Gradient, lower_bound, c) = 0;
  const std::int32_t count = StoredRow(store_.data(), RowNum).ElementCount();
  try {
    for (std::int32_t k = 1; k <= count; ++k) {
      // A copy, and the row looked up anew each time: the box lets a host's events run.
      const ElementEntry entry = StoredRow(store_.data(), RowNum).Elements[k];
      if (entry.Index > NumberOfColumns()) {
        Refuse("Error in Quarvel.dll model");
        result = GradientResult::kBeyondColumns;
      }
      Slot(Gradient, lower_bound, entry.Index) = entry.Value;
    }
  } catch (const AutomationError&) {
    return Number(GradientResult::kFailed);
  }
  return Number(result);
}

std::int16_t LPModel::RowBodyValue(std::int32_t RowNum, std::span<const double> Point,
                                   double& Answer, std::int32_t lower_bound) const {
  const ModelData& data = store_.data();
  Answer = 0;
  for (const ElementEntry& entry : StoredRow(data, RowNum).Elements) {
    if (entry.Index > data.NumberOfColumns) RaiseTooFewElementsInPoint();
    Answer += entry.Value * Slot(Point, lower_bound, entry.Index);
  }
  return Number(EditResult::kDone);
}

}  // namespace quarvel
