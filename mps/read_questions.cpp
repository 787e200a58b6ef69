#include "mps/read_questions.h"

#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::mps {
namespace {

platform::Box BoxOf(const ReadProblem& problem) {
  using platform::BoxKind;
  const bool sums_up_empty = problem.code == ReadProblemCode::kEmptyItems;
  platform::Box box = {.kind = sums_up_empty ? BoxKind::kEmptyItem : BoxKind::kReadProblem,
                       .statement = TextOf(problem),
                       .question = "Would you like to continue reading this MPS file?",
                       .style = platform::MsgBoxStyle::kYesNo,
                       .title = "Error.  Continue Reading MPS File?",
                       .code = NameOf(problem.code),
                       .line = problem.line,
                       .item = problem.item};
  if (problem.failure) box.failure = problem.failure->run_time_error();
  return box;
}

}  // namespace

bool ReadQuestions::GoesOnAfter(const ReadProblem& problem) {
  const platform::MsgBoxResult answer = desktop_.MsgBox(BoxOf(problem));
  const bool goes_on = answer == platform::MsgBoxResult::kYes;
  if (!goes_on) state_ = ReadState::kFailed;
  sink_.AfterCallback();
  return goes_on;
}

}  // namespace quarvel::mps
