#include "hosts/session.h"

#include <utility>

#include "hosts/find_record.h"
#include "hosts/input_bytes.h"
#include "hosts/input_end.h"
#include "hosts/log_option.h"
#include "hosts/loss_report.h"
#include "hosts/output_name.h"
#include "hosts/packing/file_bytes.h"
#include "hosts/printing.h"
#include "hosts/progress_window.h"
#include "hosts/questions.h"
#include "hosts/receipt_text.h"
#include "mps/left_by_saves.h"
#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/files.h"
#include "simplify/simplification_log.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::int16_t kComponentGood = -1;

std::string NameOfOutput(const std::string& path) {
  return path == kStandardOutput ? "standard output" : path;
}

}  // namespace

Session::Session(const Arguments& arguments_given, const Streams& streams_given)
    : arguments(arguments_given),
      streams(streams_given),
      answers_(arguments),
      desktop_(answers_),
      model_(desktop_),
      reading_(arguments, streams, answers_, desktop_, model_) {
  if (!streams.terminal) {
    desktop_.set_interactive(false);
    desktop_.set_shows_progress(false);
  }
  model_.KeepLogIn(&log_, &altered_);
  answers_.can_ask = desktop_.interactive();
  answers_.on_note = [this](std::string_view text) { Note(text); };
}

void Session::Note(std::string_view text) {
  streams.err << "quarvel: " + text::OneLine(text) + '\n';
}

void Session::StopIfInterrupted() const {
  if (desktop_.interrupted()) throw CommandError(kInterrupted, "stopped");
  if (desktop_.has_quit()) throw CommandError(kProblem, "stopped at a question");
}

void Session::StopIfUnanswered() const {
  if (!answers_.unanswered) return;
  throw CommandError(kProblem, "there is no answer on the command line to the question: " +
                                   text::OneLine(answers_.unanswered->text()));
}

void Session::MakeRoom() {
  if (streams.screen.is_terminal) desktop_.EraseProgress();
}

void Session::ShowPrinted() {
  if (streams.screen.is_terminal) streams.out.flush();
}

bool Session::KeepPrinting() const { return streams.out.good() && !desktop_.interrupted(); }

void Session::Read(const std::string& path) {
  if (arguments.ask && !answers_.can_ask) {
    throw CommandError(kUsage,
                       "--ask needs a terminal to ask on; elsewhere --default-bounds, --on-error, "
                       "--on-conflict and --simplify answer");
  }
  answers_.file_failed = false;
  read_as_ = platform::StampBehind(path);
  mps::ReadOutcome outcome = mps::ReadOutcome::kRead;
  if (!arguments.reads_as_component()) {
    outcome = reading_.Read(path);
  } else if (!ReadAsComponent(path)) {
    outcome = mps::ReadOutcome::kRefused;
  }
  const bool is_read = outcome == mps::ReadOutcome::kRead;
  answers_.TellRest();
  size_ = arguments.reads_as_component() ? SizeOf(model_.store()) : reading_.size();
  StopIfInterrupted();
  const bool is_cut_off = is_read ? may_be_cut_off() : !answers_.file_failed && NoteCutEnd(path);
  if (is_cut_off) NoteWholeCopies(path);
  StopIfUnanswered();
  const bool simplifies = AnswerTo(platform::BoxKind::kOfferToSimplify, arguments).answer ==
                          platform::MsgBoxResult::kYes;
  if (is_read) return simplifies ? TakeLogOfSimplification() : TakeLog();
  std::string text = NameOfInput(path) + " was not read";
  const bool passes_over =
      AnswerTo(platform::BoxKind::kReadProblem, arguments).answer == platform::MsgBoxResult::kYes;
  const bool has_failed = answers_.file_failed || outcome == mps::ReadOutcome::kFailed;
  if (!passes_over && !answers_.can_ask && !has_failed) {
    text += "; \"--on-error continue\" passes over problems, \"quarvel check\" lists them";
  }
  throw CommandError(kProblem, text);
}

