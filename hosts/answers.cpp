#include "hosts/answers.h"

#include <algorithm>
#include <utility>

#include "mps/frm_set_default_bounds.h"
#include "platform/automation_error.h"
#include "platform/console/console_text.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using platform::Box;
using platform::MsgBoxResult;

// Failures of files end a read whatever the options say: there is nothing to go on with.
bool IsFileFailure(const Box& problem) {
  if (!problem.failure) return false;
  switch (*problem.failure) {
    using enum RunTimeError;
    case kBadFileNameOrNumber:
    case kFileNotFound:
    case kFileAlreadyOpen:
    case kDeviceIoError:
    case kDiskFull:
    case kTooManyFiles:
    case kDeviceUnavailable:
    case kPermissionDenied:
    case kPathFileAccessError:
    case kPathNotFound:
    case kOutOfMemory:
      return true;
    case kInvalidProcedureCall:
    case kOverflow:
    case kSubscriptOutOfRange:
    case kDivisionByZero:
    case kTypeMismatch:
    case kInternalError:
    case kFileAlreadyExists:
    case kFormAlreadyDisplayed:
      return false;
  }
  return false;
}

}  // namespace

std::string Answers::Told(const Box& box, const GivenAnswer& given) const {
  std::string text = file + ": ";
  text += platform::console::WithNameOnOneLine(box.statement, box.item);
  if (!given.outcome.empty()) text.append("  ").append(given.outcome);
  return text;
}

std::optional<MsgBoxResult> Answers::AnswerBox(const Box& box, bool& print) {
  print = false;
  const Decision decision = DecisionOn(box.kind);
  switch (decision.manner) {
    case Manner::kTold:
      on_note(file.empty() ? box.statement : file + ": " + box.statement);
      return MsgBoxResult::kOk;
    case Manner::kKept:
      refusals.emplace_back(text::OneLine(box.statement));
      return MsgBoxResult::kOk;
    case Manner::kAnswered:
      return AnswerQuestion(box, *decision.option);
    case Manner::kUnknown:
      break;
  }
  if (!unanswered) unanswered = box;
  return box.look().when_closed;
}

std::optional<MsgBoxResult> Answers::AnswerQuestion(const Box& box, const QuestionOption& option) {
  file_failed = file_failed || IsFileFailure(box);
  const bool failed = option.of_file && file_failed;
  const GivenAnswer* given = &AnswerTo(box.kind, arguments_);
  if (!given->answer && can_ask && !failed) return std::nullopt;
  if (!given->answer) given = FindAnswer(option, option.unasked);
  if (!box.statement.empty() && IsToBeTold(box, option, *given)) {
    on_note(Told(box, *given));
  }
  return failed ? MsgBoxResult::kNo : given->answer;
}

// Told as what an option passes over is.
bool Answers::TellPassedOver(const Box& box) {
  const QuestionOption* const option = DecisionOn(box.kind).option;
  if (option == nullptr) return false;
  const auto given =
      std::find_if(option->answers.begin(), option->answers.end(),
                   [](const GivenAnswer& answer) { return answer.answer == MsgBoxResult::kYes; });
  if (given == option->answers.end()) return false;
  if (IsToBeTold(box, *option, *given)) on_note(Told(box, *given));
  return true;
}

bool Answers::IsToBeTold(const Box& box, const QuestionOption& option, const GivenAnswer& given) {
  if (!option.of_file || given.answer != MsgBoxResult::kYes) return true;
  return ++passed_over_[std::string(box.code)] <= kMostTold;
}

void Answers::TellRest() {
  for (const auto& [code, count] : std::exchange(passed_over_, {})) {
    if (count <= kMostTold) continue;
    const std::string more = text::IntegerText(count - kMostTold);
    const std::string kind = code.empty() ? "" : " of the kind " + code;
    std::string note = file;
    note.append(": ").append(more).append(" more problems").append(kind);
    on_note(note.append("; \"quarvel check --limit all\" lists them"));
  }
}

// Whoever reads a terminal clicks nothing.
platform::Box Answers::AsAsked(const Box& box) {
  Box asked = box;
  if (box.kind != platform::BoxKind::kConflict) return asked;
  asked.title = "A row of " + file + " against its column's bounds";
  asked.question =
      "yes (or remove) removes the row, no (reset) resets the bounds to it, cancel (stop) stops "
      "converting\r\nrows; all removes each such row that comes.";
  return asked;
}

// The words of its option.
std::string_view Answers::WordFor(const Box& box, MsgBoxResult result) {
  const QuestionOption* const option = DecisionOn(box.kind).option;
  if (option == nullptr) return {};
  const auto given =
      std::find_if(option->answers.begin(), option->answers.end(),
                   [result](const GivenAnswer& answer) { return answer.answer == result; });
  return given == option->answers.end() ? std::string_view() : given->word;
}

std::optional<std::string> Answers::AnswerFile(const platform::FileDialog&) { return file; }

bool Answers::DriveForm(platform::Form& form) {
  auto* const bounds = dynamic_cast<mps::frmSetDefaultBounds*>(&form);
  const std::optional<bool> given = arguments_.infinite_default_bounds;
  if (bounds == nullptr || (arguments_.ask && !given)) return false;
  bounds->Choose(given.value_or(false));
  return true;
}

}  // namespace quarvel::hosts
