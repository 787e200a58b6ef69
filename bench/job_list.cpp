#include "bench/job_list.h"

#include <string_view>
#include <utility>

#include "bench/edit_jobs.h"

namespace quarvel::bench {
namespace {

constexpr std::int64_t kRows = 200'000;
constexpr std::int64_t kColumns = 500'000;
constexpr std::int64_t kPerColumn = 7;
constexpr std::int64_t kRowDeletions = 1'000;
constexpr std::int64_t kEdits = 100'000;
// Doubling the model may multiply a time by 2.15.
constexpr double kDoublingRatio = 1 / 2.15;

// What a file has beside the rows and columns of the base model.
struct Extras {
  std::int64_t singletons = 0;
  std::int64_t empty_columns = 0;
  std::vector<std::string> options;
};

class JobLister {
 public:
  explicit JobLister(const Plan& plan) : plan_(plan), divisor_(plan.small ? 50 : 1) {}

  std::vector<Job> List() {
    AddStarts();
    AddReads();
    AddReadAsData();
    AddCheck();
    AddPicture("spy", ".png");
    AddPicture("report", ".html");
    AddDiffs();
    AddWrite();
    AddReceipt();
    AddQuery();
    AddSimplifications();
    AddDeletions();
    AddEdits();
    if (plan_.growth) {
      for (const std::int64_t times : {2, 4, 8}) AddGrowth(times);
    }
    if (plan_.small) DropAims();
    return std::move(jobs_);
  }

 private:
  // A small file stays in the processor's cache, and its times say little.
  void DropAims() {
    for (Job& job : jobs_) {
      job.least_ratio = job.least_cold_ratio = job.most_seconds = job.most_megabytes = 0;
    }
  }

  // `name` is that of the file; `times` multiplies the size.
  ModelFile File(const std::string& name, std::int64_t times = 1, const Extras& extras = {}) const {
    const std::int64_t rows = Scaled(kRows) * times;
    const std::int64_t columns = Scaled(kColumns) * times;
    ModelFile file;
    file.path = plan_.folder + "/" + (plan_.small ? "small-" : "") + name +
                (times > 1 ? "-x" + std::to_string(times) : "") + ".mps";
    file.options = {"--rows",          std::to_string(rows),
                    "--columns",       std::to_string(columns),
                    "--per-column",    std::to_string(kPerColumn),
                    "--singletons",    std::to_string(extras.singletons),
                    "--empty-columns", std::to_string(extras.empty_columns)};
    file.options.insert(file.options.end(), extras.options.begin(), extras.options.end());
    file.rows = rows + 1 + extras.singletons;
    file.columns = columns + extras.empty_columns;
    file.elements = columns * (kPerColumn + 1) + extras.singletons;
    return file;
  }
  ModelFile Singletons(std::int64_t times = 1) const {
    return File("singletons", times, {Scaled(kRows) * times, 0, {}});
  }
  std::int64_t Scaled(std::int64_t number) const { return number / divisor_; }
  std::string Out(std::string_view who) const {
    return plan_.folder + "/written-" + std::string(who) + ".mps";
  }

  std::vector<std::string> Ours(std::vector<std::string> arguments) const {
    return Command("bench_quarvel", std::move(arguments));
  }
  std::vector<std::string> Command(const char* program, std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), plan_.programs + "/" + program);
    return arguments;
  }
  Contender CoinUtils(std::vector<std::string> arguments) const {
    return {Peer::kCoinUtils, "", Command("bench_coinutils", std::move(arguments))};
  }
  Contender Glpk(std::vector<std::string> arguments) const {
    return {Peer::kGlpk, "", Command("bench_glpk", std::move(arguments))};
  }
  Contender Other(const char* label, std::vector<std::string> arguments) const {
    return {Peer::kOther, label, Ours(std::move(arguments))};
  }

  static void Expect(Job& job, const ModelFile& file) {
    job.expected_columns = file.columns;
    job.expected_rows = file.rows;
    job.expected_elements = file.elements;
  }

  void AddRead(const std::string& name, const ModelFile& file, const char* glpk_format,
               double ratio, double cold_ratio, double megabytes = 0) {
    Job job;
    job.name = name;
    job.files = {file};
    job.command = Ours({"read", file.path});
    job.contenders = {CoinUtils({"read", file.path}), Glpk({"read", file.path, glpk_format})};
    job.least_ratio = ratio;
    job.least_cold_ratio = cold_ratio;
    job.most_megabytes = megabytes;
    Expect(job, file);
    jobs_.push_back(std::move(job));
  }

  void AddReads() {
    const auto file = [this](const char* name, std::vector<std::string> options) {
      return File(name, 1, {0, 0, std::move(options)});
    };
    AddRead("read", File("base"), "fixed", 9, 7, 160);
    AddRead("read, names of 20", file("names20", {"--names", "20"}), "free", 6.5, 5);
    AddRead("read, 2 pairs a line", file("pairs2", {"--pairs", "2"}), "fixed", 10, 8);
    AddRead("read, CR LF", file("crlf", {"--crlf"}), "fixed", 9, 7);
    AddRead("read, rows in order", file("sorted", {"--order", "sorted"}), "fixed", 10, 8);
    AddReadPacked();
  }