bool Session::NoteCutEnd(const std::string& path) {
  bool is_cut_off = reading_.is_cut_off();
  if (arguments.reads_as_component()) {
    InputEnd input(std::make_unique<platform::FileBytes>(platform::InputFile(path)));
    is_cut_off = input.IsCutOff();
  }
  if (!is_cut_off) return false;
  // Where nothing but the end was missing, that has been told with its line.
  const bool is_told = reading_.problems().CountOf(mps::FileProblemCode::kMissingEndata) != 0;
  if (!is_told) Note(MissingEndText(NameOfInput(path)));
  return true;
}

void Session::NoteWholeCopies(const std::string& path) {
  if (path == kStandardInput) return;
  for (const std::string& copy : mps::WholeCopiesBeside(path)) {
    Note(std::string(path).append(": a save that did not end may have left the whole model in ") +
         copy);
  }
}

std::int32_t Session::Find(const std::string& path, const model::RecordKind& kind,
                           std::string_view text) {
  std::string complaint;
  try {
    return FindRecord(model_, kind, text, [this](std::string_view note) { Note(note); });
  } catch (const CommandError& error) {
    complaint = error.text();
  } catch (const AutomationError& error) {
    if (error.run_time_error() == RunTimeError::kOutOfMemory) throw;
    complaint = error.description();
  }
  throw CommandError(kProblem, NameOfInput(path) + ": " + complaint);
}

bool Session::ReadAsComponent(const std::string& path) {
  answers_.file = path;
  const bool is_read = model_.ReadMPSFile() == kComponentGood;
  if (may_be_cut_off() && !desktop_.interrupted()) Note(MissingEndText(path));
  return is_read;
}

void Session::ReadToWrite(const std::string& path) {
  const std::string& output = arguments.operands[1];
  output_ = NameOfOutput(output);
  if (IsFolder(output)) throw CommandError(kProblem, output + " is a folder, not a file");
  const std::string objection = ObjectionToOutput(output);
  if (!objection.empty()) throw CommandError(kUsage, output + ' ' + objection);
  if (output == kStandardOutput && arguments.json) {
    throw CommandError(kUsage, "--json and a model do not both go to standard output: name a file");
  }
  Read(path);
  if (!may_be_cut_off() || arguments.allow_missing_endata) return;
  throw CommandError(kProblem,
                     output + " was not written; --allow-missing-endata writes what was there");
}

bool Session::may_be_cut_off() const {
  return model_.store().settings().EndLineMissing && !answers_.file_failed;
}

mps::FileRead Session::ReadAsData(const std::string& path, const mps::ReadOptions& options) {
  mps::FileRead read = reading_.ReadInWindow(path, options);
  StopIfInterrupted();
  return read;
}

void Session::Simplify() {
  try {
    model_.SimplifyMPSModel();
  } catch (const AutomationError& error) {
    throw CommandError(
        kProblem, "the simplification of " + answers_.file + " failed: " + error.description());
  }
  StopIfInterrupted();
  StopIfUnanswered();
  TakeLogOfSimplification();
}

void Session::TakeLog() {
  if (log_.empty()) return;
  is_simplified_ = true;
  NoteAltered();
  const std::string log = std::exchange(log_, {});
  logs_ += log;
  if (arguments.log.empty())
    return Note(answers_.file + ": the model was simplified; --log FILE lists what was done");
  if (arguments.log == kStandardOutput) return PrintLog(log);
  ReplaceLog(logs_);
  Note(answers_.file + ": the simplifications are listed in " + arguments.log);
}

void Session::NoteAltered() {
  constexpr std::size_t kShown = 5;
  const std::string prefix = answers_.file + ": the simplified model is another one: ";
  const std::size_t first = std::exchange(altered_told_, altered_.size());
  for (std::size_t i = first; i < std::min(altered_.size(), first + kShown); ++i) {
    const std::size_t more = i + 1 == first + kShown ? altered_.size() - i - 1 : 0;
    Note(prefix + altered_[i] + (more != 0 ? " (and " + std::to_string(more) + " more)" : ""));
  }
}

