#include "tests/support/simplify_comparison.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

#include "model/model_check.h"
#include "mps/frm_progress.h"
#include "platform/automation_error.h"
#include "platform/files.h"
#include "tests/support/model_builder.h"
#include "tests/support/shown_form.h"

namespace quarvel::testing {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using platform::ShownBox;

bool Percent(const Choice& choose, std::uint32_t chance) { return choose(100) < chance; }

template <class T>
const T& Of(const Choice& choose, const std::vector<T>& values) {
  return values[choose(static_cast<std::uint32_t>(values.size()))];
}

struct Shape {
  std::uint32_t rows, columns;
  bool duplicates;
  bool zeros;
};

Shape ChooseShape(const Choice& choose) {
  const bool large = Percent(choose, 35);
  Shape shape = {};
  shape.rows = choose(large ? 160 : 9);
  shape.columns = choose(large ? 200 : 7);
  shape.duplicates = Percent(choose, 25);
  shape.zeros = Percent(choose, 8);
  return shape;
}

NaiveRecord ChooseRow(const Choice& choose, std::uint32_t number) {
  static const std::vector<std::string> kTypes = {"G", "L", "E", "R", "R", "N", "", ""};
  NaiveRecord row;
  row.Name = "R" + std::to_string(number);
  row.Type = Of(choose, kTypes);
  row.LowerBound = static_cast<double>(choose(25)) / 2 - 6;
  row.UpperBound = row.LowerBound + static_cast<double>(choose(9));
  if (row.Type == "E") row.UpperBound = row.LowerBound;
  if (row.Type == "G" || row.Type == "N") row.UpperBound = 1e10;
  if (row.Type == "L" || row.Type == "N") row.LowerBound = -1e10;
  return row;
}

NaiveRecord ChooseColumn(const Choice& choose, std::uint32_t number) {
  static const std::vector<std::pair<double, double>> kBounds = {
      {0, 1e10}, {0, 1e10}, {-1e10, 1e10}, {-5, 5}, {0, 3}, {2, 2}, {4, 1}};
  const auto& [lower, upper] = Of(choose, kBounds);
  return {"C" + std::to_string(number), Percent(choose, 20) ? "I" : "R", lower, upper, {}};
}

void ChooseElements(const Choice& choose, const Shape& shape, NaiveModel& model) {
  static const std::vector<std::uint32_t> kSizes = {0, 1, 1, 1, 1, 1, 2, 3};
  static const std::vector<double> kValues = {1, 2, -1, -2, 0.5, 3, -0.25};
  for (std::int32_t i = 0; i < model.NumberOfRows && shape.columns > 0; ++i) {
    std::uint32_t column = choose(shape.columns);
    for (std::uint32_t k = Of(choose, kSizes); k > 0; --k) {
      const double value = shape.zeros && Percent(choose, 5) ? 0 : Of(choose, kValues);
      model.AddElement(i, static_cast<std::int32_t>(column), value);
      if (shape.duplicates ? Percent(choose, 60) : ++column < shape.columns) continue;
      if (!shape.duplicates) break;
      column = choose(shape.columns);
    }
  }
}

NaiveModel ChooseModel(const Choice& choose) {
  const Shape shape = ChooseShape(choose);
  NaiveModel model;
  for (std::uint32_t i = 0; i < shape.rows; ++i) model.Rows.push_back(ChooseRow(choose, i));
  for (std::uint32_t j = 0; j < shape.columns; ++j) {
    model.Columns.push_back(ChooseColumn(choose, j));
  }
  model.NumberOfRows = static_cast<std::int32_t>(shape.rows);
  model.NumberOfColumns = static_cast<std::int32_t>(shape.columns);
  model.RebuildRowIndexes();
  ChooseElements(choose, shape, model);
  return model;
}

NaiveUser ChooseUser(const Choice& choose) {
  static const std::vector<MsgBoxResult> kAnswers = {MsgBoxResult::kYes, MsgBoxResult::kYes,
                                                     MsgBoxResult::kNo,  MsgBoxResult::kNo,
                                                     MsgBoxResult::kNo,  MsgBoxResult::kCancel};
  constexpr std::size_t kEnough = 1000;
  NaiveUser user;
  const bool cancels = Percent(choose, 30);
  std::vector<MsgBoxResult> pattern;
  for (std::uint32_t i = 1 + choose(40); i > 0; --i) {
    MsgBoxResult answer = Of(choose, kAnswers);
    if (answer == MsgBoxResult::kCancel && !cancels) answer = MsgBoxResult::kNo;
    pattern.push_back(answer);
  }
  for (std::size_t i = 0; i < kEnough; ++i) user.answers.push_back(pattern[i % pattern.size()]);
  user.sees_log = Percent(choose, 30);
  user.editor_starts = Percent(choose, 60);
  if (Percent(choose, 30)) user.stops_at_event = 1 + choose(5);
  return user;
}

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

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

}  // namespace

