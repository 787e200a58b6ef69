#include "tests/support/query_comparison.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/automation_error.h"
#include "text/numbers.h"

namespace quarvel::testing {
namespace {

using text::GeneralText;

constexpr std::int32_t kColumnOutOfRange = static_cast<std::int32_t>(0x80040212);
constexpr std::int32_t kColumnElementOutOfRange = static_cast<std::int32_t>(0x80040213);
constexpr std::int32_t kRowOutOfRange = static_cast<std::int32_t>(0x80040214);
constexpr std::int32_t kRowElementOutOfRange = static_cast<std::int32_t>(0x80040215);
constexpr std::int32_t kTooFewElements = static_cast<std::int32_t>(0x80040201);
constexpr std::int32_t kSubscriptOutOfRange = 9;

struct Failure {
  std::int32_t number;
};

std::string TextOf(const std::string& text) { return text; }
std::string TextOf(double value) { return GeneralText(value); }
std::string TextOf(std::int32_t value) { return std::to_string(value); }
std::string Raised(std::int32_t number) { return "raised " + std::to_string(number); }

// One row, column and element of the naive model, by public numbers.
class Question {
 public:
  Question(const LPModel& model, const NaiveModel& naive, const Choice& choose)
      : model_(model),
        naive_(naive),
        i_(ChooseNumber(choose, naive.NumberOfRows)),
        j_(ChooseNumber(choose, naive.NumberOfColumns)),
        k_(ChooseNumber(choose, 4)) {}

  std::string Run() {
    AskRow();
    AskColumn();
    AskElements();
    AskFunctions();
    return fault_;
  }

 private:
  static std::int32_t ChooseNumber(const Choice& choose, std::int32_t count) {
    return static_cast<std::int32_t>(choose(static_cast<std::uint32_t>(count) + 2)) - 1;
  }

  const NaiveRecord& Row() const {
    if (i_ < 0 || i_ >= naive_.NumberOfRows) throw Failure{kRowOutOfRange};
    return naive_.Rows[static_cast<std::size_t>(i_)];
  }
  const NaiveRecord& Column() const {
    if (j_ < 0 || j_ >= naive_.NumberOfColumns) throw Failure{kColumnOutOfRange};
    return naive_.Columns[static_cast<std::size_t>(j_)];
  }
  const NaiveEntry& Element(const NaiveRecord& record, std::int32_t error) const {
    if (k_ < 0 || k_ >= record.ElementCount()) throw Failure{error};
    return record.Elements[static_cast<std::size_t>(k_)];
  }
  const NaiveEntry& RowElement() const { return Element(Row(), kRowElementOutOfRange); }
  const NaiveEntry& ColumnElement() const { return Element(Column(), kColumnElementOutOfRange); }

  // Both answers, or both failures.
  template <class Is, class Wanted>
  void Same(const std::string& what, const Is& is, const Wanted& wanted) {
    std::string given;
    std::string expected;
    try {
      given = TextOf(is());
    } catch (const AutomationError& error) {
      given = Raised(error.number());
    }
    try {
      expected = TextOf(wanted());
    } catch (const Failure& failure) {
      expected = Raised(failure.number);
    }
    if (given == expected || !fault_.empty()) return;
    fault_ = what + " of row " + std::to_string(i_) + ", column " + std::to_string(j_) +
             ", element " + std::to_string(k_) + " is " + given + ", should be " + expected;
  }

  void AskRow() {
    Same(
        "RowName", [&] { return model_.RowName(i_); }, [&] { return Row().Name; });
    Same(
        "RowType", [&] { return model_.RowType(i_); }, [&] { return Row().Type; });
    Same(
        "RowLowerBound", [&] { return model_.RowLowerBound(i_); },
        [&] { return Row().LowerBound; });
    Same(
        "RowUpperBound", [&] { return model_.RowUpperBound(i_); },
        [&] { return Row().UpperBound; });
    Same(
        "RowNumberElements", [&] { return model_.RowNumberElements(i_); },
        [&] { return Row().ElementCount(); });
    Same(
        "RowEquation", [&] { return model_.RowEquation(i_); }, [&] { return Equation(); });
  }

  void AskColumn() {
    Same(
        "ColName", [&] { return model_.ColName(j_); }, [&] { return Column().Name; });
    Same(
        "ColType", [&] { return model_.ColType(j_); }, [&] { return Column().Type; });
    Same(
        "ColLowerBound", [&] { return model_.ColLowerBound(j_); },
        [&] { return Column().LowerBound; });
    Same(
        "ColUpperBound", [&] { return model_.ColUpperBound(j_); },
        [&] { return Column().UpperBound; });
    Same(
        "ColNumberElements", [&] { return model_.ColNumberElements(j_); },
        [&] { return Column().ElementCount(); });
  }

