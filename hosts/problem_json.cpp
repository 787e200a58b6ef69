#include "hosts/printing.h"
#include "hosts/problem_report.h"
#include "text/shortened_text.h"

namespace quarvel::hosts {
namespace {

using mps::FileProblem;
using mps::FileProblemTraits;

// Members that have nothing to say are left out.
void AppendText(std::string& json, std::string_view key, std::string_view text) {
  if (!text.empty()) AppendJsonMember(json, key, text);
}
void AppendNumber(std::string& json, std::string_view key, std::int64_t number) {
  if (number != 0) AppendJsonMember(json, key, number);
}

void AppendLines(std::string& json, const std::vector<std::int64_t>& lines) {
  if (lines.empty()) return;
  json += ",\"lines\":";
  char separator = '[';
  for (const std::int64_t line : lines) {
    json += separator;
    AppendJson(json, line);
    separator = ',';
  }
  json += ']';
}

class JsonReport : public ProblemReport {
 public:
  JsonReport(const std::string& file, std::ostream& out, const ReportPlace& place)
      : ProblemReport(file, out), gap_(place.is_only() ? "\n" : "") {}

  void Begin() override {
    std::string json = "{";
    AppendJsonMember(json, "file", file());
    out() << json + ",\"problems\":[";
  }

  void Print(const FileProblem& problem) override {
    const FileProblemTraits& traits = mps::TraitsOf(problem.code);
    std::string json = "{";
    AppendJsonMember(json, "code", traits.id);
    AppendJsonMember(json, "name", traits.name);
    AppendJsonMember(json, "weight", WeightWord(traits.weight()));
    AppendNumber(json, "line", problem.line);
    AppendNumber(json, "column", problem.column);
    AppendNumber(json, "length", problem.length);
    AppendJsonMember(json, "sentence", mps::SentenceOf(problem));
    AppendText(json, "item", problem.item);
    AppendText(json, "read", problem.read);
    AppendText(json, "made", text::Shortened(problem.made, mps::kLongestMadeShown));
    AppendText(json, "expected", traits.expected);
    AppendLines(json, problem.lines);
    AppendText(json, "text", problem.text);
    if (!is_first_) out() << ',';
    out() << gap_ << json + '}';
    is_first_ = false;
  }

  void End(const CheckResult& result) override {
    const ProblemCounts& counts = result.counts;
    std::string json = "],\"counts\":{";
    for (const FileProblemTraits& traits : mps::FileProblemTable()) {
      AppendNumber(json, traits.id, counts.All(traits.code));
    }
    json += '}';
    AppendJsonMember(json, "errors", counts.All(mps::ProblemWeight::kError));
    AppendJsonMember(json, "warnings", counts.All(mps::ProblemWeight::kWarning));
    AppendJsonMember(json, "adapted", counts.All(mps::ProblemWeight::kAdapted));
    AppendJsonMember(json, "unlisted", counts.All() - counts.Printed());
    AppendJsonMember(json, "filtered", result.filtered);
    AppendJsonMember(json, "read", result.read);
    AppendJsonMember(json, "hasEndata", result.has_endata);
    AppendJsonMember(json, "rows", result.rows);
    AppendJsonMember(json, "columns", result.columns);
    AppendJsonMember(json, "elements", result.elements);
    out() << json + "}\n";
  }

 private:
  std::string_view gap_;  // before each problem
  bool is_first_ = true;
};

}  // namespace

std::unique_ptr<ProblemReport> MakeJsonReport(const std::string& file, std::ostream& out,
                                              const ReportPlace& place) {
  return std::make_unique<JsonReport>(file, out, place);
}

}  // namespace quarvel::hosts
