// How `quarvel check` prints problems: for people, as JSON and as SARIF. docs/problems.md has the forms.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include "hosts/screen.h"
#include "mps/file_problem.h"

namespace quarvel::hosts {

// How many problems of each code there are, and how many of them were printed.
class ProblemCounts {
 public:
  // Takes note of one more; true when it is to be printed.
  bool Add(mps::FileProblemCode code, std::int64_t limit) {
    Count& count = counts_[static_cast<std::size_t>(code)];
    ++count.all;
    if (count.printed >= limit) return false;
    ++count.printed;
    return true;
  }
  // Whether the next one is to be printed.
  bool HasRoom(mps::FileProblemCode code, std::int64_t limit) const {
    return Printed(code) < limit;
  }

  std::int64_t All(mps::FileProblemCode code) const {
    return counts_[static_cast<std::size_t>(code)].all;
  }
  std::int64_t Printed(mps::FileProblemCode code) const {
    return counts_[static_cast<std::size_t>(code)].printed;
  }
  std::int64_t All(mps::ProblemWeight weight) const;
  std::int64_t All() const;
  std::int64_t Printed() const;

 private:
  struct Count {
    std::int64_t all = 0;
    std::int64_t printed = 0;
  };
  std::array<Count, 256> counts_{};
};

// What a check came to.
struct CheckResult {
  ProblemCounts counts;
  std::int64_t filtered = 0;  // those that --only and --ignore left out
  bool read = false;
  bool has_endata = false;
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  std::int32_t elements = 0;
  int status = 0;
};

// Prints problems one by one, so that any number of them takes no memory.
class ProblemReport {
 public:
  // `out` must outlive the report.
  ProblemReport(std::string file, std::ostream& out) : file_(std::move(file)), out_(out) {}
  virtual ~ProblemReport() = default;
  ProblemReport(const ProblemReport&) = delete;
  ProblemReport& operator=(const ProblemReport&) = delete;

  virtual void Begin() {}
  virtual void Print(const mps::FileProblem& problem) = 0;
  virtual void End(const CheckResult& result) = 0;

 protected:
  const std::string& file() const { return file_; }
  std::ostream& out() { return out_; }

 private:
  std::string file_;
  std::ostream& out_;
};

// Where a report stands among those of one call.
struct ReportPlace {
  bool is_first = true;
  bool is_last = true;

  bool is_only() const { return is_first && is_last; }
};

// As wide as the screen, and in its colors.
std::unique_ptr<ProblemReport> MakeTextReport(const std::string& file, std::ostream& out,
                                              const Screen& screen, ColorChoice color);
// One object; of several files on one line each.
std::unique_ptr<ProblemReport> MakeJsonReport(const std::string& file, std::ostream& out,
                                              const ReportPlace& place);
// A run of one log that the first report begins and the last one ends.
std::unique_ptr<ProblemReport> MakeSarifReport(const std::string& file, std::ostream& out,
                                               const ReportPlace& place);

// "error", "adapted", "warning".
std::string_view WeightWord(mps::ProblemWeight weight);

}  // namespace quarvel::hosts