  // The command's own read, against a program that only unpacks.
  void AddReadPacked() {
    ModelFile file = File("base");
    file.path += ".gz";
    Job job;
    job.name = "read, packed by gzip";
    job.files = {file};
    job.command = Command("bench_program", {"info", file.path});
    Contender gzip = {Peer::kOther, "gzip -dc", {}};
    gzip.command = Command("bench_start", {"1", "/bin/gzip", "-dc", file.path});
    job.contenders = {std::move(gzip)};
    job.least_ratio = 1 / 1.2;
    jobs_.push_back(std::move(job));
  }

  // A whole process each time: what a script waits for at each call.
  void AddStarts() {
    const std::string quarvel = plan_.programs + "/quarvel";
    ModelFile tiny;
    tiny.path = plan_.folder + "/tiny.mps";
    tiny.options = {"--rows", "20", "--columns", "50"};
    AddStart("start, --version", {}, {quarvel, "--version"}, 0);
    AddStart("start, info of a small file", {tiny}, {quarvel, "info", tiny.path}, 0.006);
  }

  void AddStart(const char* name, std::vector<ModelFile> files, std::vector<std::string> command,
                double most_seconds) {
    const std::string times = "200";
    command.insert(command.begin(), times);
    Job job;
    job.name = name;
    job.size = times + " starts";
    job.files = std::move(files);
    job.command = Command("bench_start", std::move(command));
    Contender empty = {Peer::kOther, "an empty program", {}};
    empty.command = Command("bench_start", {times, plan_.programs + "/bench_empty"});
    job.contenders = {std::move(empty)};
    job.most_seconds = most_seconds;
    jobs_.push_back(std::move(job));
  }

  void AddReadAsData() {
    constexpr double kRatio = 1 / 1.05;
    const ModelFile file = File("base");
    Job job;
    job.name = "read as data";
    job.files = {file};
    job.command = Ours({"read-file", file.path});
    job.contenders = {Other("read", {"read", file.path})};
    job.least_ratio = kRatio;
    Expect(job, file);
    jobs_.push_back(std::move(job));
  }

  void AddCheck() {
    constexpr double kRatio = 1 / 2.5;
    constexpr double kMegabytes = 390;  // one and a half times those of a read
    const ModelFile file = File("base");
    Job job;
    job.name = "check";
    job.files = {file};
    job.command = Ours({"check", file.path});
    job.contenders = {Other("read", {"read", file.path})};
    job.least_ratio = kRatio;
    job.most_megabytes = kMegabytes;
    Expect(job, file);
    jobs_.push_back(std::move(job));
  }

  // A command that reads the file and makes another of it to look at.
  void AddPicture(const char* command, std::string_view suffix) {
    const ModelFile file = File("base");
    Job job;
    job.name = command;
    job.files = {file};
    job.command = Command("bench_program", {command, file.path, "-o",
                                            plan_.folder + "/picture" + std::string(suffix)});
    job.contenders = {Other("read", {"read", file.path})};
    job.least_ratio = 0.5;
    jobs_.push_back(std::move(job));
  }

  void AddDiff(const std::string& name, const ModelFile& other) {
    constexpr double kRatio = 1 / 3.0;
    const ModelFile file = File("base");
    Job job;
    job.name = name;
    job.files = {file, other};
    job.command = Ours({"diff", file.path, other.path});
    job.contenders = {Other("read", {"read", file.path})};
    job.least_ratio = kRatio;
    Expect(job, file);
    jobs_.push_back(std::move(job));
  }

  void AddDiffs() {
    AddDiff("diff", File("base"));
    AddDiff("diff, other order and values", File("sorted", 1, {0, 0, {"--order", "sorted"}}));
  }

  void AddWrite() {
    const ModelFile file = File("base");
    Job job;
    job.name = "write";
    job.files = {file};
    job.command = Ours({"write", file.path, Out("quarvel")});
    job.contenders = {CoinUtils({"write", file.path, Out("coinutils")}),
                      Glpk({"write", file.path, Out("glpk"), "fixed"})};
    job.least_ratio = 12;
    job.least_cold_ratio = 8;
    Expect(job, file);
    jobs_.push_back(std::move(job));
  }

  void AddReceipt() {
    constexpr double kRatio = 1 / 1.2;
    const ModelFile file = File("base");
    Job job;
    job.name = "write with a receipt";
    job.files = {file};
    job.command = Ours({"write-with-receipt", file.path, Out("quarvel")});
    job.contenders = {Other("write and read", {"write-and-read", file.path, Out("plain")})};
    job.least_ratio = kRatio;
    Expect(job, file);
    jobs_.push_back(std::move(job));
  }

