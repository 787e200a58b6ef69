// The table as text.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "bench/job_list.h"

namespace quarvel::bench {

// The medians of one contender's runs.
struct Figures {
  double seconds = 0;
  double user = 0;    // of the seconds, those of the processor outside of the system
  double spread = 0;  // from the fastest to the slowest run, as a share of the median
  double megabytes = 0;
  double pages = 0;
};

struct Measurement {
  Job job;
  std::string size;
  std::optional<Figures> ours;
  // In the order of job.contenders; nothing for one that was not measured.
  std::vector<std::optional<Figures>> others;
};

// The fastest contender's time divided by ours, of the kind that the job compares; nothing without one.
std::optional<double> RatioOf(const Measurement& measurement);

using Cells = std::vector<std::string>;
Cells HeadCells();
Cells CellsOf(const Measurement& measurement);
// Columns as wide as their widest cell, the numbers at the right.
std::string FormatTable(const std::vector<Cells>& lines);

}  // namespace quarvel::bench
