// Reads of files, with every allocation failing in turn: the model is the old one, an empty one or
// the whole new one, or, where the user was told and went on or stopped, at least no broken one.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "mps/frm_set_default_bounds.h"
#include "tests/memory/described_model.h"
#include "tests/memory/memory_states.h"
#include "tests/memory/operation_names.h"
#include "tests/memory/trials.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {
namespace {

using platform::MsgBoxResult;

struct NamedFile {
  const char* name;
  std::string bytes;
  // Also deletes a row while it is read, as a host may.
  bool host_deletes = false;
};

std::string Numbered(const char* before, int number) { return before + std::to_string(number); }

std::string Grown(int rows, int columns) {
  std::string text = "* A description that is longer than its own room\n* in two lines\n";
  text += "NAME MADE\nROWS\n N COST\n";
  for (int i = 0; i < rows; ++i) text += " G " + Numbered("R", i) + '\n';
  text += "COLUMNS\n";
  for (int j = 0; j < columns; ++j) {
    const std::string column = ' ' + Numbered("C", j) + ' ';
    text += column + "COST 1 " + Numbered("R", j % rows) + " 2\n";
    text += column + Numbered("R", (j + 1) % rows) + " 3\n";
  }
  return text + "RHS\n RHS R0 4\nBOUNDS\n UP BND C0 5\nENDATA\n";
}

// Bytes beyond ASCII are no UTF-8 here.
constexpr const char* kSmall =
    "NAME\n"
    "ROWS\n"
    " N COST\n"
    " L A_NAME_OF_MORE_THAN_SIXTEEN_BYTES\n"
    " E \xC4\xD6\xDC\n"
    "COLUMNS\n"
    " X COST 1 A_NAME_OF_MORE_THAN_SIXTEEN_BYTES 2\n"
    " X \xE4\xF6\xFC 1\n"
    " ANOTHER_NAME_OF_MORE_THAN_SIXTEEN_BYTES COST 3\n"
    "RANGES\n"
    " R A_NAME_OF_MORE_THAN_SIXTEEN_BYTES 4\n"
    "ENDATA\n";

constexpr const char* kTakenUpAgain =
    "ROWS\n N COST\n L LIM\n"
    "COLUMNS\n X COST 1\n Y COST 2\n X LIM 3\n Z LIM 4\n Y LIM 5\n Y LIM 6\n"
    "ENDATA\n";

constexpr const char* kProblems =
    "ROWS\n N COST\n L LIM\n L LIM\n Q BAD\n L NONE\n"
    "COLUMNS\n X COST 1\n X OTHER 1\n X LIM abc\n Y COST 0\n X LIM 2\n"
    "BOUNDS\n UP BND X -1\n XX BND X\n"
    "ENDATA\n";

const std::vector<NamedFile>& Files() {
  static const std::vector<NamedFile> files = {
      {"small", kSmall},
      {"taken up again", kTakenUpAgain},
      {"problems", kProblems},
      {"growing", Grown(52, 50)},
      {"with a host that deletes", Grown(52, 50), true},
  };
  return files;
}

enum class Way { kDirect, kInItsWindow };

struct ReadPlan {
  const NamedFile& file;
  Way way;
  MsgBoxResult after_shortage;  // the answer to whether to go on without memory
};

// A model that holds another one already, and a user.
class Reader {
 public:
  Reader(const ReadPlan& plan, const std::string& path) : plan_(plan), path_(path) {
    MakeSmall(model());
    settings().FileLocation = "the file of the model that is there already.mps";
    settings().strMPSFile = settings().FileLocation;
    desktop().on_box = [this](const platform::ShownBox& box) { return Answer(box); };
    desktop().on_idle = [](platform::Form& form) {
      if (form.name() == "frmSetDefaultBounds") {
        dynamic_cast<mps::frmSetDefaultBounds&>(form).Choose(false);
      }
    };
    if (!plan.file.host_deletes) return;
    desktop().on_events = [this](std::int64_t) { model().DeleteRow(3); };
  }

