#include "hosts/edit_script.h"

#include <string>

#include "hosts/edit_words.h"
#include "hosts/printing.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::Difference;
using model::ColumnRecord;
using model::RowRecord;
using enum inspect::DifferenceKind;

std::string Line(std::string_view command, std::string_view word) {
  return std::string(command).append(" ").append(QuotedWord(word));
}

// Lines of a description are joined by CR LF, and by new lines in a word.
std::string DescriptionWord(std::string_view description) {
  std::string word;
  for (const char c : description) {
    if (c != '\r') word += c;
  }
  return word;
}

}  // namespace

EditScript::EditScript(const ScriptSide& a, const ScriptSide& b,
                       const inspect::Tolerance& tolerance)
    : a_(a.store),
      b_(b.store),
      facts_of_a_(a.facts),
      facts_of_b_(b.facts),
      tolerance_(tolerance),
      emptied_(static_cast<std::size_t>(a_.NumberOfRows()) + 1),
      repeated_in_a_(inspect::RepeatedPairsOf(a_)) {
  for (std::int32_t r = 1; r <= b_.NumberOfRows(); ++r) {
    if (b_.Row(r).ElementCount() != 0) continue;
    const std::int32_t in_a = a_.FindRow(b_.Row(r).Name);
    if (in_a != 0 && a_.Row(in_a).ElementCount() != 0)
      emptied_[static_cast<std::size_t>(in_a)] = true;
  }
}

void EditScript::PrintTo(const Print& print) {
  print_ = &print;
  ForEach(&EditScript::PrintRecords);
  ForEach(&EditScript::PrintElements);
  ForEach(&EditScript::PrintElementDeletions);
  PrintRepeatedPairsThatGo();
  ForEach(&EditScript::PrintRowDeletions);
  PrintEmptiedRows();
  ForEach(&EditScript::PrintColumnDeletions);
  PrintFacts();
}

void EditScript::PrintFacts() {
  if (facts_of_a_ == nullptr || facts_of_b_ == nullptr) return;
  const mps::FileFacts& b = *facts_of_b_;
  inspect::CompareFacts(*facts_of_a_, b, tolerance_, [&](const Difference& d) {
    if (d.kind == kObjectiveSense) {
      (*print_)(
          Line("set-objective-sense", b.sense == mps::ObjectiveSense::kMaximize ? "MAX" : "MIN"));
    } else if (d.kind == kObjectiveConstant) {
      (*print_)(Line("set-objective-constant", text::RoundTripText(b.objective_constant)));
    } else if (!b.objective.empty()) {
      (*print_)(Line("set-objective", b.objective));
    }
  });
}

void EditScript::ForEach(Step step) {
  inspect::Compare(a_, b_, tolerance_,
                   [this, step](const Difference& difference) { (this->*step)(difference); });
}

void EditScript::PrintRecords(const Difference& d) {
  const bool passes_over = d.row.a != 0 && IsEmptied(d.row.a);
  if (passes_over) return;
  switch (d.kind) {
    case kModelName:
      return (*print_)(Line("set-name", b_.settings().ModelName));
    case kDescription:
      return (*print_)(Line("set-description", DescriptionWord(b_.settings().ModelDescription)));
    case kRowCame:
      return PrintNewRow(d.row.b);
    case kRowType:
      return (*print_)(Line("set-row-type", b_.Row(d.row.b).Name) + ' ' +
                       model::TypeText(b_.Row(d.row.b).Type));
    case kRowLower:
    case kRowUpper:
      if (last_bounds_ != d.row) PrintRowBounds(d.row.b);
      last_bounds_ = d.row;
      return;
    case kColumnCame:
      return PrintNewColumn(d.column.b);
    case kColumnType:
      return (*print_)(Line("set-column-type", b_.Column(d.column.b).Name) + ' ' +
                       model::TypeText(b_.Column(d.column.b).Type));
    case kColumnLower:
      return PrintColumnLower(d.column.b);
    case kColumnUpper:
      return PrintColumnUpper(d.column.b);
    default:
      return;
  }
}

void EditScript::PrintNewRow(std::int32_t row_of_b) {
  const RowRecord& row = b_.Row(row_of_b);
  const model::RowTypeTraits& traits = model::TraitsOf(row.Type);
  (*print_)(Line("add-row", row.Name).append(" ").append(traits.letter));
  if (row.LowerBound != traits.FreshLower() || row.UpperBound != traits.FreshUpper()) {
    PrintRowBounds(row_of_b);
  }
}

void EditScript::PrintRowBounds(std::int32_t row_of_b) {
  const RowRecord& row = b_.Row(row_of_b);
  (*print_)(Line("set-row-bounds", row.Name) + ' ' + ExactBoundText(AsLower(row.LowerBound)) + ' ' +
            ExactBoundText(AsUpper(row.UpperBound)));
}

