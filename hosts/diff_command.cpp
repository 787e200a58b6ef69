// quarvel diff: what two models differ in, as a list or as the edit commands that make them equal.

#include <string>
#include <vector>

#include "hosts/commands.h"
#include "hosts/diff_report.h"
#include "hosts/edit_script.h"
#include "hosts/input_bytes.h"
#include "hosts/script_obstacles.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr int kDifferent = 1;

inspect::Tolerance ComparedWithin(const Arguments& arguments) {
  if (!arguments.tolerance) return {};
  return {arguments.tolerance->absolute, arguments.tolerance->relative.value_or(0)};
}

// Hands all differences to the visitor. The component's read says nothing of a file beside its model.
void CompareSides(const DiffSides& sides, const inspect::DifferenceVisitor& visit) {
  const inspect::Tolerance tolerance = ComparedWithin(sides.a.arguments);
  if (!sides.a.arguments.reads_as_component()) {
    inspect::CompareFacts(sides.a.facts(), sides.b.facts(), tolerance, visit);
  }
  inspect::Compare(sides.a.model().store(), sides.b.model().store(), tolerance, visit);
}

int PrintReport(const DiffSides& sides) {
  const std::unique_ptr<DiffReport> report = MakeDiffReport(sides);
  report->Begin();
  CompareSides(sides, [&report](const inspect::Difference& d) { report->Add(d); });
  sides.a.StopIfInterrupted();
  report->End();
  return report->none() ? kGood : kDifferent;
}

ScriptSide ScriptSideOf(Session& session) {
  const bool knows_facts = !session.arguments.reads_as_component();
  return {session.model().store(), knows_facts ? &session.facts() : nullptr};
}

void StopAtObstacles(const DiffSides& sides) {
  const std::vector<std::string> obstacles = ScriptObstacles(
      ScriptSideOf(sides.a), ScriptSideOf(sides.b), ComparedWithin(sides.a.arguments));
  if (obstacles.empty()) return;
  for (const std::string& obstacle : obstacles) sides.a.Note(obstacle);
  throw CommandError(kProblem, "no edit commands make " +
                                   NameOfInput(sides.a.arguments.operands[0]) + " equal to " +
                                   NameOfInput(sides.a.arguments.operands[1]));
}

int PrintScript(const DiffSides& sides) {
  StopAtObstacles(sides);
  inspect::Differences differences(0);
  CompareSides(sides, [&differences](const inspect::Difference& d) { differences.Add(d); });
  const inspect::Tolerance tolerance = ComparedWithin(sides.a.arguments);
  EditScript script(ScriptSideOf(sides.a), ScriptSideOf(sides.b), tolerance);
  script.PrintTo([&sides](std::string_view line) {
    if (sides.a.KeepPrinting()) sides.a.streams.out << text::VisibleText(line) + '\n';
  });
  sides.a.StopIfInterrupted();
  return differences.none() ? kGood : kDifferent;
}

}  // namespace

int RunDiff(Session& session) {
  const Arguments& arguments = session.arguments;
  if (arguments.script && (arguments.json || arguments.quiet)) {
    throw CommandError(kUsage, "diff takes --script without --json and --quiet");
  }
  if (arguments.script && (arguments.used & kLimit) != 0) {
    throw CommandError(kUsage,
                       "diff takes --script without --limit: half of the commands make no B");
  }
  StopAtSecondStandardInput(arguments.operands);
  session.Read(arguments.operands[0]);
  Session other(arguments, session.streams);
  other.Read(arguments.operands[1]);
  const DiffSides sides = {session, other};
  return arguments.script ? PrintScript(sides) : PrintReport(sides);
}

}  // namespace quarvel::hosts
