// What the program answers to the component's dialogs and questions, from its options.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/arguments.h"
#include "hosts/questions.h"
#include "platform/box.h"
#include "platform/console/console_desktop.h"

namespace quarvel::hosts {

class Answers : public platform::ConsoleAnswers {
 public:
  explicit Answers(const Arguments& arguments) : arguments_(arguments) {}

  // The path that the open dialog answers.
  std::string file;
  // True when the user can be asked; what is to be asked is then left to the desktop.
  bool can_ask = false;
  // Hears of what the user should know, also of each problem that is answered here.
  std::function<void(std::string_view)> on_note;
  // The texts of plain boxes that refuse or report a failure, until they are taken.
  std::vector<std::string> refusals;
  // The file itself failed: it could not be opened or read, or a simplification's log not be
  // written.
  bool file_failed = false;
  // The first question that has no answer on the command line. It got the cautious one, and nobody
  // may go on as if it had been answered.
  std::optional<platform::Box> unanswered;

  std::optional<platform::MsgBoxResult> AnswerBox(const platform::Box& box, bool& print) override;
  bool TellPassedOver(const platform::Box& box) override;
  platform::Box AsAsked(const platform::Box& box) override;
  std::string_view WordFor(const platform::Box& box, platform::MsgBoxResult result) override;
  std::optional<std::string> AnswerFile(const platform::FileDialog& dialog) override;
  bool DriveForm(platform::Form& form) override;

  // Says of how many more problems of the file than were told the read went past, by code, and forgets
  // about them.
  void TellRest();

 private:
  // Of each kind of problem that is passed over; a broken file has one in each of its lines.
  static constexpr std::int64_t kMostTold = 20;

  std::optional<platform::MsgBoxResult> AnswerQuestion(const platform::Box& box,
                                                       const QuestionOption& option);
  // What the user is told about a question that is answered here.
  std::string Told(const platform::Box& box, const GivenAnswer& given) const;

  // Whether it is one of the first of its kind that are passed over.
  bool IsToBeTold(const platform::Box& box, const QuestionOption& option, const GivenAnswer& given);

  const Arguments& arguments_;
  std::map<std::string, std::int64_t, std::less<>> passed_over_;  // by code
};

}  // namespace quarvel::hosts
