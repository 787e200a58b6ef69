// Every edit of a model, with every allocation that it makes failing in turn: the model is as it was,
// and the edit can be repeated.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/memory/described_model.h"
#include "tests/memory/memory_states.h"
#include "tests/memory/operation_names.h"
#include "tests/memory/trials.h"

namespace quarvel::testing {
namespace {

constexpr const char* kLongName = "a name that is far too long to stand in its record";
constexpr const char* kLongWord = "a_name_that_is_far_too_long_to_stand_in_its_record";

// What a host hands over is there before the edit begins.
const model::Variant& LongName() {
  static const model::Variant value(kLongName);
  return value;
}
const model::Variant& LongWord() {
  static const model::Variant value(kLongWord);
  return value;
}

struct NamedEdit {
  const char* name;
  std::function<int(LPModel&)> run;
};

// Numbers that some of the models do not have are refused, which takes memory too.
const std::vector<NamedEdit>& Edits() {
  static const std::vector<NamedEdit> edits = {
      {"AddRow", [](LPModel& m) { return m.AddRow("ADDED"); }},
      {"AddRow, long", [](LPModel& m) { return m.AddRow(kLongWord); }},
      {"AddRow, refused", [](LPModel& m) { return m.AddRow(kLongName); }},
      {"AddColumn", [](LPModel& m) { return m.AddColumn("ADDED"); }},
      {"AddColumn, long", [](LPModel& m) { return m.AddColumn(kLongWord); }},
      {"AddElement", [](LPModel& m) { return m.AddElement(0, 2, 5), 0; }},
      {"AddElement, once more", [](LPModel& m) { return m.AddElement(1, 1, 5), 0; }},
      {"DeleteRow", [](LPModel& m) { return m.DeleteRow(0); }},
      {"DeleteRow, last", [](LPModel& m) { return m.DeleteRow(m.NumberOfRows() - 1); }},
      {"DeleteColumn", [](LPModel& m) { return m.DeleteColumn(0); }},
      {"DeleteColumn, second", [](LPModel& m) { return m.DeleteColumn(1); }},
      {"DeleteColumn, last", [](LPModel& m) { return m.DeleteColumn(m.NumberOfColumns() - 1); }},
      {"DeleteElement", [](LPModel& m) { return m.DeleteElement(0, 0); }},
      {"DeleteElement, of the last row",
       [](LPModel& m) { return m.DeleteElement(m.NumberOfRows() - 1, 0); }},
      {"SetRowName", [](LPModel& m) { return m.SetRowName(0, "OTHER"), 0; }},
      {"SetRowName, long", [](LPModel& m) { return m.SetRowName(1, LongWord()), 0; }},
      {"SetColName", [](LPModel& m) { return m.SetColName(0, "OTHER"), 0; }},
      {"SetColName, long", [](LPModel& m) { return m.SetColName(1, LongWord()), 0; }},
      {"SetRowType, to N", [](LPModel& m) { return m.SetRowType(1, "N"), 0; }},
      {"SetRowType, from N", [](LPModel& m) { return m.SetRowType(0, "L"), 0; }},
      {"SetRowType, of the last row",
       [](LPModel& m) { return m.SetRowType(m.NumberOfRows() - 1, "N"), 0; }},
      {"SetRowType, of the last row, to L",
       [](LPModel& m) { return m.SetRowType(m.NumberOfRows() - 1, "L"), 0; }},
      {"SetColType", [](LPModel& m) { return m.SetColType(1, "I"), 0; }},
      {"SetRowElementValue", [](LPModel& m) { return m.SetRowElementValue(0, 1, 2.5), 0; }},
      {"SetRowLowerBound", [](LPModel& m) { return m.SetRowLowerBound(1, 2.5), 0; }},
      {"SetRowUpperBound", [](LPModel& m) { return m.SetRowUpperBound(1, 2.5), 0; }},
      {"SetColLowerBound", [](LPModel& m) { return m.SetColLowerBound(1, 2.5), 0; }},
      {"SetColUpperBound", [](LPModel& m) { return m.SetColUpperBound(1, 2.5), 0; }},
      {"SetModelName", [](LPModel& m) { return m.SetModelName(LongName()), 0; }},
      {"SetModelDescription", [](LPModel& m) { return m.SetModelDescription(LongName()), 0; }},
      {"strMPSFile", [](LPModel& m) { return m.strMPSFile(kLongName), 0; }},
      {"ReadMPSFileErr", [](LPModel& m) { return m.ReadMPSFileErr(1), 0; }},
      {"frmViewEquationsIsShowing",
       [](LPModel& m) { return m.frmViewEquationsIsShowing(false), 0; }},
      {"showFrm", [](LPModel& m) { return m.showFrm({}), 0; }},
      {"SetDefaultToPlusMinusInfinity",
       [](LPModel& m) { return m.SetDefaultToPlusMinusInfinity(true), 0; }},
      {"MakeNewModel", [](LPModel& m) { return m.MakeNewModel(), 0; }},
  };
  return edits;
}

// One edit of a model in one state, and what it comes to with enough memory.
class EditTrial {
 public:
  EditTrial(const NamedState& state, const NamedEdit& edit) : state_(state), edit_(edit) {
    Subject before;
    state.make(before.model);
    before_ = Described(before.model);
    Subject after;
    state.make(after.model);
    wanted_ = OutcomeOf([&] { return edit.run(after.model); });
    after_ = Described(after.model);
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    Subject subject;
    state_.make(subject.model);
    Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = OutcomeOf([&] { return edit_.run(subject.model); });
      if (!failing.happened()) return std::nullopt;
    }
    return FaultOf(subject.model, outcome);
  }