  void AddQuery() {
    const ModelFile file = File("base");
    Job job;
    job.name = "query all elements";
    job.files = {file};
    job.command = Ours({"query", file.path});
    job.contenders = {Other("plain loop", {"loop", file.path})};
    job.least_ratio = 1 / 1.4;
    jobs_.push_back(std::move(job));
  }

  void AddSimplification(const std::string& name, const ModelFile& file) {
    Job job;
    job.name = name;
    job.files = {file};
    job.command = Ours({"simplify", file.path});
    job.contenders = {Other("read", {"read", file.path})};
    job.least_ratio = 1;
    Expect(job, File("base"));  // what simplifying must leave
    jobs_.push_back(std::move(job));
  }

  void AddSimplifications() {
    AddSimplification("simplify, singletons", Singletons());
    AddSimplification("simplify, empty columns", File("empty", 1, {0, Scaled(kRows), {}}));
  }

  void AddDeletions() {
    const ModelFile file = File("base");
    Job spread;
    spread.name = "delete rows";
    spread.size = std::to_string(kRowDeletions) + " rows";
    spread.files = {file};
    spread.command = Ours({"delete-rows", file.path, std::to_string(kRowDeletions)});
    spread.most_seconds = 2;
    jobs_.push_back(spread);

    spread.name = "delete rows, looking at rows";
    spread.command =
        Ours({"delete-rows-looking-at-rows", file.path, std::to_string(kRowDeletions)});
    jobs_.push_back(spread);

    const std::string looks = std::to_string(kRowDeletions / 10);
    spread.name = "delete rows, looking at columns";
    spread.size = looks + " rows";
    spread.command = Ours({"delete-rows-looking-at-columns", file.path, looks});
    spread.most_seconds = 0;
    jobs_.push_back(spread);
  }

  // Half the rows for comparison: a cost that is linear gives about 0.5.
  void AddEdits() {
    const ModelFile file = File("base");
    const std::int64_t emptied = Scaled(100'000);
    Job column;
    column.name = "delete a column";
    column.size = std::to_string(emptied) + " rows emptied";
    column.files = {file};
    column.command = Ours({"delete-column", file.path, std::to_string(emptied)});
    column.contenders = {
        Other("half as many", {"delete-column", file.path, std::to_string(emptied / 2)})};
    column.least_ratio = kDoublingRatio;
    column.compares_user_time = true;
    jobs_.push_back(std::move(column));

    const std::int64_t added = Scaled(1'000'000);
    Job rows;
    rows.name = "add rows";
    rows.size = std::to_string(added) + " rows";
    rows.command = Ours({"add-rows", std::to_string(added)});
    rows.contenders = {Other("half as many", {"add-rows", std::to_string(added / 2)})};
    rows.least_ratio = kDoublingRatio;
    rows.compares_user_time = true;
    rows.most_seconds = 1;
    jobs_.push_back(std::move(rows));
  }

  // One job at `times` the size against the same job at half of that.
  void AddDoubled(const std::string& name, const ModelFile& file, const ModelFile& half,
                  const std::vector<std::string>& more = {}) {
    const auto arguments = [&](const ModelFile& of) {
      std::vector<std::string> all = {name, of.path};
      all.insert(all.end(), more.begin(), more.end());
      return all;
    };
    Job job;
    job.name = name + ", doubled";
    job.files = {file, half};
    job.command = Ours(arguments(file));
    job.contenders = {Other("half the size", arguments(half))};
    job.least_ratio = kDoublingRatio;
    job.compares_user_time = true;
    jobs_.push_back(std::move(job));
  }

  void AddGrowth(std::int64_t times) {
    const ModelFile file = File("base", times);
    const ModelFile half = File("base", times / 2);
    AddDoubled("read", file, half);
    AddDoubled("read-file", file, half);
    AddDoubled("check", file, half);
    AddDoubled("write", file, half, {Out("quarvel")});
    AddDoubled("write-with-receipt", file, half, {Out("quarvel")});
    AddDoubled("query", file, half);
    AddDoubled("simplify", Singletons(times), Singletons(times / 2));
    AddDoubled("delete-rows", file, half, {std::to_string(kRowDeletions)});
    for (const char* job : kEditJobs) AddDoubledEdits(job, times);
  }

  // Without a file: such a job builds its model itself.
  void AddDoubledEdits(const std::string& name, std::int64_t times) {
    const std::int64_t edits = Scaled(kEdits) * times;
    Job job;
    job.name = name + ", doubled";
    job.size = std::to_string(edits) + " edits";
    job.command = Ours({name, std::to_string(edits)});
    job.contenders = {Other("half as many", {name, std::to_string(edits / 2)})};
    job.least_ratio = kDoublingRatio;
    job.compares_user_time = true;
    jobs_.push_back(std::move(job));
  }

  const Plan& plan_;
  std::int64_t divisor_;
  std::vector<Job> jobs_;
};

}  // namespace

std::vector<Job> ListJobs(const Plan& plan) { return JobLister(plan).List(); }

}  // namespace quarvel::bench
