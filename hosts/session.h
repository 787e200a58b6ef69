// A model and its user for the time of one command. What a command does with files goes through
// here, so that questions, notes and failures come out alike everywhere.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "component/lp_model.h"
#include "hosts/answers.h"
#include "hosts/arguments.h"
#include "hosts/file_reading.h"
#include "hosts/output_target.h"
#include "hosts/streams.h"
#include "hosts/write_json.h"
#include "inspect/write_file.h"
#include "model/record_kind.h"
#include "mps/file_layout.h"
#include "mps/loss.h"
#include "platform/console/console_desktop.h"
#include "platform/system_names.h"

namespace quarvel::hosts {

class Session {
 public:
  // Both must outlive the session.
  Session(const Arguments& arguments, const Streams& streams);

  const Arguments& arguments;
  const Streams& streams;
  LPModel& model() { return model_; }
  const LPModel& model() const { return model_; }
  Answers& answers() { return answers_; }

  // Reads the file as the options say. Raises a CommandError when it was not read or Ctrl-C came.
  void Read(const std::string& path);
  // Reads what is to be written: a file that may be cut off raises a CommandError too, unless
  // --allow-missing-endata is given.
  void ReadToWrite(const std::string& path);
  // Reads it with the options given, so that the problems go to whoever wants them as data. Raises a
  // CommandError when Ctrl-C came.
  mps::FileRead ReadAsData(const std::string& path, const mps::ReadOptions& options);
  // Simplifies the model. Raises what stops that, and a CommandError for Ctrl-C.
  void Simplify();
  // Raises a CommandError of status kUsage where --log has nothing to list, as nothing was simplified.
  void RefuseUnusedLog() const;
  // Writes the model in the layout that is asked for, or the usual one, and gives a receipt: what was
  // verified, and what the file does not keep of it. Raises a CommandError when it was not written, as one
  // that would read back as another model is not.
  void Write(const std::string& path, mps::FileLayout usual);
  // What is to be written, as messages call it; after ReadToWrite.
  const std::string& output() const { return output_; }
  // An edit command was run; the receipt of --json tells how many there were.
  void CountCommand() { ++commands_; }

  // What the file that was read says beside its model; not as the component reads.
  const mps::FileFacts& facts() const { return reading_.facts(); }
  // The same, to be changed: a write says it as far as its layout can.
  mps::FileFacts& facts() { return reading_.facts(); }
  // The file that was read came to its end before an ENDATA line.
  bool may_be_cut_off() const;

  // Before and behind what is printed while work goes on: the line that shows progress makes room for it on
  // a terminal, and it is seen at once.
  void MakeRoom();
  void ShowPrinted();
  // For a window that shows progress.
  platform::Desktop& desktop() { return desktop_; }

  // FindRecord (find_record.h) in the model of the file at `path`, which what it raises names.
  std::int32_t Find(const std::string& path, const model::RecordKind& kind, std::string_view text);

  // Raises a CommandError after a Ctrl-C, and when the user quit at a question.
  void StopIfInterrupted() const;
  // Raises a CommandError when a question was asked that the command line has no answer to. Whoever
  // lets the component ask calls it before anything is made of what came out.
  void StopIfUnanswered() const;
  // False when more output makes no sense: nobody reads it, or Ctrl-C came.
  bool KeepPrinting() const;
  // A line on standard error.
  void Note(std::string_view text);
  // Where a file without ENDATA may be found whole.
  void NoteWholeCopies(const std::string& path);

 private:
  // The same with the questions that the component asks; true when the model was read.
  bool ReadAsComponent(const std::string& path);
  // Says of a file whose read an error has stopped that it may be cut off, where it looks so; true then.
  bool NoteCutEnd(const std::string& path);
  // With --json the whole story, else one line, as standard output has it.
  void PrintReceipt(const std::string& path, const OutputTarget& target, mps::FileLayout layout,
                    const inspect::FileWrite& write);
  // Writes with progress, which `options` are given.
  inspect::FileWrite WriteInWindow(const OutputTarget& target, inspect::WriteOptions& options);
  // Raises a CommandError, after notes of what is in the way; nothing when it was written.
  void StopUnwritten(const inspect::FileWrite& write, const std::string& path);
  // `notes`: what it has left in files, each behind a line end.
  void NoteFailure(const std::string& prefix, const AutomationError& failure,
                   std::string_view notes);
  // Notes on the losses that were not allowed; gives what there is to say of a way out.
  std::string_view NoteForbidden(const mps::Losses& losses, const std::string& path);
  // Notes on the losses of that weight.
  void NoteLosses(const mps::Losses& losses, mps::LossWeight weight, const std::string& path);
  // Writes what the last simplification did to where --log says, and says so.
  void TakeLog();
  // The same of one that was asked for: --log then names no longer what an earlier one did.
  void TakeLogOfSimplification();
  // Says which rows became other bounds than they were.
  void NoteAltered();
  void ReplaceLog(std::string_view log_text);
  // To standard output.
  void PrintLog(std::string_view log_text);

  Answers answers_;
  platform::ConsoleDesktop desktop_;
  std::string log_;   // of the last simplification, in the place of a file beside the model
  std::string logs_;  // of all of them
  std::vector<std::string>
      altered_;  // sentences about rows that became other bounds than they were
  std::size_t altered_told_ = 0;
  bool is_simplified_ = false;
  LPModel model_;
  FileReading reading_;
  std::optional<platform::FileStamp> read_as_;  // the file before it was read
  ModelSize size_;                              // of what was read
  std::string output_;                          // what is to be written, if anything is
  std::int64_t commands_ = 0;
};

// What the user is told about a file without ENDATA, and what is wrong with it.
std::string MissingEndText(const std::string& path);
inline constexpr std::string_view kMissingEnd = "no ENDATA line: the file may be cut off";

// "28 rows, 32 columns, 88 elements".
std::string SizeText(const LPModel& model);

}  // namespace quarvel::hosts
