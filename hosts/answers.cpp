#include "hosts/answers.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "hosts/printing.h"
#include "platform/automation_error.h"
#include "platform/basic_controls.h"

namespace quarvel::hosts {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;

enum class Kind { kProblem, kConflict, kOfferToSimplify, kOfferLog, kNote, kRefusal };

// A box is known by its title or, where that is the default one, by how its text begins.
struct KnownBox {
  std::string_view title;
  std::string_view text;
  Kind kind;
};
constexpr KnownBox kKnownBoxes[] = {
    {"Error.  Continue Reading MPS File?", "", Kind::kProblem},
    {"LPModel: reading MPS file...", "", Kind::kProblem},
    {"Equality violates bounds", "", Kind::kConflict},
    {"Range Violates Bounds", "", Kind::kConflict},
    {"", "Do you want to simplify the model?", Kind::kOfferToSimplify},
    {"", "Model had simplifications.", Kind::kOfferLog},
    {"", "No simplifications were made.", Kind::kNote},
    {"", "The name you entered had more than 8 characters.", Kind::kNote},
    {"", "The file written is not a standard MPS file", Kind::kNote},
};

Kind KindOf(std::string_view title, std::string_view text) {
  const auto* const known = std::find_if(
      std::begin(kKnownBoxes), std::end(kKnownBoxes), [title, text](const KnownBox& box) {
        return (box.title.empty() || box.title == title) && text.starts_with(box.text);
      });
  return known == std::end(kKnownBoxes) ? Kind::kRefusal : known->kind;
}

// The statement in front of the question that a box ends with.
std::string_view Statement(std::string_view text) { return text.substr(0, text.find("\r\n")); }

// Failures of files end a read whatever the options say: there is nothing to go on with.
bool IsFileFailure(std::string_view description) {
  using enum RunTimeError;
  static constexpr std::array kFailures = {
      kBadFileNameOrNumber, kFileNotFound,     kFileAlreadyOpen,
      kDeviceIoError,       kDiskFull,         kTooManyFiles,
      kDeviceUnavailable,   kPermissionDenied, kPathFileAccessError,
      kPathNotFound,        kOutOfMemory};
  return std::any_of(kFailures.begin(), kFailures.end(), [description](RunTimeError failure) {
    return Describe(failure) == description;
  });
}

}  // namespace

std::int64_t LineOfProblem(std::string_view description) {
  static constexpr std::string_view kBefore[] = {"(line ", "in line ", "second time ("};
  if (description.ends_with(')')) description.remove_suffix(1);
  const std::size_t before = description.find_last_not_of("0123456789");
  if (before == std::string_view::npos) return 0;
  const std::string_view digits = description.substr(before + 1);
  description.remove_suffix(digits.size());
  std::int64_t line = 0;
  const bool named =
      std::any_of(std::begin(kBefore), std::end(kBefore),
                  [description](std::string_view words) { return description.ends_with(words); });
  if (named) std::from_chars(digits.data(), digits.data() + digits.size(), line);
  return line;
}

std::optional<MsgBoxResult> Answers::AnswerBox(std::string_view text, MsgBoxStyle,
                                               std::string_view title, bool& print) {
  print = false;
  switch (KindOf(title, text)) {
    case Kind::kProblem:
      return AnswerProblem(Statement(text));
    case Kind::kConflict:
      return AnswerConflict(Statement(text));
    case Kind::kOfferToSimplify:
      return arguments_.simplify ? MsgBoxResult::kYes : MsgBoxResult::kNo;
    case Kind::kOfferLog:
      return MsgBoxResult::kYes;
    case Kind::kNote:
      on_note(text);
      break;
    case Kind::kRefusal:
      refusals.emplace_back(OneLine(text));
      break;
  }
  return MsgBoxResult::kOk;
}

std::optional<MsgBoxResult> Answers::AnswerProblem(std::string_view text) {
  file_failed = file_failed || IsFileFailure(text);
  if (on_problem) {
    on_problem({OneLine(text), LineOfProblem(text)});
    return file_failed ? MsgBoxResult::kNo : MsgBoxResult::kYes;
  }
  const bool ask = arguments_.on_error == OnError::kAsk && can_ask && !file_failed;
  if (ask) return std::nullopt;
  on_note(file + ": " + std::string(text));
  const bool go_on = arguments_.on_error == OnError::kContinue && !file_failed;
  return go_on ? MsgBoxResult::kYes : MsgBoxResult::kNo;
}

std::optional<MsgBoxResult> Answers::AnswerConflict(std::string_view text) {
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
  on_note(std::string(text) + "  " + std::string(outcome->words));
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