void EditScript::PrintNewColumn(std::int32_t column_of_b) {
  const ColumnRecord& column = b_.Column(column_of_b);
  (*print_)(Line("add-column", column.Name) + ' ' + model::TypeText(column.Type));
  if (column.LowerBound != 0) PrintColumnLower(column_of_b);
  if (column.UpperBound < model::BoundLimit) PrintColumnUpper(column_of_b);
}

void EditScript::PrintColumnLower(std::int32_t column_of_b) {
  const ColumnRecord& column = b_.Column(column_of_b);
  (*print_)(Line("set-bound", column.Name) + " LO " + ExactBoundText(AsLower(column.LowerBound)));
}

void EditScript::PrintColumnUpper(std::int32_t column_of_b) {
  const ColumnRecord& column = b_.Column(column_of_b);
  (*print_)(Line("set-bound", column.Name) + " UP " + ExactBoundText(AsUpper(column.UpperBound)));
}

void EditScript::PrintElements(const Difference& d) {
  if (d.kind == kRowCame) return PrintElementsOfNewRow(d.row.b);
  if (d.kind == kColumnCame) return PrintElementsOfNewColumn(d.column.b);
  const bool of_element =
      d.kind == kElementCame || d.kind == kElementValue || d.kind == kElementWent;
  if (!of_element) return;
  if (const std::int32_t count = CountInA(d); count > 1) return PrintRepeatedPair(d, count);
  if (d.kind == kElementWent) return;
  PrintElement(d.kind == kElementCame ? "add-element" : "set-element", b_.Row(d.row.b).Name,
               b_.Column(d.column.b).Name, d.after);
}

void EditScript::PrintElementsOfNewRow(std::int32_t row_of_b) {
  const RowRecord& row = b_.Row(row_of_b);
  for (const model::ElementEntry& entry : row.Elements) {
    PrintElement("add-element", row.Name, b_.Column(entry.Index).Name, entry.Value);
  }
}

void EditScript::PrintElementsOfNewColumn(std::int32_t column_of_b) {
  const ColumnRecord& column = b_.Column(column_of_b);
  for (const model::ElementEntry& entry : column.Elements) {
    const std::string_view row = b_.Row(entry.Index).Name;
    if (a_.FindRow(row) != 0) PrintElement("add-element", row, column.Name, entry.Value);
  }
}

void EditScript::PrintRepeatedPair(const Difference& d, std::int32_t count_in_a) {
  const std::int32_t place = b_.FindElement(d.row.b, d.column.b);
  if (place == 0 || !done_.try_emplace({d.row.a, d.column.a}, 0).second) return;
  for (std::int32_t i = 1; i < count_in_a; ++i)
    PrintElementDeletion(a_.Row(d.row.a), a_.Column(d.column.a));
  PrintElement("set-element", b_.Row(d.row.b).Name, b_.Column(d.column.b).Name,
               b_.looks().ElementValue(d.row.b, d.column.b));
}

void EditScript::PrintElementDeletions(const Difference& d) {
  if (d.kind != kElementWent || IsEmptied(d.row.a)) return;
  if (CountInA(d) > 1 && b_.FindElement(d.row.b, d.column.b) != 0) return;
  PrintElementDeletion(a_.Row(d.row.a), a_.Column(d.column.a));
}

void EditScript::PrintRepeatedPairsThatGo() {
  for (const auto& [pair, count] : repeated_in_a_) {
    const RowRecord& row = a_.Row(pair.first);
    const ColumnRecord& column = a_.Column(pair.second);
    const bool stays = b_.FindRow(row.Name) != 0 && b_.FindColumn(column.Name) != 0;
    if (stays && !IsEmptied(pair.first)) continue;
    for (std::int32_t i = 1; i < count; ++i) PrintElementDeletion(row, column);
  }
}

void EditScript::PrintRowDeletions(const Difference& d) {
  if (d.kind == kRowWent) (*print_)(Line("delete-row", a_.Row(d.row.a).Name));
}

void EditScript::PrintEmptiedRows() {
  for (std::int32_t r = 1; r <= a_.NumberOfRows(); ++r) {
    if (!IsEmptied(r)) continue;
    (*print_)(Line("delete-row", a_.Row(r).Name));
    PrintNewRow(b_.FindRow(a_.Row(r).Name));
  }
}

void EditScript::PrintColumnDeletions(const Difference& d) {
  if (d.kind == kColumnWent) (*print_)(Line("delete-column", a_.Column(d.column.a).Name));
}

void EditScript::PrintElement(std::string_view command, std::string_view row,
                              std::string_view column, double value) {
  (*print_)(Line(command, row) + ' ' + QuotedWord(column) + ' ' + text::RoundTripText(value));
}

void EditScript::PrintElementDeletion(const RowRecord& row, const ColumnRecord& column) {
  (*print_)(Line("delete-element", row.Name) + ' ' + QuotedWord(column.Name));
}

std::int32_t EditScript::CountInA(const Difference& d) const {
  const auto found = repeated_in_a_.find({d.row.a, d.column.a});
  return found == repeated_in_a_.end() ? 1 : found->second;
}

}  // namespace quarvel::hosts
