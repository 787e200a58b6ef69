// Looks for every problem of a file and of its model. Each is told as it is met, so that a file of nothing
// but problems takes no memory.
#pragma once

#include <string>
#include <vector>

#include "hosts/input_bytes.h"
#include "hosts/problem_filter.h"
#include "hosts/problem_report.h"
#include "hosts/session.h"
#include "mps/line_texts.h"
#include "mps/read_file.h"

namespace quarvel::hosts {

class ModelCheck {
 public:
  // `report` hears of at most `limit` problems of each code. All must outlive this. Raises what
  // ProblemFilter raises.
  ModelCheck(Session& session, const std::string& file, ProblemReport& report, std::int64_t limit);

  // Reads the file into the session's model, and looks at that unless --no-lint says not to. Raises a
  // CommandError after a Ctrl-C.
  void Read();
  // Tells of the problems whose lines a second read finds, which is made when there are some. The model
  // holds anything afterwards. Raises as Read does.
  void TellHeld();

  // Whole after Read, but for what TellHeld tells.
  const CheckResult& result() const { return result_; }
  const mps::FileFacts& facts() const { return facts_; }

 private:
  mps::FileRead ReadFile();
  void Lint();
  void FindLines();
  void Hear(mps::FileProblem problem);
  // Has it on a terminal at once, in the place of a line that shows progress.
  void Print(const mps::FileProblem& problem);
  bool IsHeld(mps::FileProblemCode code) const;
  int Status() const;

  Session& session_;
  const std::string& file_;
  ProblemReport& report_;
  ProblemFilter filter_;
  std::int64_t limit_;
  bool can_read_again_;
  InputOpener opener_;
  mps::LineTexts texts_;
  CheckResult result_;
  mps::FileFacts facts_;
  std::vector<mps::FileProblem> held_;  // until their lines are found
};

}  // namespace quarvel::hosts
