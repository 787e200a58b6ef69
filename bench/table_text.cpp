#include "bench/table_text.h"

#include <algorithm>
#include <cstdio>

namespace quarvel::bench {
namespace {

constexpr char kNone[] = "-";
// Job and size stand at the left, and so does the last column, the aims.
constexpr std::size_t kLeftColumns = 2;

std::string Fixed(double value, int decimals) {
  std::array<char, 64> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return std::string(text.data(), static_cast<std::size_t>(length));
}

std::string Seconds(const std::optional<Figures>& figures) {
  if (!figures) return kNone;
  return Fixed(figures->seconds, figures->seconds < 0.1 ? 5 : 3);
}

std::string Megabytes(const std::optional<Figures>& figures) {
  return figures ? Fixed(figures->megabytes, 0) : kNone;
}

// The system counts the processor's time in steps of some milliseconds.
bool ComparesUserTime(const Measurement& measurement) {
  constexpr double kLeast = 0.1;
  return measurement.job.compares_user_time && measurement.ours->user >= kLeast;
}

// In percent of the median.
std::string Spread(const std::optional<Figures>& figures) {
  return figures ? Fixed(100 * figures->spread, 0) + " %" : kNone;
}

// In thousands.
std::string Pages(const std::optional<Figures>& figures) {
  return figures ? Fixed(figures->pages / 1000, 1) : kNone;
}

std::optional<Figures> FiguresOf(const Measurement& measurement, Peer peer) {
  for (std::size_t k = 0; k < measurement.others.size(); ++k) {
    if (measurement.job.contenders[k].peer == peer) return measurement.others[k];
  }
  return std::nullopt;
}

std::string OtherCell(const Measurement& measurement) {
  for (std::size_t k = 0; k < measurement.others.size(); ++k) {
    const Contender& contender = measurement.job.contenders[k];
    if (contender.peer == Peer::kOther) {
      return contender.label + " " + Seconds(measurement.others[k]);
    }
  }
  return kNone;
}

void AddAim(std::string& cell, const std::string& aim, bool reached) {
  if (!cell.empty()) cell += ", ";
  cell += aim + (reached ? " reached" : " MISSED");
}

std::string AimCell(const Measurement& measurement) {
  const Job& job = measurement.job;
  std::string cell;
  if (!measurement.ours) return "FAILED";
  const std::optional<double> ratio = RatioOf(measurement);
  if (job.least_ratio > 0 && ratio) {
    AddAim(cell, "ratio " + Fixed(job.least_ratio, 2), *ratio >= job.least_ratio);
  }
  if (job.most_seconds > 0) {
    AddAim(cell, Fixed(job.most_seconds, job.most_seconds < 1 ? 3 : 0) + " s",
           measurement.ours->seconds <= job.most_seconds);
  }
  if (job.most_megabytes > 0) {
    AddAim(cell, Fixed(job.most_megabytes, 0) + " MB",
           measurement.ours->megabytes <= job.most_megabytes);
  }
  return cell.empty() ? kNone : cell;
}

}  // namespace

std::optional<double> RatioOf(const Measurement& measurement) {
  if (!measurement.ours) return std::nullopt;
  const auto time = ComparesUserTime(measurement) ? &Figures::user : &Figures::seconds;
  std::optional<double> fastest;
  for (const std::optional<Figures>& other : measurement.others) {
    if (other && (!fastest || (*other).*time < *fastest)) fastest = (*other).*time;
  }
  if (!fastest) return std::nullopt;
  return *fastest / (*measurement.ours).*time;
}

Cells HeadCells() {
  return {"job",   "size", "Quarvel s", "spread",       "CoinUtils s", "GLPK s", "other s",
          "ratio", "MB",   "pages",     "CoinUtils MB", "GLPK MB",     "aim"};
}

Cells CellsOf(const Measurement& measurement) {
  const std::optional<Figures> coinutils = FiguresOf(measurement, Peer::kCoinUtils);
  const std::optional<Figures> glpk = FiguresOf(measurement, Peer::kGlpk);
  const std::optional<double> ratio = RatioOf(measurement);
  return {measurement.job.name,        measurement.size,
          Seconds(measurement.ours),   Spread(measurement.ours),
          Seconds(coinutils),          Seconds(glpk),
          OtherCell(measurement),      ratio ? Fixed(*ratio, 2) : kNone,
          Megabytes(measurement.ours), Pages(measurement.ours),
          Megabytes(coinutils),        Megabytes(glpk),
          AimCell(measurement)};
}

std::string FormatTable(const std::vector<Cells>& lines) {
  std::vector<std::size_t> widths;
  for (const Cells& cells : lines) {
    widths.resize(std::max(widths.size(), cells.size()));
    for (std::size_t k = 0; k < cells.size(); ++k) {
      widths[k] = std::max(widths[k], cells[k].size());
    }
  }
  std::string text;
  for (const Cells& cells : lines) {
    for (std::size_t k = 0; k < cells.size(); ++k) {
      const std::string blanks(widths[k] - cells[k].size(), ' ');
      const bool last = k + 1 == cells.size();
      const bool left = k < kLeftColumns || last;
      text += left ? cells[k] + (last ? "" : blanks) : blanks + cells[k];
      text += last ? "\n" : "  ";
    }
  }
  return text;
}

}  // namespace quarvel::bench
