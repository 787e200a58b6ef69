// Every question to a model, with every allocation that it makes failing in turn: the answer is
// right, or there is none, and the next one is right.

#include <array>
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

struct NamedQuery {
  const char* name;
  std::function<std::string(const LPModel&)> run;
};

std::string TextOf(double value) { return std::to_string(value); }
std::string TextOf(const std::string& value) { return value; }

template <class Ask>
NamedQuery Query(const char* name, Ask ask) {
  return {name, [ask](const LPModel& model) {
            const auto answer = ask(model);
            const EnoughMemory enough;
            return TextOf(answer);
          }};
}

double Gradient(const LPModel& model) {
  std::array<double, 64> slots = {};
  return model.RowGradient(0, slots) + slots[1];
}

double Body(const LPModel& model) {
  std::array<double, 64> point = {1, 2, 3};
  double answer = 0;
  model.RowBodyValue(0, point, answer);
  return answer;
}

// Numbers that some of the models do not have take memory too: for the error.
const std::vector<NamedQuery>& Queries() {
  static const std::vector<NamedQuery> queries = {
      Query("NumberOfRows", [](const LPModel& m) { return m.NumberOfRows(); }),
      Query("NumberOfColumns", [](const LPModel& m) { return m.NumberOfColumns(); }),
      Query("NumberOfElements", [](const LPModel& m) { return m.NumberOfElements(); }),
      Query("NumberOfBindingRows", [](const LPModel& m) { return m.NumberOfBindingRows(); }),
      Query("NumberOfNonBindingRows", [](const LPModel& m) { return m.NumberOfNonBindingRows(); }),
      Query("NumBindingRows", [](const LPModel& m) { return m.NumBindingRows(); }),
      Query("NumNonBindingRows", [](const LPModel& m) { return m.NumNonBindingRows(); }),
      Query("ModelName", [](const LPModel& m) { return m.ModelName(); }),
      Query("ModelDescription", [](const LPModel& m) { return m.ModelDescription(); }),
      Query("FileLocation", [](const LPModel& m) { return m.FileLocation(); }),
      Query("strMPSFile", [](const LPModel& m) { return m.strMPSFile(); }),
      Query("ReadMPSFileErr", [](const LPModel& m) { return m.ReadMPSFileErr(); }),
      Query("ViewEquationsWindowIsShowing",
            [](const LPModel& m) { return m.ViewEquationsWindowIsShowing(); }),
      Query("showFrm", [](const LPModel& m) { return m.showFrm().has_value(); }),
      Query("DisplayAuthor", [](const LPModel& m) { return m.DisplayAuthor(), 0; }),
      Query("ColElementrow", [](const LPModel& m) { return m.ColElementrow(1, 1); }),
      Query("ColElementvalue", [](const LPModel& m) { return m.ColElementvalue(1, 0); }),
      Query("ColNumberElements", [](const LPModel& m) { return m.ColNumberElements(0); }),
      Query("ColUpperBound", [](const LPModel& m) { return m.ColUpperBound(0); }),
      Query("ColLowerBound", [](const LPModel& m) { return m.ColLowerBound(99); }),
      Query("ColName", [](const LPModel& m) { return m.ColName(1); }),
      Query("ColType", [](const LPModel& m) { return m.ColType(1); }),
      Query("RowElementCol", [](const LPModel& m) { return m.RowElementCol(1, 0); }),
      Query("RowElementValue", [](const LPModel& m) { return m.RowElementValue(1, 9); }),
      Query("RowNumberElements", [](const LPModel& m) { return m.RowNumberElements(0); }),
      Query("RowUpperBound", [](const LPModel& m) { return m.RowUpperBound(0); }),
      Query("RowLowerBound", [](const LPModel& m) { return m.RowLowerBound(-1); }),
      Query("RowName", [](const LPModel& m) { return m.RowName(1); }),
      Query("RowType", [](const LPModel& m) { return m.RowType(1); }),
      Query("RowEquation", [](const LPModel& m) { return m.RowEquation(1); }),
      Query("ElementValue", [](const LPModel& m) { return m.ElementValue(1, 1); }),
      Query("BindingRowIndex", [](const LPModel& m) { return m.BindingRowIndex(0); }),
      Query("NonBindingRowIndex", [](const LPModel& m) { return m.NonBindingRowIndex(0); }),
      Query("RowGradient", Gradient),
      Query("RowBodyValue", Body),
  };
  return queries;
}

class QueryTrial {
 public:
  QueryTrial(const NamedState& state, const NamedQuery& query) : state_(state), query_(query) {
    Subject subject;
    Prepare(subject.model);
    wanted_ = Ask(subject.model);
    described_ = Described(subject.model);
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    Subject subject;
    Prepare(subject.model);
    Answer answer;
    {
      const FailingAllocation failing(n, shortage);
      answer = Ask(subject.model);
      if (!failing.happened()) return std::nullopt;
    }
    if (answer.outcome.error != kOutOfMemory && answer != wanted_) return Text(answer.outcome);
    if (Ask(subject.model) != wanted_) return "another answer when repeated";
    return Described(subject.model) == described_ ? "" : "another state";
  }

 private:
  struct Answer {
    Outcome outcome;
    std::string text;
    bool operator==(const Answer&) const = default;
  };

  void Prepare(LPModel& model) const {
    state_.make(model);
    model::ModelSettings& settings = model.store().settings();
    settings.ModelName = "a text that does not stand in its own room alone";
    settings.ModelDescription = settings.FileLocation = settings.strMPSFile = settings.ModelName;
  }

  Answer Ask(const LPModel& model) const {
    Answer answer;
    answer.outcome = OutcomeOf([&] {
      answer.text = query_.run(model);
      return 0;
    });
    return answer;
  }

  const NamedState& state_;
  const NamedQuery& query_;
  Answer wanted_;
  std::string described_;
};

TEST(QueryMemory, AnswerIsRightOrThereIsNoneAtEveryFailedAllocation) {
  Trials trials;
  for (const NamedState& state : States()) {
    for (const NamedQuery& query : Queries()) {
      trials.Run(std::string(query.name) + " of " + state.name, QueryTrial(state, query));
    }
  }
  trials.Expect(300);
}

}  // namespace

std::vector<std::string> NamesOfQueries() { return OperationsIn(Queries()); }

}  // namespace quarvel::testing
