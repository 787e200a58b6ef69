#include "hosts/file_reading.h"

#include <memory>
#include <set>
#include <utility>

#include "hosts/input_bytes.h"
#include "hosts/input_end.h"
#include "hosts/printing.h"
#include "hosts/progress_window.h"
#include "hosts/source_excerpt.h"
#include "hosts/streams.h"
#include "model/simplify_offer.h"
#include "platform/box.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

std::string PlacedSentence(const mps::FileProblem& problem) {
  std::string text;
  if (problem.line != 0) text.append("line ").append(text::IntegerText(problem.line)).append(": ");
  return text + mps::SentenceOf(problem);
}

// The line where it stands, if it is known, with carets below what is meant.
std::string ExcerptLines(const mps::FileProblem& problem) {
  if (problem.text.empty()) return "";
  const SourceExcerpt excerpt = ExcerptOf(problem);
  std::string lines = "    " + excerpt.text + "\r\n";
  if (!excerpt.marks.empty()) lines += "    " + excerpt.marks + "\r\n";
  return lines;
}

// The first time; what is opened again only shows lines.
std::unique_ptr<platform::ByteSource> Watched(std::unique_ptr<platform::ByteSource> bytes,
                                              std::shared_ptr<InputEnd>& input) {
  if (input || !bytes) return bytes;
  input = std::make_shared<InputEnd>(std::move(bytes));
  return std::make_unique<SharedInput>(input);
}

platform::Box BoxOf(const std::string& name, const mps::FileProblem& problem) {
  platform::Box box = {.kind = platform::BoxKind::kReadProblem,
                       .statement = PlacedSentence(problem),
                       .question = ExcerptLines(problem) + "Go on reading the file?",
                       .style = platform::MsgBoxStyle::kYesNo,
                       .title = "A problem in " + name,
                       .code = mps::TraitsOf(problem.code).name,
                       .line = problem.line,
                       .item = problem.item};
  if (!problem.failure) return box;
  box.statement = problem.failure->description();
  box.failure = problem.failure->run_time_error();
  return box;
}

}  // namespace

mps::ReadOptions ReadOptionsOf(const Arguments& arguments) {
  mps::ReadOptions options;
  options.columns = arguments.file_columns;
  options.objective = arguments.objective;
  options.negative_upper_frees_lower = arguments.negative_upper_frees_lower;
  options.infinite_default_bounds = arguments.infinite_default_bounds.value_or(false);
  return options;
}

void RaiseNotRead(const std::string& path, const mps::FileRead& read) {
  for (const mps::FileProblem& problem : read.problems.kept()) {
    if (problem.failure) throw CommandError(kProblem, path + ": " + problem.failure->description());
  }
  throw CommandError(kProblem, path + " was not read");
}

mps::ReadOutcome FileReading::Read(const std::string& path) {
  const std::string name = NameOfInput(path);
  answers_.file = name;
  mps::ReadOptions options = ReadOptionsOf(arguments_);
  InputOpener opener(path, streams_);
  std::shared_ptr<InputEnd> input;
  mps::LineTexts texts([&opener] { return opener(); });
  options.open = [&opener, &input] { return Watched(opener(), input); };
  options.on_problem = [this, &texts](const mps::FileProblem& problem) {
    return GoesOnAfter(problem, texts);
  };
  mps::FileRead read = ReadInWindow(path, std::move(options));
  facts_ = read.facts;
  problems_ = std::move(read.problems);
  size_ = SizeOf(model_.store());
  if (desktop_.interrupted()) return mps::ReadOutcome::kStopped;
  if (read.outcome != mps::ReadOutcome::kStopped) Tell(name, problems_);
  is_cut_off_ = read.outcome == mps::ReadOutcome::kRefused && input && input->IsCutOff();
  input.reset();
  if (read.outcome != mps::ReadOutcome::kRead) return read.outcome;
  model_.store().settings().FileLocation = path == kStandardInput ? "" : path;
  const platform::MsgBoxResult answer = desktop_.MsgBox(model::SimplifyOffer());
  if (answer == platform::MsgBoxResult::kYes) model_.SimplifyMPSModel();
  return read.outcome;
}

mps::FileRead FileReading::ReadInWindow(const std::string& path, mps::ReadOptions options) {
  const std::string name = NameOfInput(path);
  ProgressWindow window(desktop_, "Reading " + name);
  if (!options.open) options.open = InputOpener(path, streams_);
  options.on_problem = [&, hear = std::move(options.on_problem)](const mps::FileProblem& problem) {
    // What a read that was stopped left out is no problem of the file.
    return !desktop_.interrupted() && hear(problem) && !window.stopped();
  };
  options.on_progress = [&](std::uint64_t done, std::uint64_t all) {
    return window.Update(done, PartOf(done, all));
  };
  return mps::ReadFile(name, options, model_.store());
}

bool FileReading::GoesOnAfter(mps::FileProblem problem, mps::LineTexts& texts) {
  if (mps::TraitsOf(problem.code).weight() != mps::ProblemWeight::kError) return true;
  texts.Show(problem);
  if (desktop_.MsgBox(BoxOf(answers_.file, problem)) != platform::MsgBoxResult::kYes) return false;
  desktop_.DoEvents();
  return true;
}

// The first of each kind, with how many there are.
void FileReading::Tell(const std::string& name, const mps::FileProblems& problems) {
  std::set<mps::FileProblemCode> told;
  for (const mps::FileProblem& problem : problems.kept()) {
    const mps::FileProblemTraits& traits = mps::TraitsOf(problem.code);
    if (traits.weight() == mps::ProblemWeight::kError || !told.insert(problem.code).second)
      continue;
    std::string line = name + ": " + PlacedSentence(problem);
    const std::int64_t more = problems.CountOf(problem.code) - 1;
    if (more > 0) line += " (and " + text::IntegerText(more) + " more)";
    answers_.on_note(line);
  }
}

}  // namespace quarvel::hosts