 private:
  std::string FaultOf(LPModel& model, const Outcome& outcome) const {
    if (outcome == wanted_) {  // a shortage that the edit can do without is none
      return Described(model) == after_ ? "" : "done, with another state";
    }
    const bool changed = Described(model) != before_;
    if (outcome.error != kOutOfMemory) return Text(outcome) + (changed ? ", not as before" : "");
    if (changed) return "not as before";
    const Outcome again = OutcomeOf([&] { return edit_.run(model); });
    if (again != wanted_) return "repeated: " + Text(again);
    return Described(model) == after_ ? "" : "repeated, with another state";
  }

  const NamedState& state_;
  const NamedEdit& edit_;
  std::string before_;
  std::string after_;
  Outcome wanted_;
};

TEST(EditMemory, ModelIsAsBeforeAtEveryFailedAllocationAndTheEditCanBeRepeated) {
  Trials trials;
  for (const NamedState& state : States()) {
    for (const NamedEdit& edit : Edits()) {
      trials.Run(std::string(edit.name) + " of " + state.name, EditTrial(state, edit));
    }
  }
  const NamedEdit deletion = {"DeleteRow", [](LPModel& m) { return m.DeleteRow(0); }};
  trials.Run("DeleteRow of many rows", EditTrial(kManyRowsHalfRead, deletion));
  trials.Expect(1000);
}

TEST(EditMemory, ModelThatCannotBeMadeIsALackOfMemory) {
  ScarceDesktop desktop;
  Trials trials;
  trials.Run("LPModel", [&](std::int64_t n, Shortage shortage) -> std::optional<std::string> {
    const FailingAllocation failing(n, shortage);
    const Outcome outcome = OutcomeOf([&] { return LPModel(desktop).NumberOfRows(); });
    if (!failing.happened()) return std::nullopt;
    const EnoughMemory enough;
    return outcome.error == kOutOfMemory ? "" : Text(outcome);
  });
  trials.Expect(2);
}

// The row stands whatever becomes of the warning.
TEST(EditMemory, WarningThatThereIsNoMemoryForIsGivenWithTheNextLongName) {
  bool found = false;
  for (std::int64_t n = 1; !found; ++n) {
    Subject subject;
    MakeSmall(subject.model);
    Outcome outcome;
    {
      const FailingAllocation failing(n, Shortage::kForEver);
      outcome = OutcomeOf([&] { return subject.model.AddRow(kLongWord); });
      ASSERT_TRUE(failing.happened());
    }
    found = outcome.error == 0;
    if (!found) continue;
    EXPECT_EQ(subject.model.RowName(6), kLongWord);
    EXPECT_TRUE(subject.desktop.boxes().empty());
    subject.model.AddColumn(kLongWord);
    EXPECT_EQ(subject.desktop.boxes().size(), 1u);
  }
}

}  // namespace

std::vector<std::string> NamesOfEdits() { return OperationsIn(Edits()); }

}  // namespace quarvel::testing
