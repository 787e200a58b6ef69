#include "hosts/answers.h"

#include <algorithm>

#include "hosts/printing.h"
#include "platform/automation_error.h"
#include "platform/basic_controls.h"

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

// Each kind is decided on here; the compiler names one that is not.
std::optional<MsgBoxResult> Answers::AnswerBox(const Box& box, bool& print) {
  print = false;
  switch (box.kind) {
    using enum platform::BoxKind;
    case kReadProblem:
    case kEmptyItem:
      return AnswerProblem(box);
    case kConflict:
      return AnswerConflict(box);
    case kOfferToSimplify:
      return arguments_.simplify ? MsgBoxResult::kYes : MsgBoxResult::kNo;
    case kOfferLog:
      return MsgBoxResult::kYes;
    case kNote:
    case kAbout:
      on_note(box.statement);
      return MsgBoxResult::kOk;
    case kRefusal:
    case kFailure:
      refusals.emplace_back(OneLine(box.statement));
      return MsgBoxResult::kOk;
    case kOfferToSave:  // these belong to windows
    case kConfirmStop:
    case kConfirmDeletion:
      break;
  }
  if (!unanswered) unanswered = box;
  return box.look().when_closed;
}

std::optional<MsgBoxResult> Answers::AnswerProblem(const Box& problem) {
  file_failed = file_failed || IsFileFailure(problem);
  if (on_problem) {
    on_problem(problem);
    return file_failed ? MsgBoxResult::kNo : MsgBoxResult::kYes;
  }
  const bool ask = arguments_.on_error == OnError::kAsk && can_ask && !file_failed;
  if (ask) return std::nullopt;
  on_note(file + ": " + problem.statement);
  const bool go_on = arguments_.on_error == OnError::kContinue && !file_failed;
  return go_on ? MsgBoxResult::kYes : MsgBoxResult::kNo;
}

std::optional<MsgBoxResult> Answers::AnswerConflict(const Box& conflict) {
  struct Outcome {
    OnConflict choice;
    MsgBoxResult answer;
    std::string_view words;
  };
  static constexpr Outcome kOutcomes[] = {
      {OnConflict::kRemove, MsgBoxResult::kYes, "Removed."},
      {OnConflict::kReset, MsgBoxResult::kNo, "The bounds were reset to it."},
      {OnConflict::kStop, MsgBoxResult::kCancel, "Stopped converting rows."},
  };
  OnConflict choice = arguments_.on_conflict;
  if (choice == OnConflict::kAsk) {
    if (can_ask) return std::nullopt;
    choice = OnConflict::kStop;
  }
  const auto* const outcome =
      std::find_if(std::begin(kOutcomes), std::end(kOutcomes),
                   [choice](const Outcome& known) { return known.choice == choice; });
  on_note(conflict.statement + "  " + std::string(outcome->words));
  return outcome->answer;
}

std::optional<std::string> Answers::AnswerFile(const platform::FileDialog&) { return file; }

bool Answers::DriveForm(platform::Form& form) {
  if (!arguments_.infinite_default_bounds || form.name() != "frmSetDefaultBounds") return false;
  const std::string_view option =
      *arguments_.infinite_default_bounds ? "optLimitToLimit" : "optZeroToLimit";
  static_cast<platform::OptionButton&>(*form.Find(option)).Click();
  static_cast<platform::Button&>(*form.Find("cmdOK")).Click();
  return true;
}

}  // namespace quarvel::hosts
