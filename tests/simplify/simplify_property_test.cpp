// Random models simplified by the component and by the naive model, with random answers, stops and
// hosts that call back: the whole state, every box, caption, event point and log line must agree.

#include <map>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/simplify/simplify_helpers.h"
#include "tests/support/edit_operations.h"
#include "tests/support/model_builder.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/test_length.h"

namespace quarvel::simplify {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using platform::ShownBox;
using testing::Dump;
using testing::EditOperation;
using testing::NaiveModel;
using testing::NaiveRecord;
using testing::NaiveSimplifier;
using testing::NaiveUser;

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}
  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
  bool Percent(std::uint32_t chance) { return Below(100) < chance; }
  template <class T>
  const T& Of(const std::vector<T>& values) {
    return values[Below(static_cast<std::uint32_t>(values.size()))];
  }

 private:
  std::mt19937_64 random_;
};

struct Shape {
  std::uint32_t rows, columns;
  bool duplicates;
  bool zeros;
};

Shape RandomShape(Dice& dice) {
  const bool large = dice.Percent(35);
  return {dice.Below(large ? 160 : 9), dice.Below(large ? 200 : 7), dice.Percent(25),
          dice.Percent(8)};
}

NaiveRecord RandomRow(Dice& dice, std::uint32_t number) {
  static const std::vector<std::string> kTypes = {"G", "L", "E", "R", "R", "N", "", ""};
  NaiveRecord row;
  row.Name = "R" + std::to_string(number);
  row.Type = dice.Of(kTypes);
  row.LowerBound = static_cast<double>(dice.Below(25)) / 2 - 6;
  row.UpperBound = row.LowerBound + static_cast<double>(dice.Below(9));
  if (row.Type == "E") row.UpperBound = row.LowerBound;
  if (row.Type == "G" || row.Type == "N") row.UpperBound = 1e10;
  if (row.Type == "L" || row.Type == "N") row.LowerBound = -1e10;
  return row;
}

NaiveRecord RandomColumn(Dice& dice, std::uint32_t number) {
  static const std::vector<std::pair<double, double>> kBounds = {
      {0, 1e10}, {0, 1e10}, {-1e10, 1e10}, {-5, 5}, {0, 3}, {2, 2}, {4, 1}};
  const auto& [lower, upper] = dice.Of(kBounds);
  return {"C" + std::to_string(number), dice.Percent(20) ? "I" : "R", lower, upper, {}};
}

NaiveModel RandomModel(Dice& dice) {
  const Shape shape = RandomShape(dice);
  NaiveModel model;
  for (std::uint32_t i = 0; i < shape.rows; ++i) model.Rows.push_back(RandomRow(dice, i));
  for (std::uint32_t j = 0; j < shape.columns; ++j) model.Columns.push_back(RandomColumn(dice, j));
  model.NumberOfRows = static_cast<std::int32_t>(shape.rows);
  model.NumberOfColumns = static_cast<std::int32_t>(shape.columns);
  model.RebuildRowIndexes();
  static const std::vector<std::uint32_t> kSizes = {0, 1, 1, 1, 1, 1, 2, 3};
  static const std::vector<double> kValues = {1, 2, -1, -2, 0.5, 3, -0.25};
  for (std::int32_t i = 0; i < model.NumberOfRows && shape.columns > 0; ++i) {
    std::uint32_t column = dice.Below(shape.columns);
    for (std::uint32_t k = dice.Of(kSizes); k > 0; --k) {
      const double value = shape.zeros && dice.Percent(5) ? 0 : dice.Of(kValues);
      model.AddElement(i, static_cast<std::int32_t>(column), value);
      if (shape.duplicates ? dice.Percent(60) : ++column < shape.columns) continue;
      if (!shape.duplicates) break;
      column = dice.Below(shape.columns);
    }
  }
  return model;
}

// What the host does at a moment, with what it saw there. `looks` decides whether it looks at the
// whole model, which completes what was deferred; otherwise it only edits.
struct Visit {
  bool looks = false;
  std::string seen;
  std::vector<EditOperation> operations;
  std::vector<std::string> results;
};

template <class Call>
std::string ResultOf(const Call& call) {
  try {
    return std::to_string(call());
  } catch (const AutomationError& error) {
    return "raised " + std::to_string(error.number());
  } catch (const std::exception& error) {
    return error.what();
  }
}

struct Plan {
  NaiveUser user;
  bool host_looks = false;
  bool host_edits = false;
};

