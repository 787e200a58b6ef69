// Pass 1: a row of one element says no more than a bound of its column does, so it becomes one.

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/box.h"
#include "platform/desktop.h"
#include "simplify/simplifier.h"

namespace quarvel::simplify {

// The question about a row that clashes with its column's bounds. Which answers count as a change
// differs between the two questions, and hosts know them this way.
struct ConflictQuestion {
  std::string_view title;
  std::string_view text_before_name;
  std::string_view text_after_name;
  std::string_view choices;
  std::string_view removed;  // log: Yes
  bool yes_changes;
  std::string_view converted_after_name;  // log: No
  std::string_view aborted;               // log: Cancel
  bool cancel_changes;
};

// What a row asks of its column: `lower` and `upper` are the row's bounds divided by the
// coefficient, whose sign is not looked at.
struct Implied {
  double lower;
  double upper;
  double column_lower;
  double column_upper;
};

// The first rule of a row's type whose test holds is applied: its bounds are taken over and the row
// is deleted, or its question is asked.
struct ConversionRule {
  model::RowType type;
  bool (*holds)(const Implied&);
  unsigned taken_bounds;
  std::string_view log_before_name;
  std::string_view log_after_name;
  const ConflictQuestion* question;
};

namespace {

using platform::MsgBoxResult;

constexpr std::string_view kCaption = "Progress:  Simplifying MPS Model (";
constexpr std::int64_t kInterval = 100;

constexpr unsigned kLower = 1;
constexpr unsigned kUpper = 2;
constexpr unsigned kBoth = kLower | kUpper;

constexpr std::string_view kConverted = "Converted row ";
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
    {model::RowType::kGreater, RaisesLower, kLower, kConverted, kIntoBound, nullptr},
    {model::RowType::kLess, CutsUpper, kUpper, kConverted, kIntoBound, nullptr},
    {model::RowType::kEqual, LiesWithin, kBoth, kConverted, kIntoBound, nullptr},
    {model::RowType::kEqual, Always, 0, "", "", &kEqualityQuestion},
    {model::RowType::kRanged, Encloses, 0, "", "", &kRangeQuestion},
    {model::RowType::kRanged, LiesWithin, kBoth, "Range ",
     " had both bounds converted to column bounds", nullptr},
    {model::RowType::kRanged, LowerIsTighter, kUpper, "Range ",
     " had upper bound converted to column bound", nullptr},
    {model::RowType::kRanged, Always, kLower, "Range ",
     " had lower bound converted to column bound", nullptr},
}};

bool HasRules(model::RowType type) {
  return std::any_of(kRules.begin(), kRules.end(),
                     [type](const ConversionRule& rule) { return rule.type == type; });
}

const ConversionRule* FindRule(model::RowType type, const Implied& implied) {
  for (const ConversionRule& rule : kRules) {
    if (rule.type == type && rule.holds(implied)) return &rule;
  }
  return nullptr;
}

// A model has no infinite numbers, so a quotient that does not fit is a failure as well.
double Divide(double bound, double coefficient) {
  if (coefficient == 0) RaiseRunTimeError(RunTimeError::kDivisionByZero);
  const double quotient = bound / coefficient;
  if (std::isinf(quotient) && std::isfinite(bound)) RaiseRunTimeError(RunTimeError::kOverflow);
  return quotient;
}

std::string Around(std::string_view before, const std::string& name, std::string_view after) {
  return std::string(before).append(name).append(after);
}

platform::Box ConflictBox(const ConflictQuestion& question, const std::string& name) {
  return {.kind = platform::BoxKind::kConflict,
          .statement = Around(question.text_before_name, name, question.text_after_name),
          .question = std::string(question.choices),
          .style = platform::MsgBoxStyle::kYesNoCancelExclamation,
          .title = std::string(question.title),
          .item = name};
}

}  // namespace

void Simplifier::ConvertSingletonRows() {
  const std::int32_t limit = store_.NumberOfRows();
  for (std::int32_t i = 1; i <= limit; ++i) {
    if (StoppedAfterSteps(2, kInterval, kCaption)) return;
    if (i > store_.NumberOfRows()) return;  // a host that was called back has deleted some
    const RowFate fate = ConvertRow(i);
    if (fate == RowFate::kPassEnded) return;
    if (fate == RowFate::kDeleted) --i;  // what has moved into this place comes next
    if (i == store_.NumberOfRows()) return;
  }
}

Simplifier::RowFate Simplifier::ConvertRow(std::int32_t i) {
  const model::RowRecord& row = store_.Row(i);
  if (row.ElementCount() != 1 || !HasRules(row.Type)) return RowFate::kKept;
  const model::ElementEntry& element = row.Elements[1];
  const model::Bounds& column = store_.ColumnBoundsAt(element);
  const model::RowTypeTraits& type = model::TraitsOf(row.Type);
  Implied implied = {0, 0, column.LowerBound, column.UpperBound};
  if (type.has_lower) implied.lower = Divide(row.LowerBound, element.Value);
  if (type.has_upper) implied.upper = Divide(row.UpperBound, element.Value);
  const ConversionRule* rule = FindRule(row.Type, implied);
  if (rule == nullptr) return RowFate::kKept;
  if (rule->question != nullptr) return AskAboutRow(i, *rule, implied.lower, implied.upper);
  log_.Append(Around(rule->log_before_name, row.Name, rule->log_after_name));
  changed_ = true;
  ConvertAndDelete(i, rule->taken_bounds, implied.lower, implied.upper);
  return RowFate::kDeleted;
}

Simplifier::RowFate Simplifier::AskAboutRow(std::int32_t i, const ConversionRule& rule,
                                            double lower, double upper) {
  const ConflictQuestion& question = *rule.question;
  const std::int32_t count = store_.NumberOfRows();
  std::string name = store_.Row(i).Name;
  const MsgBoxResult answer = desktop_.MsgBox(ConflictBox(question, name));
  if (answer == MsgBoxResult::kCancel) {
    log_.Append(Around(question.aborted, name, ""));
    changed_ = changed_ || question.cancel_changes;
    return RowFate::kPassEnded;
  }
  // When a host has deleted rows meanwhile and another one stands in this place, the answer was not
  // about that one: it is looked at anew. A row that only has another name is still the one that
  // was asked about.
  if (i > store_.NumberOfRows()) return RowFate::kDeleted;
  if (store_.NumberOfRows() != count && store_.Row(i).Name != name) return RowFate::kDeleted;
  name = store_.Row(i).Name;
  if (answer == MsgBoxResult::kYes) {
    log_.Append(Around(question.removed, name, ""));
    changed_ = changed_ || question.yes_changes;
    store_.RemoveRow(i);
  } else {
    log_.Append(Around(kConverted, name, question.converted_after_name));
    changed_ = true;
    ConvertAndDelete(i, kBoth, lower, upper);
  }
  return RowFate::kDeleted;
}

void Simplifier::ConvertAndDelete(std::int32_t i, unsigned taken_bounds, double lower,
                                  double upper) {
  // A host may have taken the element out while it was asked.
  if (store_.Row(i).ElementCount() == 0) return store_.RemoveRow(i);
  const model::ElementEntry element = store_.Row(i).Elements[1];
  store_.ColumnBoundsAt(element);  // raises now if there is no such column
  store_.RemoveRow(i);
  model::Bounds& column = store_.ColumnBoundsAt(element);
  if ((taken_bounds & kLower) != 0) column.LowerBound = lower;
  if ((taken_bounds & kUpper) != 0) column.UpperBound = upper;
}

}  // namespace quarvel::simplify
