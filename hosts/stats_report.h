// What quarvel stats prints of a model's numbers: for people, and as JSON, whose members docs/stats.md
// promises.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "component/lp_model.h"
#include "hosts/screen.h"
#include "inspect/stats.h"
#include "simplify/forecast.h"

namespace quarvel::hosts {

struct StatsReport {
  const LPModel& model;
  const std::string& file;  // as it was given
  const inspect::ModelStats& stats;
  const simplify::Forecast& forecast;
  std::int64_t most_families;  // of rows and of columns, that are listed
  std::size_t width;           // of a terminal, to which names are cut; 0 for none
  Pen pen;
};

// For the help of the command.
std::string StatsHelp();

std::string StatsText(const StatsReport& report);
std::string StatsJson(const StatsReport& report);

}  // namespace quarvel::hosts
