// quarvel check: every problem of a file and of its model, printed as it is met.

#include "hosts/commands.h"
#include "hosts/model_check.h"

namespace quarvel::hosts {
namespace {

// A broken file has a problem in each of its lines.
constexpr std::int64_t kUsualLimit = 20;

std::unique_ptr<ProblemReport> MakeReport(const Arguments& arguments, std::ostream& out) {
  const std::string file = NameOfInput(arguments.operands[0]);
  if (arguments.sarif) return MakeSarifReport(file, out);
  return arguments.json ? MakeJsonReport(file, out) : MakeTextReport(file, out);
}

}  // namespace

int RunCheck(Session& session) {
  const Arguments& arguments = session.arguments;
  if (arguments.json && arguments.sarif) {
    throw CommandError(kUsage, "check takes --json or --sarif, not both");
  }
  const bool is_limited = (arguments.used & kLimit) != 0;
  const std::unique_ptr<ProblemReport> report = MakeReport(arguments, session.streams.out);
  ModelCheck check(session, *report, is_limited ? arguments.limit : kUsualLimit);
  report->Begin();
  check.Read();
  check.TellHeld();
  report->End(check.result());
  return check.result().status;
}

}  // namespace quarvel::hosts