  void AskElements() {
    Same(
        "RowElementCol", [&] { return model_.RowElementCol(i_, k_); },
        [&] { return RowElement().Index - 1; });
    Same(
        "RowElementValue", [&] { return model_.RowElementValue(i_, k_); },
        [&] { return RowElement().Value; });
    Same(
        "ColElementrow", [&] { return model_.ColElementrow(j_, k_); },
        [&] { return ColumnElement().Index - 1; });
    Same(
        "ColElementvalue", [&] { return model_.ColElementvalue(j_, k_); },
        [&] { return ColumnElement().Value; });
    Same(
        "ElementValue", [&] { return model_.ElementValue(i_, j_); },
        [&] {
          const NaiveRecord& row = Row();
          static_cast<void>(Column());
          for (const NaiveEntry& entry : row.Elements) {
            if (entry.Index == j_ + 1) return entry.Value;
          }
          return 0.0;
        });
  }

  void AskFunctions() {
    const auto slots = static_cast<std::size_t>(naive_.NumberOfColumns);
    // A row that is stored answers these, counted or not.
    if (i_ < 0 || i_ >= naive_.NumberOfRows) return;
    std::vector<double> gradient(slots, 7);
    const std::int16_t result = model_.RowGradient(i_, gradient);
    std::vector<double> expected(slots, 0);
    bool beyond = false;
    for (const NaiveEntry& entry : Row().Elements) {
      beyond = beyond || entry.Index > naive_.NumberOfColumns;
      if (!beyond) expected[static_cast<std::size_t>(entry.Index - 1)] = entry.Value;
    }
    const std::int32_t expected_result = beyond ? 0 : -1;
    Same(
        "RowGradient", [&] { return std::int32_t{result}; }, [&] { return expected_result; });
    for (std::size_t j = 0; j < slots; ++j) {
      Same(
          "a slot of RowGradient", [&] { return gradient[j]; }, [&] { return expected[j]; });
    }
    Same(
        "RowBodyValue", [&] { return BodyValue(); }, [&] { return NaiveBodyValue(); });
  }

  double BodyValue() const {
    double answer = 0;
    model_.RowBodyValue(i_, Point(), answer);
    return answer;
  }
  double NaiveBodyValue() const {
    double sum = 0;
    for (const NaiveEntry& entry : Row().Elements) {
      if (entry.Index > naive_.NumberOfColumns) throw Failure{kTooFewElements};
      sum += entry.Value * Point()[static_cast<std::size_t>(entry.Index - 1)];
    }
    return sum;
  }
  std::vector<double> Point() const {
    std::vector<double> point;
    for (std::int32_t j = 0; j < naive_.NumberOfColumns; ++j) point.push_back(j + 0.5);
    return point;
  }

  std::string Equation() const {
    const NaiveRecord& row = Row();
    if (row.Elements.empty()) return EmptyRow(row);
    std::string text = row.Type == "R" ? GeneralText(row.LowerBound) + "  >=  " : "";
    for (const NaiveEntry& entry : row.Elements) {
      if (static_cast<std::size_t>(entry.Index) > naive_.Columns.size()) {
        throw Failure{kSubscriptOutOfRange};
      }
      text += (entry.Value < 0 ? " - " : " + ") + GeneralText(std::fabs(entry.Value)) + "*" +
              naive_.Columns[static_cast<std::size_t>(entry.Index - 1)].Name;
    }
    if (row.Type == "N") text += "  (non-binding/objective)";
    if (row.Type == "G") text += "  >=  " + GeneralText(row.LowerBound);
    if (row.Type == "E") text += "  =  " + GeneralText(row.UpperBound);
    if (row.Type == "R" || row.Type == "L") text += "  <=  " + GeneralText(row.UpperBound);
    return text;
  }
  static std::string EmptyRow(const NaiveRecord& row) {
    const std::string empty = "This row has no elements.  ";
    const std::string lower = GeneralText(row.LowerBound);
    const std::string upper = GeneralText(row.UpperBound);
    if (row.Type == "N") return empty + "It is a non-binding/objective row.";
    if (row.Type == "G") {
      return empty + "It is a greater-than constraint row with lower bound " + lower + ".";
    }
    if (row.Type == "L") {
      return empty + "It is a less-than constraint row with upper bound " + upper + ".";
    }
    if (row.Type == "E") return empty + "It is an equality constraint row equal to " + upper + ".";
    if (row.Type == "R") {
      return empty + "It is a ranged constraint row with lower bound " + lower +
             " and upper bound " + upper + ".";
    }
    return empty;
  }

  const LPModel& model_;
  const NaiveModel& naive_;
  std::int32_t i_;
  std::int32_t j_;
  std::int32_t k_;
  std::string fault_;
};

}  // namespace

std::string CompareQueries(const LPModel& model, const NaiveModel& naive, const Choice& choose) {
  return Question(model, naive, choose).Run();
}

}  // namespace quarvel::testing
