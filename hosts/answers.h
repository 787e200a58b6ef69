// What the program answers to the component's dialogs and questions, from its options.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/arguments.h"
#include "platform/console/console_desktop.h"

namespace quarvel::hosts {

// One question of the reader.
struct FileProblem {
  std::string text;       // one line: the description without the question
  std::int64_t line = 0;  // of the file; 0 for a problem of the whole model
};

// The line that a problem's description names at its end, 0 when it names none.
std::int64_t LineOfProblem(std::string_view description);

class Answers : public platform::ConsoleAnswers {
 public:
  explicit Answers(const Arguments& arguments) : arguments_(arguments) {}

  // The path that the open dialog answers.
  std::string file;
  // True when the user can be asked; what is to be asked is then left to the desktop.
  bool can_ask = false;
  // When set, hears of every problem, which is then passed over; else they go by --on-error.
  std::function<void(const FileProblem&)> on_problem;
  // Hears of what the user should know, also of each problem that is answered here.
  std::function<void(std::string_view)> on_note;
  // The texts of plain boxes that refuse or report a failure, until they are taken.
  std::vector<std::string> refusals;
  // The file itself failed: it could not be opened or read, or a simplification's log not be
  // written.
  bool file_failed = false;

  std::optional<platform::MsgBoxResult> AnswerBox(std::string_view text,
                                                  platform::MsgBoxStyle style,
                                                  std::string_view title, bool& print) override;
  std::optional<std::string> AnswerFile(const platform::FileDialog& dialog) override;
  bool DriveForm(platform::Form& form) override;

 private:
  std::optional<platform::MsgBoxResult> AnswerProblem(std::string_view text);
  std::optional<platform::MsgBoxResult> AnswerConflict(std::string_view text);

  const Arguments& arguments_;
};

}  // namespace quarvel::hosts
