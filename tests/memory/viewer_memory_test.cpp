// The viewer with its commands, with every allocation failing in turn: the user is told, the model
// is no broken one, and the window closes and can be shown again.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/memory/described_model.h"
#include "tests/memory/memory_states.h"
#include "tests/memory/operation_names.h"
#include "tests/memory/trials.h"
#include "viewer/frm_view_equations.h"

namespace quarvel::testing {
namespace {

using platform::MsgBoxResult;
using viewer::frmViewEquations;
using viewer::RecordPage;

struct NamedStep {
  const char* name;
  bool changes;  // the model
  void (*run)(frmViewEquations& window);
};

struct NamedView {
  const char* name;
  void (*run)(LPModel& model);
};

constexpr auto kViews = std::to_array<NamedView>({
    {"ViewEquations", [](LPModel& m) { m.ViewEquations(true); }},
    {"ViewCol", [](LPModel& m) { m.ViewCol(2, true); }},
    {"ViewCol, of none", [](LPModel& m) { m.ViewCol(99, true); }},
    {"ViewRow", [](LPModel& m) { m.ViewRow(3, true); }},
    {"ViewRow, of none", [](LPModel& m) { m.ViewRow(-1, true); }},
    {"ViewNonBindingRow", [](LPModel& m) { m.ViewNonBindingRow(0, true); }},
    {"ViewNonBindingRow, of none", [](LPModel& m) { m.ViewNonBindingRow(99, true); }},
    {"ViewBindingRow", [](LPModel& m) { m.ViewBindingRow(1, true); }},
    {"ViewBindingRow, of none", [](LPModel& m) { m.ViewBindingRow(99, true); }},
    {"NewMPSModel", [](LPModel& m) { m.NewMPSModel(); }},
});
constexpr const NamedView& kViewOfAll = kViews.front();

// As a user does: the page, the record, the menu, the item.
void Choose(frmViewEquations& window, RecordPage& page, const char* item) {
  window.contents.sstViewEqns.Select(page.design().number);
  page.fgrdList.Select(1);
  window.menu["mnuEdit"].Open();
  window.menu[item].Click();
}

const std::vector<NamedStep>& Steps() {
  static const std::vector<NamedStep> steps = {
      {"nothing", false, [](frmViewEquations&) {}},
      {"selecting a row", false,
       [](frmViewEquations& w) { Choose(w, w.contents.rows, "mnuFile"); }},
      {"selecting a column", false,
       [](frmViewEquations& w) { Choose(w, w.contents.columns, "mnuFile"); }},
      {"filtering columns", false,
       [](frmViewEquations& w) { w.contents.columns.cboShowOnly.Select(2); }},
      {"renaming a row", true,
       [](frmViewEquations& w) { Choose(w, w.contents.rows, "mnuEditRowRename"); }},
      {"deleting a row", true,
       [](frmViewEquations& w) { Choose(w, w.contents.rows, "mnuEditRowDel"); }},
      {"deleting a column", true,
       [](frmViewEquations& w) { Choose(w, w.contents.columns, "mnuEditColDel"); }},
      {"adding a row", true,
       [](frmViewEquations& w) { Choose(w, w.contents.rows, "mnuEditRowAdd"); }},
      {"adding a column", true,
       [](frmViewEquations& w) { Choose(w, w.contents.columns, "mnuEditColAdd"); }},
      {"adding elements", false,
       [](frmViewEquations& w) { Choose(w, w.contents.rows, "mnuEditRowAddEle"); }},
      {"a new model", true, [](frmViewEquations& w) { w.menu["mnuFileNew"].Click(); }},
      {"about", false, [](frmViewEquations& w) { w.menu["mnuHelpAbout"].Click(); }},
  };
  return steps;
}

// A model and a user in front of its window. As on every drawer, no failure of what the user does
// gets further than to him.
class Viewing {
 public:
  Viewing(const NamedView& view, const NamedStep& step) : view_(view), step_(step) {
    MakeSmall(model());
    desktop().on_box = [](const platform::ShownBox& box) {
      if (box.text.starts_with("Do you want to save")) return MsgBoxResult::kNo;
      return box.style == platform::MsgBoxStyle::kOk ? MsgBoxResult::kOk : MsgBoxResult::kYes;
    };
    desktop().on_idle = [this](platform::Form& top) { Idle(top); };
    for (int i = 0; i < kInputs; ++i) desktop().inputs.emplace_back("A_NEW_NAME");
  }

  LPModel& model() { return subject_.model; }
  ScarceDesktop& desktop() { return subject_.desktop; }
  bool told() { return failed_ || desktop().told_of_shortage(); }

  int Show() {
    turns_ = 0;
    view_.run(model());
    return 0;
  }

 private:
  static constexpr int kInputs = 8;
  static constexpr int kPatience = 6;

  template <class Action>
  void ForUser(const Action& action) {
    try {
      action();
    } catch (const std::exception&) {
      failed_ = true;
    }
  }

  void Idle(platform::Form& top) {
    const int turn = turns_++;
    if (turn < kPatience) return Do(top, turn);
    const EnoughMemory enough;
    Do(top, turn);
  }

  void Do(platform::Form& top, int turn) {
    ForUser([&] {
      auto* const window = dynamic_cast<frmViewEquations*>(&top);
      if (window == nullptr) {
        top.PressDefaultButton();
        if (turns_ > kPatience / 2) top.RequestClose();
      } else if (turn == 0) {
        step_.run(*window);
      } else {
        window->RequestClose();
      }
    });
  }

  NamedView view_;
  NamedStep step_;
  Subject subject_;
  int turns_ = 0;
  bool failed_ = false;
};

class ViewerTrial {
 public:
  ViewerTrial(const NamedView& view, const NamedStep& step) : view_(view), step_(step) {
    Viewing viewing(view, step);
    before_ = DescribedRecords(viewing.model());
    viewing.Show();
    after_ = DescribedRecords(viewing.model());
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    Viewing viewing(view_, step_);
    Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = OutcomeOf([&] { return viewing.Show(); });
      if (!failing.happened()) return std::nullopt;
    }
    return FaultOf(viewing, outcome);
  }

  bool changes() const { return after_ != before_; }

 private:
  std::string FaultOf(Viewing& viewing, const Outcome& outcome) const {
    LPModel& model = viewing.model();
    if (outcome.error != 0 && outcome.error != kOutOfMemory) return Text(outcome);
    if (!viewing.desktop().shown().empty()) return "a window was left on the screen";
    if (model.frmViewEquationsIsShowing()) return "the model still says that it is shown";
    const std::string broken = model::CheckModelData(model.store());
    if (!broken.empty()) return broken;
    const bool told = outcome.error != 0 || viewing.told();
    if (!told && DescribedRecords(model) != after_) return "not done, and nothing told";
    const Outcome again = OutcomeOf([&] { return viewing.Show(); });
    return again.error == 0 ? "" : "shown again: " + Text(again);
  }

  NamedView view_;
  NamedStep step_;
  std::string before_;
  std::string after_;
};

TEST(ViewerMemory, UserIsToldAndTheModelIsNotBrokenAtEveryFailedAllocation) {
  Trials trials;
  for (const NamedStep& step : Steps()) {
    const ViewerTrial trial(kViewOfAll, step);
    EXPECT_EQ(trial.changes(), step.changes) << step.name;
    trials.Run(step.name, trial);
  }
  for (const NamedView& view : kViews) trials.Run(view.name, ViewerTrial(view, Steps().front()));
  trials.Expect(1000);
}

}  // namespace

std::vector<std::string> NamesOfViews() { return OperationsIn(kViews); }

}  // namespace quarvel::testing