  LPModel& model() { return subject_.model; }
  ScarceDesktop& desktop() { return subject_.desktop; }
  model::ModelSettings& settings() { return model().store().settings(); }

  void Begin() {
    desktop().Clear();
    desktop().files.assign(1, path_);
    if (plan_.way == Way::kDirect) model().strMPSFile(path_);
  }
  int Read() {
    return plan_.way == Way::kDirect ? model().StartFileReding() : model().ReadMPSFile();
  }

 private:
  MsgBoxResult Answer(const platform::ShownBox& box) {
    if (box.text.starts_with("Do you want to simplify")) return MsgBoxResult::kNo;
    if (box.text.starts_with("Out of memory")) return plan_.after_shortage;
    return MsgBoxResult::kYes;
  }

  ReadPlan plan_;
  std::string path_;
  Subject subject_;
};

class ReadTrial {
 public:
  ReadTrial(const ReadPlan& plan, const std::string& path) : plan_(plan), path_(path) {
    Reader old(plan, path);
    old_ = OldOrItsRecords(old.model());
    Reader empty(plan, path);
    empty.model().store().fill().Begin();
    empty_ = DescribedRecords(empty.model());
    Reader whole(plan, path);
    whole.Begin();
    EXPECT_EQ(whole.Read(), -1);
    whole_records_ = DescribedRecords(whole.model());
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    Reader reader(plan_, path_);
    reader.Begin();
    Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = OutcomeOf([&] { return reader.Read(); });
      if (!failing.happened()) return std::nullopt;
    }
    std::string fault = FaultOf(reader, outcome);
    return fault.empty() ? FaultOfReadingAgain(reader) : fault;
  }

 private:
  std::string FaultOf(Reader& reader, const Outcome& outcome) const {
    if (!reader.desktop().shown().empty()) return "a window was left on the screen";
    const std::string records = DescribedRecords(reader.model());
    const std::string broken = model::CheckModelData(reader.model().store());
    if (!broken.empty()) return broken;
    if (outcome.error == 0) {
      if (outcome.result != reader.model().ReadMPSFileErr()) return "two results";
      if (reader.desktop().told_of_shortage()) return "";
      return outcome.result == -1 && records == whole_records_ ? "" : "not whole, and nothing told";
    }
    if (outcome.error != kOutOfMemory) return Text(outcome);
    const int told = reader.model().ReadMPSFileErr();
    if (records == whole_records_ && told == -1) return "";
    if (records == empty_ && told == 0) return "";
    return OldOrItsRecords(reader.model()) == old_
               ? ""
               : "neither the old model nor an empty nor the whole one";
  }

  // A direct read has been given its path already.
  std::string OldOrItsRecords(const LPModel& model) const {
    return plan_.way == Way::kInItsWindow ? Described(model) : DescribedRecords(model);
  }

  std::string FaultOfReadingAgain(Reader& reader) const {
    reader.Begin();
    const Outcome outcome = OutcomeOf([&] { return reader.Read(); });
    if (outcome != Outcome{.result = -1}) return "read again: " + Text(outcome);
    const bool whole = DescribedRecords(reader.model()) == whole_records_;
    return whole ? "" : "read again, with another model";
  }

  ReadPlan plan_;
  std::string path_;
  std::string old_;
  std::string empty_;
  std::string whole_records_;
};

TEST(ReadMemory, ModelIsTheOldOneOrEmptyOrWholeAtEveryFailedAllocation) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  Trials trials;
  for (const NamedFile& file : Files()) {
    WriteWholeFile(path, file.bytes);
    const std::string name = file.name;
    const auto run = [&](const char* how, Way way, MsgBoxResult answer) {
      trials.Run(name + how, ReadTrial({file, way, answer}, path));
    };
    run(", going on", Way::kDirect, MsgBoxResult::kYes);
    run(", not going on", Way::kDirect, MsgBoxResult::kNo);
    run(", in its window", Way::kInItsWindow, MsgBoxResult::kYes);
  }
  trials.Expect(1000);
}

}  // namespace

std::vector<std::string> NamesOfReads() { return {"StartFileReding", "ReadMPSFile"}; }

}  // namespace quarvel::testing
