// quarvel evaluate: a row's activity at a point.

#include "hosts/commands.h"
#include "hosts/input_bytes.h"
#include "hosts/point.h"
#include "hosts/printing.h"

namespace quarvel::hosts {
namespace {

std::string ActivityJson(Session& session, std::int32_t row, double activity) {
  const LPModel& model = session.model();
  std::string json = "{";
  AppendJsonMember(json, "index", row);
  AppendJsonMember(json, "name", model.RowName(row));
  AppendJsonMember(json, "lowerBound", AsLower(model.RowLowerBound(row)));
  AppendJsonMember(json, "upperBound", AsUpper(model.RowUpperBound(row)));
  AppendJsonMember(json, "activity", activity);
  AppendJsonMember(json, "hasEndata", !session.may_be_cut_off());
  return json + "}\n";
}

// What is wrong with a column is told with the model's file.
void Set(Point& point, const std::string& pair, const std::string& file) {
  try {
    point.Set(pair, kUsage);
  } catch (const CommandError& error) {
    if (error.status() == kUsage) throw;
    throw CommandError(error.status(), NameOfInput(file) + ": " + error.text());
  }
}

void NoteRepeated(Session& session, const Point& point) {
  const Point::Names& repeated = point.repeated();
  if (repeated.count == 0) return;
  std::string text = Counted(repeated.count, "value") + " given again, the last one counts: ";
  for (const std::string& name : repeated.first) {
    if (&name != &repeated.first.front()) text += ", ";
    text += name;
  }
  session.Note(repeated.has_more ? text + ", ..." : text);
}

}  // namespace

int RunEvaluate(Session& session) {
  const Arguments& arguments = session.arguments;
  RefuseStandardInputTwice(arguments.operands[0], arguments.point);
  session.Read(arguments.operands[0]);
  const LPModel& model = session.model();
  const auto note = [&session](std::string_view text) { session.Note(text); };
  const std::int32_t row =
      session.Find(arguments.operands[0], model::kRowKind, arguments.operands[1]);
  Point point(model, note);
  if (!arguments.point.empty()) point.SetFromFile(arguments.point, session.streams);
  for (std::size_t i = 2; i < arguments.operands.size(); ++i) {
    Set(point, arguments.operands[i], arguments.operands[0]);
  }
  NoteRepeated(session, point);
  double activity = 0;
  model.RowBodyValue(row, point.values(), activity);
  session.streams.out << (arguments.json ? ActivityJson(session, row, activity)
                                         : NumberText(activity) + '\n');
  return kGood;
}

}  // namespace quarvel::hosts
