// The page of `quarvel report`: one file of HTML that loads nothing and runs nothing. Each part is a text of
// its own, and each list in it has a bound, so that a page of any model is at most a few megabytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"
#include "hosts/problem_report.h"
#include "inspect/stats.h"
#include "mps/file_facts.h"
#include "simplify/forecast.h"

namespace quarvel::hosts {

// What the parts are about. All of it must outlive the calls.
struct ReportedModel {
  const std::string& file;  // as the user is told that it is called
  const LPModel& model;
  const mps::FileFacts& facts;
  const inspect::ModelStats& stats;
};

// How many problems of each code are listed.
inline constexpr std::int64_t kMostProblems = 10;

// The problems that a check tells, kept until the page is made.
class KeptProblems : public ProblemReport {
 public:
  using ProblemReport::ProblemReport;
  void Print(const mps::FileProblem& problem) override { kept_.push_back(problem); }
  void End(const CheckResult&) override {}
  const std::vector<mps::FileProblem>& kept() const { return kept_; }

 private:
  std::vector<mps::FileProblem> kept_;
};

// Name, file and the figures that say most.
std::string ReportHead(const ReportedModel& reported, const CheckResult& check);
// The parts that tell of the model, in two halves between which the problems stand.
std::string ReportOnNumbers(const ReportedModel& reported);
std::string ReportOnRecords(const ReportedModel& reported);
std::string ReportOnProblems(const std::vector<mps::FileProblem>& problems,
                             const CheckResult& check);

std::string MatrixPart(const model::ModelStore& store);
std::string SizesPart(const inspect::ModelStats& stats, const model::ModelStore& store);

// The whole page of such parts.
std::string ReportPage(const std::string& title, const std::string& body);

// For the help of the command.
std::string ReportHelp();

// The sheet of styles.
extern const std::string_view kReportStyle;

}  // namespace quarvel::hosts
