// bench_table [OPTION...] FOLDER: runs every job in processes of its own, the contenders of a job
// by turns, and prints one table of medians. The generated files stand in FOLDER and are kept.

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "bench/child.h"
#include "bench/job_list.h"
#include "bench/memory.h"
#include "bench/table_text.h"

namespace quarvel::bench {
namespace {

namespace fs = std::filesystem;

constexpr char kUsage[] =
    "usage: bench_table [OPTION...] FOLDER\n"
    "  --runs N      runs of each program for a job (7)\n"
    "  --small       files of a fiftieth of the size\n"
    "  --growth      the jobs at two, four and eight times the size as well\n"
    "  --cold        reads and writes with memory that was not used before as well\n"
    "  --only TEXT   the jobs whose name holds TEXT\n";

constexpr std::string_view kPacked = ".gz";
// From so many on a ratio counts.
constexpr int kEnoughRuns = 7;

struct Options {
  Plan plan;
  std::string only;
  bool cold = false;
  int runs = kEnoughRuns;
};

// One line that is written over, on a terminal only.
class Status {
 public:
  ~Status() { Show(""); }
  void Show(const std::string& text) const {
    if (shows_) std::fprintf(stderr, "\r\033[K%s", text.c_str());
  }

 private:
  bool shows_ = isatty(STDERR_FILENO) == 1;
};

// All runs of one program for one job.
struct Runs {
  std::vector<double> seconds;
  std::vector<double> user;
  std::vector<double> megabytes;
  std::vector<double> pages;
  bool failed = false;
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::optional<Figures> FiguresOf(const Runs& runs) {
  if (runs.failed || runs.seconds.empty()) return std::nullopt;
  Figures figures;
  figures.seconds = Median(runs.seconds);
  figures.user = Median(runs.user);
  const auto [fastest, slowest] = std::minmax_element(runs.seconds.begin(), runs.seconds.end());
  figures.spread = (*slowest - *fastest) / figures.seconds;
  figures.megabytes = Median(runs.megabytes);
  figures.pages = Median(runs.pages);
  return figures;
}

// How many processes wanted a processor in the last minute.
double Load() {
  double load = 0;
  return getloadavg(&load, 1) == 1 ? load : 0;
}

class Table {
 public:
  explicit Table(const Options& options) : options_(options) {}

  // False when one of our own jobs failed.
  bool Run() {
    fs::create_directories(options_.plan.folder);
    NoteMissingPeers();
    const double load = Load();
    std::vector<Cells> lines = {HeadCells()};
    bool good = true;
    for (const Job& job : ListJobs(options_.plan)) {
      if (job.name.find(options_.only) == std::string::npos) continue;
      good = AddLine(job, false, lines) && good;
      if (options_.cold && job.least_cold_ratio > 0) good = AddLine(Cold(job), true, lines) && good;
    }
    status_.Show("");
    std::fputs(FormatTable(lines).c_str(), stdout);
    std::printf("%d runs of each, in turns; %ld processors; load %.1f before and %.1f after\n",
                options_.runs, sysconf(_SC_NPROCESSORS_ONLN), load, Load());
    if (options_.runs < kEnoughRuns) {
      notes_.push_back("a ratio counts from " + std::to_string(kEnoughRuns) + " runs on");
    }
    for (const std::string& note : notes_) std::printf("NOTE: %s\n", note.c_str());
    return good;
  }

 private:
  // False when our own program failed.
  bool AddLine(const Job& job, bool cold, std::vector<Cells>& lines) {
    const Measurement measurement = Measure(job, cold);
    lines.push_back(CellsOf(measurement));
    return measurement.ours.has_value();
  }

  static Job Cold(Job job) {
    job.name += ", cold memory";
    job.least_ratio = job.least_cold_ratio;
    return job;
  }

  std::string Program(const char* name) const { return options_.plan.programs + "/" + name; }

  void NoteMissingPeers() {
    if (!fs::exists(Program("bench_coinutils"))) {
      notes_.push_back("CoinUtils is missing (Debian's coinor-libcoinutils-dev)");
    }
    if (!fs::exists(Program("bench_glpk"))) {
      notes_.push_back("GLPK is missing (Debian's libglpk-dev)");
    }
  }

  // A file of an older generator is not kept; an interrupted run leaves none.
  void Generate(const ModelFile& file) const {
    const std::string generator = Program("bench_generate");
    if (fs::exists(file.path) && fs::last_write_time(file.path) > fs::last_write_time(generator)) {
      return;
    }
    if (file.path.ends_with(kPacked)) return Pack(file);
    status_.Show("generating " + file.path);
    std::vector<std::string> command = {generator};
    command.insert(command.end(), file.options.begin(), file.options.end());
    command.push_back(file.path + ".new");
    if (!RunChild(command)) throw std::runtime_error("cannot generate " + file.path);
    fs::rename(file.path + ".new", file.path);
  }

  void Pack(const ModelFile& file) const {
    ModelFile plain = file;
    plain.path.resize(plain.path.size() - kPacked.size());
    Generate(plain);
    status_.Show("packing " + plain.path);
    if (!RunChild({"/bin/gzip", "-kf", plain.path})) {
      throw std::runtime_error("cannot pack " + plain.path);
    }
  }

