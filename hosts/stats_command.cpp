// quarvel stats: a model in numbers, and its names as a few patterns.

#include "hosts/commands.h"
#include "hosts/stats_report.h"

namespace quarvel::hosts {
namespace {

// Half a million rows are to be a dozen lines.
constexpr std::int64_t kUsualFamilies = 20;

}  // namespace

std::string StatsHelp() {
  return "Sizes are those of magnitudes. Names that differ in numbers and index texts alone are one "
         "pattern:\nFLOW[3,17] is FLOW[#,#]. Without --limit the 20 biggest patterns of rows and of "
         "columns are listed.\nOn a terminal names are cut to its width; --full shows them whole.\n";
}

int RunStats(Session& session) {
  const std::string& file = session.arguments.operands[0];
  session.Read(file);
  const model::ModelStore& store = session.model().store();
  const inspect::ModelStats stats = inspect::StatsOf(store);
  const simplify::Forecast forecast = simplify::ForecastOf(store);
  const bool is_limited = (session.arguments.used & kLimit) != 0;
  const Screen& screen = session.streams.screen;
  const bool is_fitted = screen.is_terminal && !session.arguments.full;
  const StatsReport report = {session.model(),
                              file,
                              stats,
                              forecast,
                              is_limited ? session.arguments.limit : kUsualFamilies,
                              is_fitted ? screen.width : 0,
                              Pen(session.arguments.color, screen)};
  session.streams.out << (session.arguments.json ? StatsJson(report) : StatsText(report));
  return kGood;
}

}  // namespace quarvel::hosts
