// Comparing LPModel with NaiveModel.

#include <cstring>
#include <string>
#include <vector>

#include "platform/automation_error.h"
#include "tests/support/edit_operations.h"
#include "text/numbers.h"

namespace quarvel::testing {
namespace {

using text::GeneralText;
using text::IntegerText;

struct Outcome {
  std::int32_t result = 0;
  std::int32_t error = 0;
  bool operator==(const Outcome&) const = default;
};

template <class Model, class Run>
Outcome Attempt(Model& model, const Run& run) {
  try {
    return {.result = run(model)};
  } catch (const AutomationError& error) {
    return {.error = error.number()};
  }
}

std::string Different(const std::string& what, const std::string& is, const std::string& wanted) {
  return what + ": is " + is + ", should be " + wanted;
}

// Numbers compare by their bits: -0 is not 0.
bool Same(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

void Compare(std::string& faults, const std::string& what, const std::string& is,
             const std::string& wanted) {
  if (faults.empty() && is != wanted)
    faults = Different(what, "\"" + is + "\"", "\"" + wanted + "\"");
}

void Compare(std::string& faults, const std::string& what, std::int64_t is, std::int64_t wanted) {
  if (faults.empty() && is != wanted)
    faults = Different(what, IntegerText(is), IntegerText(wanted));
}

void CompareNumber(std::string& faults, const std::string& what, double is, double wanted) {
  if (faults.empty() && !Same(is, wanted)) {
    faults = Different(what, GeneralText(is), GeneralText(wanted));
  }
}

template <class Record>
void CompareRecord(std::string& faults, const std::string& what, const Record& is,
                   const NaiveRecord& wanted) {
  Compare(faults, what + " Name", is.Name, wanted.Name);
  Compare(faults, what + " Type", model::TypeText(is.Type), wanted.Type);
  CompareNumber(faults, what + " LowerBound", is.LowerBound, wanted.LowerBound);
  CompareNumber(faults, what + " UpperBound", is.UpperBound, wanted.UpperBound);
  Compare(faults, what + " ElementCount", is.ElementCount(), wanted.ElementCount());
  if (!faults.empty()) return;
  for (std::int32_t k = 1; k <= is.ElementCount(); ++k) {
    const NaiveEntry& entry = wanted.Elements[static_cast<std::size_t>(k - 1)];
    Compare(faults, what + " Index " + IntegerText(k), is.Elements[k].Index, entry.Index);
    CompareNumber(faults, what + " Value " + IntegerText(k), is.Elements[k].Value, entry.Value);
  }
}

template <class Records>
void CompareRecords(std::string& faults, const std::string& what, const Records& is,
                    const std::vector<NaiveRecord>& wanted) {
  Compare(faults, what + " stored", is.size(), static_cast<std::int64_t>(wanted.size()));
  if (!faults.empty()) return;
  for (std::int32_t n = 1; n <= is.size(); ++n) {
    CompareRecord(faults, what + " " + IntegerText(n), is[n],
                  wanted[static_cast<std::size_t>(n - 1)]);
  }
}

void CompareNumbers(std::string& faults, const std::string& what, const model::RowNumbers& is,
                    const std::vector<std::int32_t>& wanted) {
  if (faults.empty() && is.store() != wanted) faults = what + " differ";
}

// Every name leads to its first bearer.
template <class Find>
void CompareNames(std::string& faults, const std::string& what,
                  const std::vector<NaiveRecord>& records, std::int32_t count, const Find& find) {
  for (std::int32_t n = 1; n <= count; ++n) {
    const std::string& name = records[static_cast<std::size_t>(n - 1)].Name;
    std::size_t first = 0;
    while (records[first].Name != name) ++first;
    Compare(faults, what + " found by name", find(name), static_cast<std::int64_t>(first) + 1);
  }
  Compare(faults, what + " found by a name not given", find("not there"), 0);
}

}  // namespace

std::string EditComparison::CompareCounts() {
  std::string faults;
  Compare(faults, "NumberOfRows", model_.NumberOfRows(), naive_.NumberOfRows);
  Compare(faults, "NumberOfColumns", model_.NumberOfColumns(), naive_.NumberOfColumns);
  Compare(faults, "NumberOfElements", model_.NumberOfElements(), naive_.NumberOfElements);
  Compare(faults, "LongNameWarningShown", model_.store().settings().LongNameWarningShown,
          naive_.LongNameWarningShown);
  return faults;
}

std::string EditComparison::Apply(const EditOperation& operation) {
  desktop_.Clear();
  naive_.boxes.clear();
  const Outcome is = Attempt(model_, operation.on_model);
  const Outcome wanted = Attempt(naive_, operation.on_naive);
  std::string faults;
  Compare(faults, "result", is.result, wanted.result);
  Compare(faults, "error", is.error, wanted.error);
  Compare(faults, "number of boxes", static_cast<std::int64_t>(desktop_.boxes().size()),
          static_cast<std::int64_t>(naive_.boxes.size()));
  for (std::size_t i = 0; faults.empty() && i < naive_.boxes.size(); ++i) {
    const platform::ShownBox& box = desktop_.boxes()[i];
    Compare(faults, "box", box.text, naive_.boxes[i]);
    Compare(faults, "box style", static_cast<int>(box.style), 0);
    Compare(faults, "box title", box.title, std::string(platform::kDefaultTitle));
  }
  return faults.empty() ? CompareCounts() : faults;
}

std::string EditComparison::CompareState() {
  std::string faults;
  const model::ModelData& data = model_.store().data();
  Compare(faults, "ModelName", data.ModelName, naive_.ModelName);
  Compare(faults, "ModelDescription", data.ModelDescription, naive_.ModelDescription);
  Compare(faults, "FileLocation", data.FileLocation, naive_.FileLocation);
  Compare(faults, "NumberOfBindingRows", data.NumberOfBindingRows, naive_.NumberOfBindingRows);
  Compare(faults, "NumberOfNonBindingRows", data.NumberOfNonBindingRows,
          naive_.NumberOfNonBindingRows);
  Compare(faults, "DefaultToPlusMinusInfinity", data.DefaultToPlusMinusInfinity,
          naive_.DefaultToPlusMinusInfinity);
  CompareRecords(faults, "row", data.Rows, naive_.Rows);
  CompareRecords(faults, "column", data.Columns, naive_.Columns);
  CompareNumbers(faults, "BindingRows", data.BindingRows, naive_.BindingRows);
  CompareNumbers(faults, "NonBindingRows", data.NonBindingRows, naive_.NonBindingRows);
  if (!faults.empty()) return faults;
  CompareNames(faults, "row", naive_.Rows, naive_.NumberOfRows,
               [this](const std::string& name) { return model_.store().FindRow(name); });
  CompareNames(faults, "column", naive_.Columns, naive_.NumberOfColumns,
               [this](const std::string& name) { return model_.store().FindColumn(name); });
  return faults.empty() ? CompareCounts() : faults;
}

}  // namespace quarvel::testing
