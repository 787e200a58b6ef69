#include "simplify/conversion_rule.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quarvel::simplify {
namespace {

constexpr std::string_view kIntoBound = " into variable bound";

constexpr ConflictQuestion kEqualityQuestion = {
    "Equality violates bounds",
    "The equality ",
    " violates variable bounds.",
    "If you want to remove the equality, click Yes\r\n"
    "If you want to reset the variable bounds to this equality, click No\r\n"
    "Click cancel to stop fixing this model",
    "Removed equality:  ",
    false,
    kIntoBound,
    "Model fixing aborted on equality ",
    false};

constexpr ConflictQuestion kRangeQuestion = {
    "Range Violates Bounds",
    "The range for row ",
    " violates bounds.",
    "To remove the row, click Yes\r\n"
    "To reset the column bounds to this range, click No\r\n"
    "Click Cancel to stop fixing this model",
    "Removed range:  ",
    true,
    " into collumn bounds",
    "Model fixing aborted on ranged row ",
    true};

bool Always(const Implied&) { return true; }
bool RaisesLower(const Implied& i) { return i.lower >= i.column_lower; }
bool CutsUpper(const Implied& i) { return i.upper <= i.column_upper; }
bool LiesWithin(const Implied& i) { return CutsUpper(i) && RaisesLower(i); }
bool Encloses(const Implied& i) { return i.lower <= i.column_lower && i.upper >= i.column_upper; }
bool LowerIsTighter(const Implied& i) { return i.lower > i.column_lower; }

// The last two rules move the bound that the row does not tighten. Models simplified so are in use:
// keep them.
constexpr std::array<ConversionRule, 8> kRules = {{
    {model::RowType::kGreater, RaisesLower, kTakesLower, kConverted, kIntoBound, nullptr},
    {model::RowType::kLess, CutsUpper, kTakesUpper, kConverted, kIntoBound, nullptr},
    {model::RowType::kEqual, LiesWithin, kTakesBoth, kConverted, kIntoBound, nullptr},
    {model::RowType::kEqual, Always, 0, "", "", &kEqualityQuestion},
    {model::RowType::kRanged, Encloses, 0, "", "", &kRangeQuestion},
    {model::RowType::kRanged, LiesWithin, kTakesBoth, "Range ",
     " had both bounds converted to column bounds", nullptr},
    {model::RowType::kRanged, LowerIsTighter, kTakesUpper, "Range ",
     " had upper bound converted to column bound", nullptr},
    {model::RowType::kRanged, Always, kTakesLower, "Range ",
     " had lower bound converted to column bound", nullptr},
}};

bool HasRules(model::RowType type) {
  return std::any_of(kRules.begin(), kRules.end(),
                     [type](const ConversionRule& rule) { return rule.type == type; });
}

// A model has no infinite numbers, so a quotient that does not fit is a failure as well.
double Divide(double bound, double coefficient) {
  if (coefficient == 0) RaiseRunTimeError(RunTimeError::kDivisionByZero);
  const double quotient = bound / coefficient;
  if (std::isinf(quotient) && std::isfinite(bound)) RaiseRunTimeError(RunTimeError::kOverflow);
  return quotient;
}

}  // namespace

bool MayConvert(const model::RowRecord& row) {
  return row.ElementCount() == 1 && HasRules(row.Type);
}

Implied ImpliedBy(const model::RowRecord& row, const model::Bounds& column) {
  const double coefficient = row.Elements[1].Value;
  const model::RowTypeTraits& type = model::TraitsOf(row.Type);
  Implied implied = {0, 0, column.LowerBound, column.UpperBound};
  if (type.has_lower) implied.lower = Divide(row.LowerBound, coefficient);
  if (type.has_upper) implied.upper = Divide(row.UpperBound, coefficient);
  return implied;
}

const ConversionRule* FindRule(model::RowType type, const Implied& implied) {
  for (const ConversionRule& rule : kRules) {
    if (rule.type == type && rule.holds(implied)) return &rule;
  }
  return nullptr;
}

std::string AlteredBounds(const ConversionRule& rule, double coefficient) {
  if (rule.question != nullptr || rule.type == model::RowType::kEqual) return "";
  if (coefficient < 0) return " became bounds as if its coefficient were positive, for ";
  if (rule.type != model::RowType::kRanged || rule.taken_bounds == kTakesBoth) return "";
  const bool is_upper = rule.taken_bounds == kTakesUpper;
  return std::string(" became the bound that it does not tighten, the ") +
         (is_upper ? "upper" : "lower") + " one, of ";
}

void TakeBounds(unsigned taken_bounds, double lower, double upper, model::Bounds& column) {
  if ((taken_bounds & kTakesLower) != 0) column.LowerBound = lower;
  if ((taken_bounds & kTakesUpper) != 0) column.UpperBound = upper;
}

}  // namespace quarvel::simplify
