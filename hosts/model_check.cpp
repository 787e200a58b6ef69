#include "hosts/model_check.h"

#include <utility>

#include "hosts/file_reading.h"
#include "hosts/progress_window.h"
#include "inspect/lint.h"
#include "inspect/problem_lines.h"
#include "platform/files.h"

namespace quarvel::hosts {
namespace {

// So many problems of records are given their lines.
constexpr std::size_t kMostHeld = 200;

}  // namespace

ModelCheck::ModelCheck(Session& session, const std::string& file, ProblemReport& report,
                       std::int64_t limit)
    : session_(session),
      file_(file),
      report_(report),
      filter_(session.arguments),
      limit_(limit),
      can_read_again_(file_ != kStandardInput && platform::FileExists(file_) &&
                      platform::FileLength(file_) > 0),
      opener_(file_, session.streams),
      texts_([this] { return opener_(); }) {}

void ModelCheck::Read() {
  const mps::FileRead read = ReadFile();
  facts_ = read.facts;
  result_.read = read.outcome == mps::ReadOutcome::kRead;
  result_.has_endata = result_.read && read.facts.has_endata;
  if (result_.read && !result_.has_endata) session_.NoteWholeCopies(file_);
  if (result_.read && !session_.arguments.no_lint) Lint();
  const model::ModelStore& store = session_.model().store();
  result_.rows = store.NumberOfRows();
  result_.columns = store.NumberOfColumns();
  result_.elements = store.NumberOfElements();
  result_.status = Status();
}

mps::FileRead ModelCheck::ReadFile() {
  mps::ReadOptions options = ReadOptionsOf(session_.arguments);
  options.kept_of_each = 0;
  options.open = [this] { return opener_(); };
  options.on_problem = [this](const mps::FileProblem& problem) {
    Hear(problem);
    return session_.KeepPrinting();
  };
  return session_.ReadAsData(file_, options);
}

void ModelCheck::Lint() {
  inspect::Lint(session_.model().store(), facts_,
                {[this](mps::FileProblemCode code) {
                   return filter_.Takes(code) && result_.counts.HasRoom(code, limit_);
                 },
                 [this](const mps::FileProblem& problem) { Hear(problem); }});
}

void ModelCheck::Hear(mps::FileProblem problem) {
  if (!filter_.Takes(problem.code)) {
    ++result_.filtered;
  } else if (result_.counts.Add(problem.code, limit_)) {
    texts_.Show(problem);
    if (IsHeld(problem.code)) return held_.push_back(std::move(problem));
    Print(problem);
  }
}

void ModelCheck::Print(const mps::FileProblem& problem) {
  session_.MakeRoom();
  report_.Print(problem);
  session_.ShowPrinted();
}

bool ModelCheck::IsHeld(mps::FileProblemCode code) const {
  return can_read_again_ && held_.size() < kMostHeld && inspect::HasLinesOfItsRecord(code);
}

void ModelCheck::TellHeld() {
  FindLines();
  session_.StopIfInterrupted();
  for (const mps::FileProblem& problem : held_) Print(problem);
  held_.clear();
}

void ModelCheck::FindLines() {
  mps::ReadOptions options = ReadOptionsOf(session_.arguments);
  options.kept_of_each = 0;
  options.open = InputOpener(file_, session_.streams);
  ProgressWindow window(session_.desktop(), "Finding lines in " + NameOfInput(file_));
  options.on_progress = [&](std::uint64_t done, std::uint64_t all) {
    return window.Update(done, PartOf(done, all)) && session_.KeepPrinting();
  };
  inspect::FindProblemLines(file_, options, session_.model().store(), held_);
}

// What was adapted is read as it was meant.
int ModelCheck::Status() const {
  if (!result_.read || result_.counts.All(mps::ProblemWeight::kError) > 0) return kProblem;
  return result_.counts.All(mps::ProblemWeight::kWarning) > 0 ? kWarnings : kGood;
}

}  // namespace quarvel::hosts