Plan RandomPlan(Dice& dice) {
  static const std::vector<MsgBoxResult> kAnswers = {MsgBoxResult::kYes, MsgBoxResult::kYes,
                                                     MsgBoxResult::kNo,  MsgBoxResult::kNo,
                                                     MsgBoxResult::kNo,  MsgBoxResult::kCancel};
  Plan plan;
  const bool cancels = dice.Percent(30);
  for (int i = 0; i < 1000; ++i) {
    MsgBoxResult answer = dice.Of(kAnswers);
    if (answer == MsgBoxResult::kCancel && !cancels) answer = MsgBoxResult::kNo;
    plan.user.answers.push_back(answer);
  }
  plan.user.sees_log = dice.Percent(30);
  plan.user.editor_starts = dice.Percent(60);
  if (dice.Percent(30)) plan.user.stops_at_event = 1 + dice.Below(5);
  plan.host_looks = dice.Percent(50);
  plan.host_edits = dice.Percent(30);
  return plan;
}

// One model simplified both ways.
class Comparison {
 public:
  explicit Comparison(std::uint64_t seed) : dice_(seed) {}

  void Run() {
    naive_ = RandomModel(dice_);
    naive_.ModelName = "MODEL";
    naive_.FileLocation = session_.folder.File("model.mps");
    ChangeFields(session_.model, [&](model::ModelData& data) { Fill(data, naive_); });
    const Plan plan = RandomPlan(dice_);
    RunNaive(plan);
    RunComponent(plan);
    EXPECT_EQ(failure_, naive_failure_);
    EXPECT_EQ(session_.desktop.transcript(), naive_run_.transcript);
    EXPECT_EQ(Dump(session_.model.store().data()), Dump(naive_));
    EXPECT_EQ(platform::FileExists(session_.log_name), naive_run_.log_kept);
    if (naive_run_.log_kept) {
      EXPECT_EQ(ReadWholeFile(session_.log_name), ExpectedLog());
    }
  }

 private:
  void RunNaive(const Plan& plan) {
    user_ = plan.user;
    user_.calls_back = [this, plan](std::int64_t moment) {
      Visit& visit = visits_[moment];
      visit.looks = plan.host_looks;
      if (visit.looks) visit.seen = Dump(naive_);
      if (!plan.host_edits || !dice_.Percent(40)) return;
      for (std::uint32_t i = 1 + dice_.Below(4); i > 0; --i) {
        const auto choose = [this](std::uint32_t bound) { return dice_.Below(bound); };
        testing::EditStyle style;
        style.new_models = dice_.Percent(10);
        visit.operations.push_back(ChooseOperation(choose, naive_, style));
        const EditOperation& operation = visit.operations.back();
        visit.results.push_back(ResultOf([&] { return operation.on_naive(naive_); }));
      }
    };
    naive_failure_ = ResultOf([this] { return naive_run_.Run(), 0; });
  }

  void RunComponent(const Plan& plan) {
    answers_ = plan.user.answers;
    session_.desktop.editor_starts = plan.user.editor_starts;
    session_.desktop.on_events = [this, plan](std::int64_t number) {
      VisitComponent();
      if (number == plan.user.stops_at_event) session_.PressStop();
    };
    session_.desktop.on_box = [this, plan](const ShownBox& box) {
      if (box.text == kLogQuestion) {
        return plan.user.sees_log ? MsgBoxResult::kYes : MsgBoxResult::kNo;
      }
      if (box.title == "Confirm") return MsgBoxResult::kYes;
      if (box.style == MsgBoxStyle::kOk) return MsgBoxResult::kOk;
      VisitComponent();
      const MsgBoxResult answer = answers_.at(0);
      answers_.pop_front();
      return answer;
    };
    failure_ = ResultOf([this] { return session_.model.SimplifyMPSModel(), 0; });
  }

  void VisitComponent() {
    const Visit& visit = visits_[++moment_];
    if (visit.looks) {
      EXPECT_EQ(Dump(session_.model.store().data()), visit.seen);
    }
    for (std::size_t i = 0; i < visit.operations.size(); ++i) {
      const EditOperation& operation = visit.operations[i];
      EXPECT_EQ(ResultOf([&] { return operation.on_model(session_.model); }), visit.results[i])
          << operation.text;
    }
  }

  std::string ExpectedLog() const {
    std::string log = "Log file for simplification of " + session_.folder.File("model.mps");
    for (const std::string& line : naive_.log) log += "\r\n" + line;
    return log + "\r\n";
  }

  Dice dice_;
  SimplifySession session_;
  NaiveModel naive_;
  NaiveUser user_;
  NaiveSimplifier naive_run_{naive_, user_, session_.log_name};
  std::map<std::int64_t, Visit> visits_;
  std::int64_t moment_ = 0;
  std::deque<MsgBoxResult> answers_;
  std::string naive_failure_;
  std::string failure_;
};

TEST(SimplifyProperty, AgreesWithOneByOneSteps) {
  const int models = TestLength(4000);
  for (int seed = 1; seed <= models; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Comparison(static_cast<std::uint64_t>(seed)).Run();
    if (::testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace quarvel::simplify
