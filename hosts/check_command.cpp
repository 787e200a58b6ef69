// quarvel check: every problem of a file and of its model, printed as it is met, so that a file of
// nothing but problems takes no memory.

#include <utility>
#include <vector>

#include "hosts/commands.h"
#include "hosts/file_reading.h"
#include "hosts/input_bytes.h"
#include "hosts/problem_filter.h"
#include "hosts/problem_report.h"
#include "inspect/lint.h"
#include "inspect/problem_lines.h"
#include "mps/line_texts.h"
#include "mps/read_file.h"
#include "platform/files.h"

namespace quarvel::hosts {
namespace {

// A broken file has a problem in each of its lines.
constexpr std::int64_t kUsualLimit = 20;
// So many problems of records are given their lines.
constexpr std::size_t kMostHeld = 200;

std::unique_ptr<ProblemReport> MakeReport(const Arguments& arguments, std::ostream& out) {
  const std::string file = NameOfInput(arguments.operands[0]);
  if (arguments.sarif) return MakeSarifReport(file, out);
  return arguments.json ? MakeJsonReport(file, out) : MakeTextReport(file, out);
}

class Check {
 public:
  explicit Check(Session& session)
      : session_(session),
        file_(session.arguments.operands[0]),
        filter_(session.arguments),
        limit_((session.arguments.used & kLimit) != 0 ? session.arguments.limit : kUsualLimit),
        can_read_again_(file_ != kStandardInput && platform::FileExists(file_) &&
                        platform::FileLength(file_) > 0),
        opener_(file_, session.streams),
        texts_([this] { return opener_(); }),
        report_(MakeReport(session.arguments, session.streams.out)) {}

  int Run() {
    report_->Begin();
    const mps::FileRead read = Read();
    result_.read = read.outcome == mps::ReadOutcome::kRead;
    result_.has_endata = read.facts.has_endata;
    if (result_.read && !session_.arguments.no_lint) Lint();
    const model::ModelStore& store = session_.model().store();
    result_.rows = store.NumberOfRows();
    result_.columns = store.NumberOfColumns();
    result_.elements = store.NumberOfElements();
    result_.status = Status();
    PrintHeld();
    report_->End(result_);
    return result_.status;
  }

 private:
  mps::FileRead Read() {
    mps::ReadOptions options = ReadOptionsOf(session_.arguments);
    options.kept_of_each = 0;
    options.open = [this] { return opener_(); };
    options.on_problem = [this](const mps::FileProblem& problem) {
      Hear(problem);
      return session_.KeepPrinting();
    };
    return session_.ReadAsData(file_, options);
  }

  void Lint() {
    inspect::Lint(session_.model().store(),
                  {[this](mps::FileProblemCode code) {
                     return filter_.Takes(code) && result_.counts.HasRoom(code, limit_);
                   },
                   [this](const mps::FileProblem& problem) { Hear(problem); }});
  }

  void Hear(mps::FileProblem problem) {
    if (!filter_.Takes(problem.code)) {
      ++result_.filtered;
    } else if (result_.counts.Add(problem.code, limit_)) {
      if (IsHeld(problem.code)) return held_.push_back(std::move(problem));
      texts_.Show(problem);
      report_->Print(problem);
    }
  }

  bool IsHeld(mps::FileProblemCode code) const {
    return can_read_again_ && held_.size() < kMostHeld && inspect::HasLinesOfItsRecord(code);
  }

  // The model is not needed any more.
  void PrintHeld() {
    mps::ReadOptions options = ReadOptionsOf(session_.arguments);
    options.kept_of_each = 0;
    options.open = InputOpener(file_, session_.streams);
    options.on_progress = [this](std::uint64_t, std::uint64_t) { return session_.KeepPrinting(); };
    inspect::FindProblemLines(file_, options, session_.model().store(), held_);
    session_.StopIfInterrupted();
    for (const mps::FileProblem& problem : held_) report_->Print(problem);
  }

  // What was adapted is read as it was meant.
  int Status() const {
    if (!result_.read || result_.counts.All(mps::ProblemWeight::kError) > 0) return kProblem;
    return result_.counts.All(mps::ProblemWeight::kWarning) > 0 ? kWarnings : kGood;
  }

  Session& session_;
  const std::string& file_;
  ProblemFilter filter_;
  std::int64_t limit_;
  bool can_read_again_;
  InputOpener opener_;
  mps::LineTexts texts_;
  std::unique_ptr<ProblemReport> report_;
  CheckResult result_;
  std::vector<mps::FileProblem> held_;  // until their lines are found
};

}  // namespace

int RunCheck(Session& session) {
  if (session.arguments.json && session.arguments.sarif) {
    throw CommandError(kUsage, "check takes --json or --sarif, not both");
  }
  return Check(session).Run();
}

}  // namespace quarvel::hosts
