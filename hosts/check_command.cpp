// quarvel check: every problem of files and of their models, printed as it is met.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/commands.h"
#include "hosts/input_bytes.h"
#include "hosts/model_check.h"
#include "hosts/printing.h"
#include "hosts/problem_report.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

// A broken file has a problem in each of its lines.
constexpr std::int64_t kCheckLimit = 20;

std::unique_ptr<ProblemReport> MakeReport(const Session& session, const std::string& path,
                                          const ReportPlace& place) {
  const Arguments& arguments = session.arguments;
  std::ostream& out = session.streams.out;
  if (arguments.sarif) return MakeSarifReport(path, out, place);
  if (arguments.json) return MakeJsonReport(path, out, place);
  return MakeTextReport(NameOfInput(path), out, session.streams.screen, arguments.color);
}

// Gives the status of that file.
int CheckOne(Session& session, const std::string& file, const ReportPlace& place) {
  const Arguments& arguments = session.arguments;
  const bool is_limited = (arguments.used & kLimit) != 0;
  const std::unique_ptr<ProblemReport> report = MakeReport(session, file, place);
  ModelCheck check(session, file, *report, is_limited ? arguments.limit : kCheckLimit);
  report->Begin();
  check.Read();
  check.TellHeld();
  report->End(check.result());
  return check.result().status;
}

// What the checks of several files came to.
class Summary {
 public:
  void Add(int status) {
    ++files_;
    if (status == kProblem) ++with_errors_;
    if (status == kWarnings) ++with_warnings_;
  }

  // "3 files: 1 with errors, 1 with warnings only, 1 with neither"
  std::string Text() const {
    std::string text = Counted(files_, "file");
    std::string_view gap = ": ";
    const auto add = [&](std::int64_t count, std::string_view what) {
      if (count == 0) return;
      text.append(gap).append(text::IntegerText(count)).append(" ").append(what);
      gap = ", ";
    };
    add(with_errors_, "with errors");
    add(with_warnings_, "with warnings only");
    add(files_ - with_errors_ - with_warnings_, "without errors or warnings");
    return text;
  }

  int worst() const {
    if (with_errors_ > 0) return kProblem;
    return with_warnings_ > 0 ? kWarnings : kGood;
  }

 private:
  std::int64_t files_ = 0;
  std::int64_t with_errors_ = 0;
  std::int64_t with_warnings_ = 0;
};

}  // namespace

int RunCheck(Session& session) {
  const Arguments& arguments = session.arguments;
  if (arguments.json && arguments.sarif) {
    throw CommandError(kUsage, "check takes --json or --sarif, not both");
  }
  const std::vector<std::string>& files = arguments.operands;
  StopAtSecondStandardInput(files);
  Summary summary;
  for (const std::string& file : files) {
    if (!session.KeepPrinting()) break;
    summary.Add(CheckOne(session, file, {&file == &files.front(), &file == &files.back()}));
  }
  session.StopIfInterrupted();
  const bool is_text = !arguments.json && !arguments.sarif;
  if (is_text && files.size() > 1) session.streams.out << summary.Text() + '\n';
  return summary.worst();
}

}  // namespace quarvel::hosts
