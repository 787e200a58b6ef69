#include "model/error_reports.h"

#include "platform/automation_error.h"
#include "text/numbers.h"

namespace quarvel::model {
namespace {

using text::IntegerText;

// "<prefix><index> is out of range.  " and, on a second line, "<range><count - 1>."
std::string RangeText(std::string_view what, std::int32_t index, std::string_view range,
                      std::int32_t count) {
  std::string result = "Quarvel.dll error: ";
  result.append(what).append(" ").append(IntegerText(index));
  result.append(" is out of range.  \r\n").append(range);
  return result.append(IntegerText(std::int64_t{count} - 1)).append(".");
}

// The words say "row" for a column's list too.
std::string ElementRangeText(std::int32_t k, std::int32_t count) {
  return RangeText("element", k, "Elements in this row range from 0 to ", count);
}

[[noreturn]] void Raise(std::int32_t number, std::string_view source, std::string description) {
  throw AutomationError(number, std::string(source), std::move(description));
}

// One of the two row indexes; both report every failure with the column's number and the word
// "column".
struct IndexReport {
  std::string_view source;
  std::string_view none;
  std::string_view range;
};

std::int32_t CheckIndex(const IndexReport& report, std::int32_t i, std::int32_t count) {
  if (count == 0) Raise(kColumnOutOfRange, report.source, std::string(report.none));
  if (!InRange(i, count)) {
    Raise(kColumnOutOfRange, report.source, RangeText("column", i, report.range, count));
  }
  return Stored(i);
}

}  // namespace

std::string ColumnRangeText(std::int32_t j, std::int32_t count) {
  return RangeText("column", j, "Columns range from 0 to ", count);
}

std::string RowRangeText(std::int32_t i, std::int32_t count) {
  return RangeText("row", i, "Rows range from 0 to ", count);
}

void RaiseColumnOutOfRange(std::int32_t j, std::int32_t count) {
  Raise(kColumnOutOfRange, kGetColumn, ColumnRangeText(j, count));
}

void RaiseRowOutOfRange(std::int32_t i, std::int32_t count) {
  Raise(kRowOutOfRange, kGetRow, RowRangeText(i, count));
}

void RaiseColumnElementOutOfRange(std::int32_t k, std::int32_t count) {
  Raise(kColumnElementOutOfRange, kGetColumn, ElementRangeText(k, count));
}

void RaiseRowElementOutOfRange(std::int32_t k, std::int32_t count) {
  Raise(kRowElementOutOfRange, kGetRow, ElementRangeText(k, count));
}

std::int32_t CheckRowOfPair(std::int32_t i, std::int32_t count) {
  if (!InRange(i, count)) {
    Raise(kRowOutOfRange, kGetRow, "Quarvel.dll error: row out of range.");
  }
  return Stored(i);
}

std::int32_t CheckColumnOfPair(std::int32_t j, std::int32_t count) {
  if (!InRange(j, count)) {
    Raise(kColumnOutOfRange, kGetColumn, "Quarvel.dll error: column out of range.");
  }
  return Stored(j);
}

std::int32_t CheckBindingRowIndex(std::int32_t i, std::int32_t count) {
  static constexpr IndexReport kReport = {"LPModel.BindingRowIndex()",
                                          "Quarvel.dll error: There are no Binding Rows",
                                          "The valid range for BindnigRowIndex is from 0 to "};
  return CheckIndex(kReport, i, count);
}

std::int32_t CheckNonBindingRowIndex(std::int32_t i, std::int32_t count) {
  static constexpr IndexReport kReport = {"LPModel.NonBindingRowIndex()",
                                          "Quarvel.dll error: There are no Non-Binding Rows",
                                          "The valid range for NonBindnigRowIndex is from 0 to "};
  return CheckIndex(kReport, i, count);
}

void RaiseTooFewElementsInPoint() {
  Raise(kTooFewElementsInPoint, "LPModel.rowBodyValue", "Too few elements in input point");
}

}  // namespace quarvel::model
