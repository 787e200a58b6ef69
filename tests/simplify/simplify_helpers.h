// What the tests of simplifying share: a model stored in a folder of its own, with a scripted user.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"
#include "mps/frm_progress.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_paths.h"

namespace quarvel::simplify {

inline constexpr std::string_view kLogQuestion =
    "Model had simplifications.  Do you wish to see the log file?  If not, it can be viewed later "
    "in the same "
    "directory as the MPS file.";
inline constexpr std::string_view kNothingDone = "No simplifications were made.";

// The model's file is "model.mps" of the folder (no such file exists unless a test writes one).
// Unless a test says otherwise the user does not look at the log; conflicts take the answers in
// order.
class SimplifySession {
 public:
  SimplifySession();

  ModelBuilder Build() { return ModelBuilder(model); }
  // Runs SimplifyMPSModel and checks what holds after every run: no window, no log, and lists that
  // agree.
  void Simplify();
  // The number of the error that SimplifyMPSModel raises, 0 when it raises none; with the checks of
  // Simplify.
  std::int32_t FailureOfSimplify();

  // Whether the outcome was told as a model with simplifications; every box of the outcome counts.
  int change_questions() const { return change_questions_; }
  int nothing_done_boxes() const { return nothing_done_boxes_; }
  // The log as it was when the outcome was told, without its heading; the line ends are checked and
  // dropped.
  std::vector<std::string> LogLines() const;
  std::string log_bytes() const { return log_bytes_; }
  std::vector<std::string> ColumnNames() const;
  std::vector<std::string> RowNames() const;
  // The captions that the progress window got while it was shown.
  std::vector<std::string> Captions() const;
  // The user presses Stop in the progress window and confirms.
  void PressStop();

  TemporaryFolder folder;
  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
  std::string log_name = folder.File("model.log");
  std::deque<platform::MsgBoxResult> answers;
  platform::MsgBoxResult see_log = platform::MsgBoxResult::kNo;
  // Called before a box is answered.
  std::function<void(const platform::ShownBox&)> on_shown;

 private:
  platform::MsgBoxResult Answer(const platform::ShownBox& box);
  void CheckAfterwards();

  int change_questions_ = 0;
  int nothing_done_boxes_ = 0;
  std::string log_bytes_;
};

}  // namespace quarvel::simplify
