// Reads the file of a command as the library does: only real problems are asked about, or answered by
// the options; what is risky or was adapted is told, a line for each kind.
#pragma once

#include <string>

#include "component/lp_model.h"
#include "hosts/answers.h"
#include "hosts/arguments.h"
#include "hosts/streams.h"
#include "hosts/write_json.h"
#include "mps/file_facts.h"
#include "mps/line_texts.h"
#include "mps/read_file.h"
#include "platform/console/console_desktop.h"

namespace quarvel::hosts {

// How the command line has files read. Without callbacks.
mps::ReadOptions ReadOptionsOf(const Arguments& arguments);

// Raises a CommandError for a file that could not be opened or read.
[[noreturn]] void RaiseNotRead(const std::string& path, const mps::FileRead& read);

class FileReading {
 public:
  // All must outlive this.
  FileReading(const Arguments& arguments, const Streams& streams, Answers& answers,
              platform::ConsoleDesktop& desktop, LPModel& model)
      : arguments_(arguments),
        streams_(streams),
        answers_(answers),
        desktop_(desktop),
        model_(model) {}

  // Reads it into the model, whose file it is from then on, tells what there is to tell, and offers to
  // simplify the model. "-" is standard input, and the model then has no file.
  mps::ReadOutcome Read(const std::string& path);
  // The same with a progress window alone; `on_problem` must be set. What gives the bytes, unless it is
  // set, and `on_progress` are taken care of here.
  mps::FileRead ReadInWindow(const std::string& path, mps::ReadOptions options);
  // What the file says beside its model.
  const mps::FileFacts& facts() const { return facts_; }
  mps::FileFacts& facts() { return facts_; }
  // What Read passed over, and how big the model was before it may have been simplified.
  const mps::FileProblems& problems() const { return problems_; }
  const ModelSize& size() const { return size_; }
  // An error stopped Read, and the file ends like one that was cut off.
  bool is_cut_off() const { return is_cut_off_; }

 private:
  // The question shows the line as it stands in the file.
  bool GoesOnAfter(mps::FileProblem problem, mps::LineTexts& texts);
  void Tell(const std::string& name, const mps::FileProblems& problems);

  const Arguments& arguments_;
  const Streams& streams_;
  Answers& answers_;
  platform::ConsoleDesktop& desktop_;
  LPModel& model_;
  mps::FileFacts facts_;
  mps::FileProblems problems_;
  ModelSize size_;
  bool is_cut_off_ = false;
};

}  // namespace quarvel::hosts