void Session::TakeLogOfSimplification() {
  is_simplified_ = true;
  TakeLog();
  if (!logs_.empty() || arguments.log.empty()) return;
  const std::string log =
      simplify::LogHeading(model_.FileLocation()) + "\r\nNo simplifications were made.\r\n";
  arguments.log == kStandardOutput ? PrintLog(log) : ReplaceLog(log);
}

void Session::RefuseUnusedLog() const {
  if (arguments.log.empty() || is_simplified_) return;
  throw CommandError(kUsage, arguments.command +
                                 " takes --log with --simplify or the command "
                                 "simplify, whose doings it lists");
}

void Session::PrintLog(std::string_view log_text) {
  MakeRoom();
  while (!log_text.empty()) {
    const std::size_t end = log_text.find("\r\n");
    streams.out << text::VisibleText(log_text.substr(0, end)) << '\n';
    log_text.remove_prefix(end == log_text.npos ? log_text.size() : end + 2);
  }
}

void Session::ReplaceLog(std::string_view log_text) {
  try {
    WriteLog(arguments.log, arguments.operands[0], log_text);
  } catch (const AutomationError& error) {
    std::string text = arguments.log + ": " + error.description();
    if (!output_.empty()) text.append("; ").append(output_).append(" was not written");
    throw CommandError(kProblem, text);
  }
}

void Session::Write(const std::string& path, mps::FileLayout usual) {
  StopIfInterrupted();
  StopIfUnanswered();
  if (!altered_.empty() && !arguments.allow_loss) {
    throw CommandError(kProblem, NameOfOutput(path) +
                                     " was not written: the simplified model is another one; "
                                     "--allow-loss writes it all the same");
  }
  const OutputTarget target = TargetOf(path, model_.FileLocation());
  inspect::WriteOptions options = {.layout = arguments.layout.value_or(usual),
                                   .allow_changes = arguments.allow_loss,
                                   .strict = arguments.strict,
                                   .read_as = target.in_place ? read_as_ : std::nullopt};
  if (target.packing != nullptr) {
    options.pack = target.packing->pack;
    options.unpack = Unpacked;
  }
  const inspect::FileWrite write = WriteInWindow(target, options);
  const bool is_written = write.outcome == inspect::WriteOutcome::kWritten;
  // What stands in the file by now is told also when it was stopped.
  if (!is_written && write.notes.empty()) StopIfInterrupted();
  // Whoever reads it may be gone, a disk full: the end of the program tells that.
  if (target.is_standard_output && !streams.out.flush()) return;
  if (is_written || arguments.json) PrintReceipt(path, target, options.layout, write);
  const std::string name = NameOfOutput(path);
  if (!is_written) StopUnwritten(write, name);
  if (!write.kept.empty()) {
    Note("what had the name of the backup is kept as " + write.kept);
  }
  if (!write.backup.empty()) Note("the backup " + write.backup + " could not be deleted");
  NoteLosses(write.receipt.losses, mps::LossWeight::kChanges, name);
  NoteLosses(write.receipt.losses, mps::LossWeight::kNoted, name);
  if (write.long_field.empty()) return;
  Note(
      name + ": " + write.long_field +
      " takes more room than fixed columns have, so that the file is to be read with free columns");
}

inspect::FileWrite Session::WriteInWindow(const OutputTarget& target,
                                          inspect::WriteOptions& options) {
  using inspect::WriteStage;
  const std::string name = NameOfOutput(target.path);
  WriteStage stage = WriteStage::kWriting;
  std::optional<ProgressWindow> window(std::in_place, desktop_, "Writing " + name);
  options.on_progress = [&](const inspect::WriteProgress& progress) {
    if (stage != progress.stage) {
      stage = progress.stage;
      window.reset();
      window.emplace(desktop_, "Verifying " + name);
    }
    return window->Update(progress.bytes, progress.part);
  };
  if (!target.is_standard_output) {
    return inspect::WriteFile(model_.store(), facts(), target.path, options);
  }
  StandardOutputSink sink(streams, [this] { return desktop_.interrupted(); });
  return inspect::WriteStream(model_.store(), facts(), sink, options);
}

