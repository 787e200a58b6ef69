#include "hosts/questions.h"

#include <algorithm>

#include "hosts/arguments.h"

namespace quarvel::hosts {
namespace {

using platform::BoxKind;
using platform::MsgBoxResult;

constexpr GivenAnswer kAtProblem[] = {
    {"ask", std::nullopt}, {"stop", MsgBoxResult::kNo}, {"continue", MsgBoxResult::kYes}};
constexpr GivenAnswer kAtConflict[] = {{"ask", std::nullopt},
                                       {"remove", MsgBoxResult::kYes, "Removed."},
                                       {"reset", MsgBoxResult::kNo, "The bounds were reset to it."},
                                       {"stop", MsgBoxResult::kCancel, "Stopped converting rows."}};
constexpr GivenAnswer kNoOrYes[] = {{"", MsgBoxResult::kNo}, {"", MsgBoxResult::kYes}};
constexpr GivenAnswer kAsked = {"", std::nullopt};
constexpr GivenAnswer kYes[] = {{"", MsgBoxResult::kYes}};

constexpr QuestionOption kTable[] = {
    {.id = kOnError,
     .name = "--on-error",
     .values = "ask|stop|continue",
     .help = "at a problem in the file: ask (the default on a terminal),\n"
             "stop (the default elsewhere), or pass over it",
     .answers = kAtProblem,
     .unasked = "stop",
     .of_file = true},
    {.id = kSimplify,
     .name = "--simplify",
     .values = "",
     .help = "simplify the model once it is read",
     .answers = kNoOrYes},
    {.id = kOnConflict,
     .name = "--on-conflict",
     .values = "ask|remove|reset|stop",
     .help = "when a row of one element contradicts its column's\n"
             "bounds: ask (the default on a terminal), remove the\n"
             "row, reset the bounds to it, or stop converting rows\n"
             "(the default elsewhere)",
     .answers = kAtConflict,
     .unasked = "stop"},
};

// What a log is shown by tells where it is.
constexpr QuestionOption kShowLog = {
    .id = 0, .name = "", .values = "", .help = "", .answers = kYes};

Decision By(OptionSet id) {
  const auto* const found =
      std::find_if(std::begin(kTable), std::end(kTable),
                   [id](const QuestionOption& option) { return option.id == id; });
  return {Manner::kAnswered, found};
}

}  // namespace

std::span<const QuestionOption> QuestionOptions() { return kTable; }

const GivenAnswer* FindAnswer(const QuestionOption& option, std::string_view word) {
  const auto found = std::find_if(option.answers.begin(), option.answers.end(),
                                  [word](const GivenAnswer& given) { return given.word == word; });
  return found == option.answers.end() ? nullptr : &*found;
}

// The compiler names a kind that is not decided on.
Decision DecisionOn(BoxKind kind) {
  switch (kind) {
    case BoxKind::kNote:
    case BoxKind::kAbout:
      return {Manner::kTold};
    case BoxKind::kRefusal:
    case BoxKind::kFailure:
      return {Manner::kKept};
    case BoxKind::kReadProblem:
    case BoxKind::kEmptyItem:
      return By(kOnError);
    case BoxKind::kConflict:
      return By(kOnConflict);
    case BoxKind::kOfferToSimplify:
      return By(kSimplify);
    case BoxKind::kOfferLog:
      return {Manner::kAnswered, &kShowLog};
    case BoxKind::kOfferToSave:  // these belong to windows
    case BoxKind::kConfirmStop:
    case BoxKind::kConfirmDeletion:
      break;
  }
  return {Manner::kUnknown};
}

const GivenAnswer& AnswerTo(BoxKind kind, const Arguments& arguments) {
  const QuestionOption& option = *DecisionOn(kind).option;
  const auto given = arguments.answers.find(option.id);
  if (given != arguments.answers.end()) return *given->second;
  const bool is_asked = arguments.ask && kind == BoxKind::kOfferToSimplify;
  return is_asked ? kAsked : option.answers.front();
}

}  // namespace quarvel::hosts