  static std::string FileSize(const ModelFile& file) {
    return std::to_string((fs::file_size(file.path) + 500'000) / 1'000'000) + " MB";
  }

  Measurement Measure(const Job& job, bool cold) {
    for (const ModelFile& file : job.files) Generate(file);
    Runs ours;
    std::vector<Runs> others(job.contenders.size());
    for (int run = 1; run <= options_.runs; ++run) {
      status_.Show(job.name + ": run " + std::to_string(run) + " of " +
                   std::to_string(options_.runs));
      RunOnce(job, job.command, true, cold, ours);
      for (std::size_t k = 0; k < others.size(); ++k) {
        const Contender& contender = job.contenders[k];
        if (run > 1 && IsFarBehind(others[k], others)) continue;
        RunOnce(job, contender.command, contender.peer != Peer::kOther, cold, others[k]);
      }
    }
    Measurement measurement{job, job.size, FiguresOf(ours), {}};
    if (job.size.empty()) measurement.size = FileSize(job.files.front());
    for (const Runs& runs : others) measurement.others.push_back(FiguresOf(runs));
    return measurement;
  }

  // Only the fastest contender counts for the ratio, so one that takes twice as long from the start
  // is not waited for again.
  static bool IsFarBehind(const Runs& runs, const std::vector<Runs>& all) {
    return !runs.seconds.empty() && std::any_of(all.begin(), all.end(), [&](const Runs& other) {
      return !other.seconds.empty() && runs.seconds.front() > 2 * other.seconds.front();
    });
  }

  // More than the job needs: a model takes little more memory than its file.
  static std::size_t MemoryOf(const Job& job) {
    std::size_t bytes = std::size_t{3} << 29;
    for (const ModelFile& file : job.files) {
      bytes = std::max<std::size_t>(bytes, 4 * fs::file_size(file.path));
    }
    return bytes;
  }

  void RunOnce(const Job& job, const std::vector<std::string>& command, bool checked, bool cold,
               Runs& runs) {
    if (runs.failed) return;
    if (!fs::exists(command.front())) {
      runs.failed = true;
      return;
    }
    if (cold) {
      LetMemoryCool();
    } else {
      WarmMemory(MemoryOf(job));
    }
    const std::optional<ChildResult> result = RunChild(command);
    const std::string problem = ProblemOf(job, result, checked);
    if (problem.empty()) {
      runs.seconds.push_back(result->values.at("seconds"));
      const auto user = result->values.find("user");
      runs.user.push_back(user == result->values.end() ? 0 : user->second);
      runs.megabytes.push_back(result->peak_megabytes);
      runs.pages.push_back(result->pages);
      return;
    }
    runs.failed = true;
    notes_.push_back(fs::path(command.front()).filename().string() + " in the job \"" + job.name +
                     "\": " + problem);
  }

  // A program that found another model in the file is no measure.
  static std::string ProblemOf(const Job& job, const std::optional<ChildResult>& result,
                               bool checked) {
    if (!result) return "failed";
    if (!result->values.contains("seconds")) return "printed no time";
    const auto differs = [&](const char* name, std::int64_t expected) {
      const auto found = result->values.find(name);
      return checked && expected != 0 && found != result->values.end() &&
             found->second != static_cast<double>(expected);
    };
    if (differs("columns", job.expected_columns)) return "another number of columns";
    if (differs("rows", job.expected_rows)) return "another number of rows";
    if (differs("elements", job.expected_elements)) return "another number of elements";
    return "";
  }

  const Options& options_;
  Status status_;
  std::vector<std::string> notes_;
};

int ParseRuns(std::string_view text) {
  int runs = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), runs);
  if (error != std::errc() || end != text.data() + text.size() || runs < 1) {
    throw std::invalid_argument("--runs needs a number from 1 on");
  }
  return runs;
}

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    const std::string& option = arguments[k];
    const bool last = k + 1 == arguments.size();
    if (option == "--small") {
      options.plan.small = true;
    } else if (option == "--cold") {
      options.cold = true;
    } else if (option == "--growth") {
      options.plan.growth = true;
    } else if (option == "--runs" && !last) {
      options.runs = ParseRuns(arguments[++k]);
    } else if (option == "--only" && !last) {
      options.only = arguments[++k];
    } else if (!option.starts_with("--") && options.plan.folder.empty()) {
      options.plan.folder = option;
    } else {
      throw std::invalid_argument("not understood: " + option);
    }
  }
  if (options.plan.folder.empty()) throw std::invalid_argument("no folder given");
  options.plan.programs = fs::read_symlink("/proc/self/exe").parent_path().string();
  return options;
}

}  // namespace
}  // namespace quarvel::bench

int main(int argc, char** argv) {
  try {
    const auto options = quarvel::bench::ParseOptions({argv + 1, argv + argc});
    return quarvel::bench::Table(options).Run() ? 0 : 1;
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "bench_table: %s\n%s", error.what(), quarvel::bench::kUsage);
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_table: %s\n", error.what());
    return 1;
  }
}