void Session::PrintReceipt(const std::string& path, const OutputTarget& target,
                           mps::FileLayout layout, const inspect::FileWrite& write) {
  if (!arguments.json) {
    std::string line = NameOfOutput(path) + ": " + ReceiptText(write.receipt);
    if (target.in_place) line += ", in place of what was read";
    // The model itself may go to standard output.
    if (target.is_standard_output || !write.receipt.is_read_again) return Note(line);
    streams.out << text::OneLine(line) + '\n';
    return;
  }
  streams.out << WriteJson({.input = arguments.operands[0],
                            .output = path,
                            .read = size_,
                            .has_endata = !may_be_cut_off(),
                            .problems = reading_.problems(),
                            .simplified = is_simplified_,
                            .commands = commands_,
                            .model = SizeOf(model_.store()),
                            .layout = layout,
                            .packing = target.packing,
                            .in_place = target.in_place,
                            .write = write});
}

void Session::StopUnwritten(const inspect::FileWrite& write, const std::string& path) {
  const std::string prefix = path + ": ";
  std::string_view way_out;
  switch (write.outcome) {
    case inspect::WriteOutcome::kWritten:
      return;
    case inspect::WriteOutcome::kNothing:
      throw CommandError(kProblem, path + " was not written: the model has no elements");
    case inspect::WriteOutcome::kLosses:
      way_out = NoteForbidden(write.receipt.losses, path);
      break;
    case inspect::WriteOutcome::kNotSame:
      for (const std::string& words : write.receipt.unexpected) {
        Note(std::string(prefix).append("read again: ").append(words));
      }
      break;
    case inspect::WriteOutcome::kFailed:
      if (write.failure) NoteFailure(prefix, *write.failure, write.notes);
      break;
  }
  throw CommandError(desktop_.interrupted() ? kInterrupted : kProblem,
                     (path + " was not written").append(way_out));
}

// A line for the failure, and one for each note.
void Session::NoteFailure(const std::string& prefix, const AutomationError& failure,
                          std::string_view notes) {
  constexpr std::string_view kLineEnd = "\r\n";
  Note(prefix + failure.description());
  while (!notes.empty()) {
    notes.remove_prefix(kLineEnd.size());
    const std::size_t end = notes.find(kLineEnd);
    Note(prefix + std::string(notes.substr(0, end)));
    notes.remove_prefix(end == notes.npos ? notes.size() : end);
  }
}

std::string_view Session::NoteForbidden(const mps::Losses& losses, const std::string& path) {
  using enum mps::LossWeight;
  NoteLosses(losses, kBreaks, path);
  if (arguments.strict || !arguments.allow_loss) NoteLosses(losses, kChanges, path);
  if (losses.Has(kBreaks)) return "";
  if (!arguments.strict) return "; --allow-loss writes it all the same";
  NoteLosses(losses, kNoted, path);
  return "; --strict writes nothing that loses something";
}

void Session::NoteLosses(const mps::Losses& losses, mps::LossWeight weight,
                         const std::string& path) {
  const std::string prefix = path + ": ";
  for (const std::string& line : LossLines(losses, weight)) Note(prefix + line);
}

std::string MissingEndText(const std::string& path) { return (path + ": ").append(kMissingEnd); }

std::string SizeText(const LPModel& model) {
  std::string text = Counted(model.NumberOfRows(), "row");
  text.append(", ").append(Counted(model.NumberOfColumns(), "column"));
  return text.append(", ").append(Counted(model.NumberOfElements(), "element"));
}

}  // namespace quarvel::hosts
