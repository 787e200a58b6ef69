// One file read by LPModel and by NaiveReader side by side, for the agreement test, the test of
// real files and the fuzzer.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/naive_model.h"
#include "tests/support/naive_reader.h"

namespace quarvel::testing {

// The user and the host of one read.
struct ReadPlan {
  // Through ReadMPSFile with its dialogs and the progress window, else by StartFileReding alone.
  bool through_dialogs = false;
  bool lower_bounds_absent = false;
  // The answer to the box of that number, 1 for the first; the offer to simplify gets No.
  std::function<bool(std::int64_t box)> says_yes = [](std::int64_t) { return true; };
  // Whether the host looks at the whole model at that hundredth line, 1 for the first.
  std::function<bool(std::int64_t point)> looks = [](std::int64_t) { return false; };
  // The hundredth line at which Stop is pressed, 0 for none. Needs the dialogs.
  std::int64_t stop_point = 0;
};

// Where the stored fields differ, bit by bit; an empty text when they are the same, the names are
// found where they stand and the invariant holds.
std::string CompareModels(const NaiveModel& naive, const model::ModelStore& store);

// Both models side by side. Each read starts from what the last one left.
class ReadComparison {
 public:
  // `path`: the file that every read writes, reads and deletes.
  explicit ReadComparison(std::string path);

  // An empty text when both readers agree on all fields, boxes, captions, the result and the state
  // at every point looked at, else what differs.
  std::string Read(std::string_view bytes, const ReadPlan& plan);

  const NaiveModel& naive() const { return naive_; }
  LPModel& model() { return model_; }
  // The texts of all boxes of the last read but for the offer to simplify.
  std::vector<std::string> Problems() const;

 private:
  platform::MsgBoxResult Answer(const platform::ShownBox& box);
  void ReadNaively(std::string_view bytes);
  void ReadForReal();
  void LookAtPoint(std::int64_t point);
  void DriveForm(platform::Form& form);
  std::string CompareTalk() const;

  std::string path_;
  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
  NaiveModel naive_;

  // Of the read that goes on.
  const ReadPlan* plan_ = nullptr;
  std::int64_t boxes_answered_ = 0;
  bool closing_ = false;
  std::vector<platform::ShownBox> naive_boxes_;
  std::vector<std::string> naive_captions_;
  std::vector<NaiveModel> naive_points_;
  std::int16_t naive_result_ = 0;
  std::vector<std::string> captions_;
  std::string fault_;
};

}  // namespace quarvel::testing
