// quarvel report: all that there is to see of a model, as one page of HTML.

#include "hosts/commands.h"
#include "hosts/made_file.h"
#include "hosts/model_check.h"
#include "hosts/printing.h"
#include "hosts/report_page.h"
#include "text/upper_case.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::string_view kStandardOutput = "-";

bool IsPage(std::string_view path) {
  const std::string upper = text::UpperCase(path);
  return upper.ends_with(".HTML") || upper.ends_with(".HTM");
}

void RefuseOutput(const Session& session) {
  const std::string& output = session.arguments.output;
  if (output.empty() && session.streams.screen.is_terminal) {
    throw CommandError(kUsage,
                       "report makes a page of HTML: say where with -o FILE.html, or -o - for "
                       "standard output");
  }
  if (output.empty() || output == kStandardOutput) return;
  if (!IsPage(output)) {
    throw CommandError(kUsage, "report writes files that end in .html or .htm, not " + output);
  }
  if (IsSameFile(output, session.arguments.operands[0])) {
    throw CommandError(kUsage, "report cannot write over the model");
  }
}

void StopUnread(const std::string& file, const std::vector<mps::FileProblem>& problems) {
  for (const mps::FileProblem& problem : problems) {
    if (problem.failure) throw CommandError(kProblem, file + ": " + problem.failure->description());
  }
  throw CommandError(kProblem, file + " was not read");
}

std::string MakePage(Session& session, ModelCheck& check, const KeptProblems& problems,
                     const std::string& file) {
  const LPModel& model = session.model();
  const inspect::ModelStats stats = inspect::StatsOf(model.store());
  const ReportedModel reported = {file, model, check.facts(), stats};
  const std::string name = model.ModelName();
  const std::string head = ReportHead(reported, check.result());
  const std::string numbers = ReportOnNumbers(reported);
  const std::string records = ReportOnRecords(reported);
  check.TellHeld();
  return ReportPage((name.empty() ? file : name) + ": a model",
                    head + numbers + ReportOnProblems(problems.kept(), check.result()) + records);
}

void Deliver(const Session& session, const CheckResult& result, const std::string& page) {
  const std::string& output = session.arguments.output;
  if (output.empty() || output == kStandardOutput) {
    session.streams.out << page;
    return;
  }
  WriteMadeFile(output, page);
  std::string line = output + ": " + Counted(result.rows, "row") + ", " +
                     Counted(result.columns, "column") + ", " + Counted(result.elements, "element");
  line += "; " + Counted(result.counts.All(mps::ProblemWeight::kError), "error") + ", " +
          Counted(result.counts.All(mps::ProblemWeight::kWarning), "warning");
  session.streams.out << text::OneLine(line) + '\n';
}

}  // namespace

std::string ReportHelp() {
  return "The page needs nothing else: the numbers, the picture of the matrix, sizes by powers of ten, "
         "families of\nnames, the worst-scaled rows, the problems as \"quarvel check\" has them, what "
         "simplification would\ntake, and the first equations; of each list the first few. It is written "
         "whole or not at all. Without -o\nit goes to standard output, unless that is a terminal.\n"
         "The exit status is 1 when the file has an error, which the page tells.\n";
}

int RunReport(Session& session) {
  RefuseOutput(session);
  const std::string file = NameOfInput(session.arguments.operands[0]);
  KeptProblems problems(file, session.streams.out);
  ModelCheck check(session, session.arguments.operands[0], problems, kMostProblems);
  check.Read();
  if (!check.result().read) StopUnread(file, problems.kept());
  const std::string page = MakePage(session, check, problems, file);
  Deliver(session, check.result(), page);
  return check.result().counts.All(mps::ProblemWeight::kError) > 0 ? kProblem : kGood;
}

}  // namespace quarvel::hosts
