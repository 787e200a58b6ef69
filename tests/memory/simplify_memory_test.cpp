// Simplifications, with every allocation failing in turn: what was done before stays done, windows and
// log are closed, and going on later comes to the same.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/memory/described_model.h"
#include "tests/memory/memory_states.h"
#include "tests/memory/operation_names.h"
#include "tests/memory/trials.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {
namespace {

using platform::MsgBoxResult;

void MakeRowsOfOneElement(LPModel& model) {
  ModelBuilder builder(model);
  builder.Row("COST", 'N');
  for (int j = 0; j < 4; ++j) builder.Column("C" + std::to_string(j), 0, 100);
  builder.Column("EMPTY").Column("THE_EMPTY_COLUMN_WITH_A_LONG_NAME");
  for (int i = 0; i < 8; ++i) {
    const std::string row = "THE_ROW_NUMBER_" + std::to_string(i);
    const std::string column = "C" + std::to_string(i % 4);
    builder.Row(row, i % 2 == 0 ? 'G' : 'L', i % 2 == 0 ? 1 : 50).Element(column, row, 1);
    builder.Element(column, "COST", 1 + i);
  }
  builder.Row("CONFLICT", 'E', 1000).Element("C0", "CONFLICT", 1);
  builder.Ranged("RANGE", 2, 3).Element("C1", "RANGE", 1);
  builder.Row("NOTHING", 'L', 1);
}

void MakePairsTwice(LPModel& model) {
  MakeRowsOfOneElement(model);
  ModelBuilder builder(model);
  builder.Row("TWICE", 'L', 5).Element("C2", "TWICE", 1).Element("C2", "TWICE", 1);
  builder.Element("C3", "THE_ROW_NUMBER_1", 2);
}

class Simplification {
 public:
  Simplification(void (*make)(LPModel& model), const std::string& path) {
    make(subject_.model);
    subject_.model.store().settings().FileLocation = path;
    subject_.desktop.on_box = [](const platform::ShownBox& box) {
      if (box.style == platform::MsgBoxStyle::kYesNo) return MsgBoxResult::kNo;  // the log
      return box.style == platform::MsgBoxStyle::kOk ? MsgBoxResult::kOk : MsgBoxResult::kNo;
    };
  }

  LPModel& model() { return subject_.model; }
  bool has_window() const { return !subject_.desktop.shown().empty(); }
  int Run() {
    subject_.model.SimplifyMPSModel();
    return 0;
  }

 private:
  Subject subject_;
};

class SimplifyTrial {
 public:
  SimplifyTrial(void (*make)(LPModel& model), const std::string& path) : make_(make), path_(path) {
    Simplification whole(make, path);
    whole.Run();
    simplified_ = DescribedRecords(whole.model());
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    Simplification interrupted(make_, path_);
    Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = OutcomeOf([&] { return interrupted.Run(); });
      if (!failing.happened()) return std::nullopt;
    }
    return FaultOf(interrupted, outcome);
  }

 private:
  std::string FaultOf(Simplification& interrupted, const Outcome& outcome) const {
    LPModel& model = interrupted.model();
    if (outcome.error != 0 && outcome.error != kOutOfMemory) return Text(outcome);
    if (interrupted.has_window()) return "a window was left on the screen";
    if (model.store().settings().LogFileNumber != 0) return "the log was left open";
    const std::string broken = model::CheckModelData(model.store());
    if (!broken.empty()) return broken;
    if (outcome.error == 0 && DescribedRecords(model) != simplified_) return "not all was done";
    const Outcome again = OutcomeOf([&] { return interrupted.Run(); });
    if (again.error != 0) return "simplified again: " + Text(again);
    return DescribedRecords(model) == simplified_ ? "" : "simplified again, with another model";
  }

  void (*make_)(LPModel& model);
  std::string path_;
  std::string simplified_;
};

TEST(SimplifyMemory, WhatWasDoneStaysDoneAtEveryFailedAllocationAndTheRestCanFollow) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  Trials trials;
  trials.Run("rows of one element", SimplifyTrial(MakeRowsOfOneElement, path));
  trials.Run("pairs twice", SimplifyTrial(MakePairsTwice, path));
  trials.Expect(200);
}

}  // namespace

std::vector<std::string> NamesOfSimplifications() { return {"SimplifyMPSModel"}; }

}  // namespace quarvel::testing