SimplifyComparison::SimplifyComparison() {
  desktop_.on_events = [this](std::int64_t number) {
    VisitComponent();
    if (number == user_.stops_at_event) ShownForm<mps::frmProgress>(desktop_).cmdStop.Click();
  };
  desktop_.on_box = [this](const ShownBox& box) { return Answer(box); };
}

std::string SimplifyComparison::Run(const Choice& choose) {
  visits_.clear();
  moment_ = 0;
  fault_.clear();
  desktop_.Clear();
  if (platform::FileExists(log_name_)) platform::RemoveFile(log_name_);
  naive_ = ChooseModel(choose);
  naive_.ModelName = "MODEL";
  naive_.FileLocation = folder_.File("model.mps");
  model_ = std::make_unique<LPModel>(desktop_);
  ChangeFields(*model_, [this](model::ModelData& data) { Fill(data, naive_); });
  user_ = ChooseUser(choose);
  host_looks_ = Percent(choose, 50);
  host_edits_ = Percent(choose, 30);
  RunNaive(choose);
  RunComponent();
  return fault_.empty() ? Compare() : fault_;
}

void SimplifyComparison::RunNaive(const Choice& choose) {
  answers_ = user_.answers;
  user_.calls_back = [this, &choose](std::int64_t moment) { VisitNaive(choose, visits_[moment]); };
  naive_run_ = std::make_unique<NaiveSimplifier>(naive_, user_, log_name_);
  naive_failure_ = ResultOf([this] { return naive_run_->Run(), 0; });
}

void SimplifyComparison::VisitNaive(const Choice& choose, Visit& visit) {
  visit.looks = host_looks_;
  if (visit.looks) visit.seen = Dump(naive_);
  if (!host_edits_ || !Percent(choose, 40)) return;
  for (std::uint32_t i = 1 + choose(4); i > 0; --i) {
    EditStyle style;
    style.new_models = Percent(choose, 10);
    visit.operations.push_back(ChooseOperation(choose, naive_, style));
    const EditOperation& operation = visit.operations.back();
    visit.results.push_back(ResultOf([&] { return operation.on_naive(naive_); }));
  }
}

void SimplifyComparison::RunComponent() {
  desktop_.editor_starts = user_.editor_starts;
  failure_ = ResultOf([this] { return model_->SimplifyMPSModel(), 0; });
}

MsgBoxResult SimplifyComparison::Answer(const ShownBox& box) {
  if (box.text.starts_with("Model had simplifications.")) {
    return user_.sees_log ? MsgBoxResult::kYes : MsgBoxResult::kNo;
  }
  if (box.title == "Confirm") return MsgBoxResult::kYes;
  if (box.style == MsgBoxStyle::kOk) return MsgBoxResult::kOk;
  VisitComponent();
  if (answers_.empty()) throw std::logic_error("no answer left");
  const MsgBoxResult answer = answers_.front();
  answers_.pop_front();
  return answer;
}

void SimplifyComparison::VisitComponent() {
  const Visit& visit = visits_[++moment_];
  if (visit.looks) Expect("state under the host", Dump(model_->store().data()), visit.seen);
  for (std::size_t i = 0; i < visit.operations.size(); ++i) {
    const EditOperation& operation = visit.operations[i];
    Expect(operation.text, ResultOf([&] { return operation.on_model(*model_); }), visit.results[i]);
  }
}

void SimplifyComparison::Expect(const std::string& what, const std::string& is,
                                const std::string& wanted) {
  if (fault_.empty() && is != wanted) fault_ = what + " is\n" + is + "\nshould be\n" + wanted;
}

std::string SimplifyComparison::Compare() const {
  const auto differ = [](const std::string& what, const std::string& is,
                         const std::string& wanted) {
    return is == wanted ? "" : what + " is\n" + is + "\nshould be\n" + wanted;
  };
  std::string fault = differ("result", failure_, naive_failure_);
  if (fault.empty()) {
    fault = differ("talk", Joined(desktop_.transcript()), Joined(naive_run_->transcript));
  }
  if (fault.empty()) fault = differ("model", Dump(model_->store().data()), Dump(naive_));
  if (fault.empty() && !desktop_.shown().empty()) fault = "a window is left";
  const bool log_kept = platform::FileExists(log_name_);
  if (fault.empty() && log_kept != naive_run_->log_kept) fault = "whether the log is kept";
  if (fault.empty() && log_kept) fault = differ("log", ReadWholeFile(log_name_), ExpectedLog());
  return fault;
}

std::string SimplifyComparison::ExpectedLog() const {
  std::string log = "Log file for simplification of " + folder_.File("model.mps");
  for (const std::string& line : naive_.log) log += "\r\n" + line;
  return log + "\r\n";
}

}  // namespace quarvel::testing
