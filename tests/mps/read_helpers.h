// What the tests of reading share: a model read from a text, with a scripted user.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {

class frmProgress;

inline constexpr platform::MsgBoxResult kYes = platform::MsgBoxResult::kYes;
inline constexpr platform::MsgBoxResult kNo = platform::MsgBoxResult::kNo;

// A model with its scripted user and a folder for its files. Unless a test says otherwise the user
// accepts the default bounds, answers each problem Yes, and does not simplify.
class ReadSession {
 public:
  ReadSession();

  // Writes `text` to a file, byte by byte, and reads it with ReadMPSFile.
  std::int16_t Read(std::string_view text);
  std::int16_t ReadFile(const std::string& path);

  // The texts of the boxes so far but for the offer to simplify.
  std::vector<std::string> Problems() const;

  // Answers of problems, in order; when they are used up: `otherwise`.
  std::deque<platform::MsgBoxResult> problem_answers;
  platform::MsgBoxResult otherwise = kYes;
  platform::MsgBoxResult simplify = kNo;
  bool lower_bounds_absent = false;  // what the default-bounds dialog is told

  TemporaryFolder folder;
  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

// Columns X0, X1 ... of one coefficient each: 4 lines before them, ENDATA after them.
std::string ManyColumns(int columns);

// The progress window of the session's model.
frmProgress& Progress(ReadSession& session);

// "<description>\r\nWould you like to continue reading this MPS file?"
std::string Question(std::string_view description);

}  // namespace quarvel::mps
