#include "inspect/compare.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "inspect/element_comparison.h"
#include "inspect/record_pairing.h"

namespace quarvel::inspect {
namespace {

using enum DifferenceKind;
using model::ModelData;
using model::ModelStore;

// What is told of one kind of records, and which part of a difference names them.
struct RecordKinds {
  RecordPair Difference::*records;
  DifferenceKind went;
  DifferenceKind came;
  DifferenceKind type;
  DifferenceKind lower;
  DifferenceKind upper;
  DifferenceKind order;
};

constexpr RecordKinds kRows = {&Difference::row, kRowWent,  kRowCame, kRowType,
                               kRowLower,        kRowUpper, kRowOrder};
constexpr RecordKinds kColumns = {&Difference::column, kColumnWent,  kColumnCame, kColumnType,
                                  kColumnLower,        kColumnUpper, kColumnOrder};

bool AreCloseBounds(bool a_is_none, bool b_is_none, double a, double b,
                    const Tolerance& tolerance) {
  return a_is_none || b_is_none ? a_is_none == b_is_none : AreClose(a, b, tolerance);
}

bool AreCloseLower(double a, double b, const Tolerance& tolerance) {
  return AreCloseBounds(a <= -model::BoundLimit, b <= -model::BoundLimit, a, b, tolerance);
}

bool AreCloseUpper(double a, double b, const Tolerance& tolerance) {
  return AreCloseBounds(a >= model::BoundLimit, b >= model::BoundLimit, a, b, tolerance);
}

NamedRecords RowsOf(const ModelStore& store) {
  const ModelData& data = store.looks().DataWithoutRowLists();
  return {data.NumberOfRows,
          [&data](std::int32_t r) -> std::string_view { return data.Rows[r].Name; },
          [&store](std::string_view name) { return store.FindRow(name); }};
}

NamedRecords ColumnsOf(const ModelStore& store) {
  const ModelData& data = store.looks().DataWithoutRowLists();
  return {data.NumberOfColumns,
          [&data](std::int32_t c) -> std::string_view { return data.Columns[c].Name; },
          [&store](std::string_view name) { return store.FindColumn(name); }};
}

class ModelComparison {
 public:
  ModelComparison(const ModelStore& a, const ModelStore& b, const Tolerance& tolerance,
                  const DifferenceVisitor& visit)
      : a_(a.looks().DataWithoutRowLists()),
        b_(b.looks().DataWithoutRowLists()),
        tolerance_(tolerance),
        visit_(visit),
        rows_(RowsOf(a), RowsOf(b)),
        columns_(ColumnsOf(a), ColumnsOf(b)),
        elements_(rows_, b.NumberOfRows(), tolerance, visit) {}

  void Run();

 private:
  template <class Records, class InBoth>
  void CompareRecords(const RecordKinds& kinds, const RecordPairing& pairing, const Records& a,
                      std::int32_t count_of_a, const Records& b, const InBoth& in_both) const;
  void TellCame(const RecordKinds& kinds, const RecordPairing& pairing,
                std::int32_t count_of_b) const;
  template <class Record>
  void CompareFields(const RecordKinds& kinds, RecordPair pair, const Record& a,
                     const Record& b) const;
  void Tell(DifferenceKind kind, const RecordKinds& kinds, RecordPair pair, double before = 0,
            double after = 0) const;

  const ModelData& a_;
  const ModelData& b_;
  const Tolerance& tolerance_;
  const DifferenceVisitor& visit_;
  RecordPairing rows_;
  RecordPairing columns_;
  ElementComparison elements_;
};

void ModelComparison::Run() {
  if (a_.ModelName != b_.ModelName) visit_({kModelName});
  if (a_.ModelDescription != b_.ModelDescription) visit_({kDescription});
  CompareRecords(kRows, rows_, a_.Rows, a_.NumberOfRows, b_.Rows, [](RecordPair) {});
  TellCame(kRows, rows_, b_.NumberOfRows);
  CompareRecords(
      kColumns, columns_, a_.Columns, a_.NumberOfColumns, b_.Columns, [this](RecordPair pair) {
        elements_.Compare(pair, a_.Columns[pair.a].Elements, b_.Columns[pair.b].Elements);
      });
  TellCame(kColumns, columns_, b_.NumberOfColumns);
}

template <class Records, class InBoth>
void ModelComparison::CompareRecords(const RecordKinds& kinds, const RecordPairing& pairing,
                                     const Records& a, std::int32_t count_of_a, const Records& b,
                                     const InBoth& in_both) const {
  std::int32_t last = 0;
  for (std::int32_t number = 1; number <= count_of_a; ++number) {
    const RecordPair pair = {number, pairing.InB(number)};
    if (pair.b == 0) {
      Tell(kinds.went, kinds, pair);
      continue;
    }
    if (pair.b < last) Tell(kinds.order, kinds, pair);
    last = pair.b;
    CompareFields(kinds, pair, a[pair.a], b[pair.b]);
    in_both(pair);
  }
}

void ModelComparison::TellCame(const RecordKinds& kinds, const RecordPairing& pairing,
                               std::int32_t count_of_b) const {
  for (std::int32_t number = 1; number <= count_of_b; ++number) {
    if (pairing.InA(number) == 0) Tell(kinds.came, kinds, {0, number});
  }
}

template <class Record>
void ModelComparison::CompareFields(const RecordKinds& kinds, RecordPair pair, const Record& a,
                                    const Record& b) const {
  if (a.Type != b.Type) Tell(kinds.type, kinds, pair);
  if (!AreCloseLower(a.LowerBound, b.LowerBound, tolerance_)) {
    Tell(kinds.lower, kinds, pair, a.LowerBound, b.LowerBound);
  }
  if (!AreCloseUpper(a.UpperBound, b.UpperBound, tolerance_)) {
    Tell(kinds.upper, kinds, pair, a.UpperBound, b.UpperBound);
  }
}

void ModelComparison::Tell(DifferenceKind kind, const RecordKinds& kinds, RecordPair pair,
                           double before, double after) const {
  Difference difference = {kind, {}, {}, before, after};
  difference.*kinds.records = pair;
  visit_(difference);
}

}  // namespace

bool AreClose(double a, double b, const Tolerance& tolerance) {
  if (a == b) return true;
  if (!std::isfinite(a) || !std::isfinite(b)) return std::isnan(a) && std::isnan(b);
  const double apart = std::abs(a - b);
  return apart <= tolerance.absolute ||
         apart <= tolerance.relative * std::max(std::abs(a), std::abs(b));
}

void Compare(const ModelStore& a, const ModelStore& b, const Tolerance& tolerance,
             const DifferenceVisitor& visit) {
  ModelComparison(a, b, tolerance, visit).Run();
}

void CompareFacts(const mps::FileFacts& a, const mps::FileFacts& b, const Tolerance& tolerance,
                  const DifferenceVisitor& visit) {
  const auto maximizes = [](const mps::FileFacts& facts) {
    return facts.sense == mps::ObjectiveSense::kMaximize;
  };
  if (maximizes(a) != maximizes(b)) visit({kObjectiveSense});
  if (a.objective != b.objective) visit({kObjective});
  if (!AreClose(a.objective_constant, b.objective_constant, tolerance)) {
    visit({kObjectiveConstant, {}, {}, a.objective_constant, b.objective_constant});
  }
}

Differences Compare(const ModelStore& a, const ModelStore& b, const Tolerance& tolerance,
                    std::size_t kept_of_each) {
  Differences differences(kept_of_each);
  Compare(a, b, tolerance, [&differences](const Difference& d) { differences.Add(d); });
  return differences;
}

}  // namespace quarvel::inspect
