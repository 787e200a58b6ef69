#include "inspect/solution_file.h"

#include <memory>
#include <utility>
#include <vector>

#include "inspect/solution_lines.h"
#include "mps/line_reader.h"

namespace quarvel::inspect {
namespace {

// Keeps the first lines back until they tell the kind of the file.
class SolutionReading {
 public:
  explicit SolutionReading(SolutionUser& user) : user_(user) {}

  // False once there is a complaint.
  bool Use(std::string_view line) {
    if (lines_ != nullptr) return UseKnown(line);
    first_.emplace_back(line);
    return first_.size() < kTellingLines || Recognise();
  }

  SolutionFile End() {
    if (lines_ == nullptr) Recognise();
    if (!file_.complaint) Complain(0, lines_->End());
    file_.columns = lines_->columns();
    return std::move(file_);
  }

  void ComplainOfTooLong() {
    if (lines_ != nullptr || Recognise()) Complain(number_ + 1, "the line is too long");
  }

 private:
  bool Recognise() {
    file_.kind = KindOf(first_);
    lines_ = MakeSolutionLines(file_.kind);
    user_.Begin(file_.kind);
    for (const std::string& line : first_) {
      if (!UseKnown(line)) return false;
    }
    first_.clear();
    return true;
  }

  bool UseKnown(std::string_view line) {
    ++number_;
    return Complain(number_, lines_->Use(line, number_, user_));
  }

  // True when there is nothing to complain of.
  bool Complain(std::int64_t line, std::string text) {
    if (text.empty()) return true;
    file_.complaint = {line, std::move(text)};
    return false;
  }

  SolutionUser& user_;
  SolutionFile file_;
  std::vector<std::string> first_;
  std::unique_ptr<SolutionLines> lines_;
  std::int64_t number_ = 0;
};

}  // namespace

SolutionFile ReadSolutionFile(std::unique_ptr<platform::ByteSource> bytes, SolutionUser& user) {
  mps::LineReader lines(std::move(bytes));
  SolutionReading reading(user);
  mps::Line line;
  while (lines.Next(line)) {
    if (line.too_long) {
      reading.ComplainOfTooLong();
      break;
    }
    if (!reading.Use(line.view())) break;
  }
  return reading.End();
}

}  // namespace quarvel::inspect
