// Every way of saving, with every allocation failing in turn: the file is whole, the old one or the
// new one, the user is told, the model is as it was, and the next save succeeds.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/memory/described_model.h"
#include "tests/memory/operation_names.h"
#include "tests/memory/scarce_desktop.h"
#include "tests/memory/trials.h"
#include "tests/mps/save_ways.h"

namespace quarvel::testing {
namespace {

using mps::SaveCase;
using mps::SaveWay;

constexpr int kSaved = -1;
constexpr int kNotSaved = 1;

enum class Asking { kForNothing, kForThePath };

// A model in its folder, and a user who saves it.
class Saver {
 public:
  explicit Saver(const SaveWay& way) : save_(way, std::make_unique<ScarceDesktop>()) {}

  SaveCase& save() { return save_; }
  std::string Described() const { return testing::Described(save_.model); }

  Outcome Save(Asking asking) {
    return OutcomeOf([&]() -> int {
      if (asking == Asking::kForNothing) return save_.Save();
      return save_.model.SaveAsMPSFile();
    });
  }
  // The chosen file is there before the memory runs out.
  void Choose() { save_.desktop.files.push_back(save_.path()); }

  bool told() const { return dynamic_cast<const ScarceDesktop&>(save_.desktop).told_of_shortage(); }

 private:
  SaveCase save_;
};

std::string FaultOfNextSave(SaveCase& save) {
  const Outcome outcome = OutcomeOf([&] { return save.SaveAgain(); });
  if (outcome != Outcome{.result = kSaved}) return "saved again: " + Text(outcome);
  if (save.Text() != save.new_text()) return "saved again, with another text";
  for (const std::string& name : save.Names()) {
    if (name.find(".quarvel-") != name.npos) return "left behind: " + name;
  }
  return "";
}

class SaveTrial {
 public:
  SaveTrial(const SaveWay& way, Asking asking) : way_(way), asking_(asking) {
    Saver saver(way);
    saver.Choose();
    wanted_ = saver.Save(asking);
    EXPECT_EQ(wanted_.result, way.host_fails ? kNotSaved : kSaved) << way.name;
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    Saver saver(way_);
    saver.Choose();
    const std::string before = saver.Described();
    Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = saver.Save(asking_);
      if (!failing.happened()) return std::nullopt;
    }
    std::string fault = FaultOf(saver, outcome, before);
    return fault.empty() ? FaultOfNextSave(saver.save()) : fault;
  }

 private:
  std::string FaultOf(Saver& saver, const Outcome& outcome, const std::string& before) const {
    const SaveCase& save = saver.save();
    const bool is_old = save.Text() == save.old_text();
    const bool is_new = save.Text() == save.new_text();
    if (!is_old && !is_new) return "neither the old file nor the new one";
    if (outcome == Outcome{.result = kSaved}) return is_new ? "" : "saved, it says";
    const bool told = outcome.error == kOutOfMemory || saver.told();
    if (!told && outcome != wanted_) return Text(outcome) + ", and nothing told";
    if (saver.Described() != before) return "another model";
    // Only in the box that follows the writing may memory run out when the file is new.
    return is_old || HasBoxAfterwards() ? "" : "not saved, yet the file is new";
  }

  bool HasBoxAfterwards() const { return way_.host_fails || way_.is_empty; }

  const SaveWay& way_;
  Asking asking_;
  Outcome wanted_;
};

TEST(SaveMemory, FileIsOldOrNewAndTheModelAsBeforeAtEveryFailedAllocation) {
  Trials trials(Trials::StepWithFiles());
  for (const SaveWay& way : mps::SaveWays()) {
    trials.Run(way.name, SaveTrial(way, Asking::kForNothing));
    // A host's failure belongs to a save whose path is given.
    if (way.host_fails) continue;
    trials.Run(std::string(way.name) + ", chosen", SaveTrial(way, Asking::kForThePath));
  }
  trials.Expect(1000);
}

TEST(SaveMemory, WhatKilledSavesLeftIsGoneAfterTheNextSaveThatHasMemory) {
  const SaveWay way = {.name = "another file"};
  Trials trials(Trials::StepWithFiles());
  trials.Run(way.name, [&](std::int64_t n, Shortage shortage) -> std::optional<std::string> {
    Saver saver(way);
    const std::string& path = saver.save().path();
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    for (int i = 0; i < 6; ++i) {
      WriteWholeFile(folder + ".model.mps.quarvel-" + std::to_string(i) + "~", "left");
    }
    {
      const FailingAllocation failing(n, shortage);
      saver.Save(Asking::kForNothing);
      if (!failing.happened()) return std::nullopt;
    }
    return FaultOfNextSave(saver.save());
  });
  trials.Expect(30);
}

}  // namespace

std::vector<std::string> NamesOfSaves() { return {"SaveMPSFile", "SaveAsMPSFile"}; }

}  // namespace quarvel::testing
