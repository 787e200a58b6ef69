// Pass 1: a row of one element says no more than a bound of its column does, so it becomes one.

#include "platform/box.h"
#include "platform/desktop.h"
#include "simplify/conversion_rule.h"
#include "simplify/simplifier.h"

namespace quarvel::simplify {

namespace {

using platform::MsgBoxResult;

constexpr std::string_view kCaption = "Progress:  Simplifying MPS Model (";
constexpr std::int64_t kInterval = 100;

std::string Around(std::string_view before, std::string_view name, std::string_view after) {
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
  if (!MayConvert(row)) return RowFate::kKept;
  const Implied implied = ImpliedBy(row, store_.ColumnBoundsAt(row.Elements[1]));
  const ConversionRule* rule = FindRule(row.Type, implied);
  if (rule == nullptr) return RowFate::kKept;
  if (rule->question != nullptr) return AskAboutRow(i, *rule, implied.lower, implied.upper);
  if (log_.keeps_altered()) NoteAltered(row, *rule);
  log_.Append(Around(rule->log_before_name, row.Name, rule->log_after_name));
  changed_ = true;
  ConvertAndDelete(i, rule->taken_bounds, implied.lower, implied.upper);
  return RowFate::kDeleted;
}

void Simplifier::NoteAltered(const model::RowRecord& row, const ConversionRule& rule) {
  const model::ElementEntry& element = row.Elements[1];
  const std::string altered = AlteredBounds(rule, element.Value);
  if (altered.empty()) return;
  log_.AppendAltered("row " + row.Name + altered + "column " +
                     store_.looks().NameOfColumn(element.Index));
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
    removed_ = true;
    store_.RemoveRow(i);
  } else {
    log_.Append(Around(kConverted, name, question.converted_after_name));
    changed_ = true;
    ConvertAndDelete(i, kTakesBoth, lower, upper);
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
  TakeBounds(taken_bounds, lower, upper, store_.ColumnBoundsAt(element));
}

}  // namespace quarvel::simplify
