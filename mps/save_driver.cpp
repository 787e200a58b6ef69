#include "mps/save_driver.h"

#include <cstddef>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "mps/backup.h"
#include "mps/frm_mps_file_open.h"
#include "mps/mps_writer.h"
#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/file_replacement.h"
#include "platform/files.h"
#include "platform/system_names.h"

namespace quarvel::mps {
namespace {

using Contents = platform::FileReplacement::Contents;

constexpr std::string_view kNoElements = "No elements in the model.  Aborting save.";
constexpr std::string_view kNotStandard =
    "The file written is not a standard MPS file, since at least one of the row or column names or "
    "element values was too long";

// What the box of a failure adds where it is so, each on a line of its own; those about another file
// end with its name.
constexpr std::string_view kNotRestored = "\r\nWhat the file held before could not be restored.";
constexpr std::string_view kSavedByOthers =
    "\r\nThe file has been saved by another program meanwhile and is left as it is.";
constexpr std::string_view kIncomplete = "\r\nThe file is incomplete.";
constexpr std::string_view kHasNew =
    "\r\nThe file has the new contents, which a loss of power may undo.";
constexpr std::string_view kOldContents = "\r\nWhat it held before is in ";
constexpr std::string_view kNewContents = "\r\nWhat it was to hold is in ";
constexpr std::string_view kOlderBackup = "\r\nAn older backup is kept as ";

void RemoveSilently(const std::string& path) {
  try {
    platform::RemoveFile(path);
  } catch (const AutomationError&) {
    // It does no harm: the next save of that file removes it.
  }
}

// One save, and what becomes of it when it fails.
class SaveJob {
 public:
  SaveJob(model::ModelStore& store, platform::Desktop& desktop, const std::string& path)
      : store_(store), desktop_(desktop), given_path_(path) {}

  void Run();
  // After a failure: puts the file back to what it was where the order of steps asks for it, and
  // says what went wrong.
  void Fail(const AutomationError& failure);

 private:
  std::optional<bool> WriteFile(std::optional<MpsWriter> writer);
  void NoteWritten();
  void Restore();
  // Whether another process has saved the file after this one.
  bool IsOthers() const;
  bool RestoreOwnFile();
  void AddNote(std::string_view note, const std::string& name);

  model::ModelStore& store_;
  platform::Desktop& desktop_;
  const std::string& given_path_;
  std::string path_;  // a copy, as a host may do anything while a box is shown
  std::optional<Backup> backup_;
  std::optional<platform::FileReplacement> replacement_;
  std::optional<platform::FileStamp> written_;
  std::string notes_;  // for who hears of the failure
};

void SaveJob::Run() {
  const model::ModelData& data = store_.data();
  path_ = given_path_;
  // Its memory is taken before any file is touched.
  std::optional<MpsWriter> writer;
  if (data.NumberOfElements != 0) writer.emplace(data);
  if (path_ == data.FileLocation) backup_.emplace(path_).Make();
  const std::optional<bool> standard = WriteFile(std::move(writer));
  if (!standard) {
    desktop_.MsgBox(platform::Refusal(kNoElements));
    return;
  }
  if (!*standard) desktop_.MsgBox(platform::Note(kNotStandard));
  if (backup_) backup_->Delete();
  store_.settings().FileLocation = std::move(path_);
}

// Nothing when the model has no elements (the file is empty then), else whether it is a standard
// one.
std::optional<bool> SaveJob::WriteFile(std::optional<MpsWriter> writer) {
  replacement_.emplace(path_);
  if (writer) writer->Write(replacement_->output());
  replacement_->Commit();
  NoteWritten();
  return writer ? std::optional(writer->standard()) : std::nullopt;
}

// The file is saved, whatever memory this takes; without its stamp it counts as nobody else's later.
void SaveJob::NoteWritten() {
  try {
    written_ = platform::StampUnder(replacement_->target());
  } catch (const std::bad_alloc&) {
    written_.reset();
  }
}

void SaveJob::Fail(const AutomationError& failure) {
  try {
    Restore();
  } catch (const std::bad_alloc&) {
    // The failure itself is told all the same.
  }
  platform::Box box = platform::Failure(failure);
  box.statement += notes_;
  desktop_.MsgBox(box);
}

void SaveJob::Restore() {
  if (replacement_ && replacement_->contents() != Contents::kOld) {
    const bool is_restored = backup_ && RestoreOwnFile();
    const std::string kept = replacement_->kept();
    if (!is_restored) {
      if (replacement_->contents() == Contents::kIncomplete) notes_ += kIncomplete;
      if (replacement_->contents() == Contents::kNew && !IsOthers()) notes_ += kHasNew;
      if (!kept.empty()) AddNote(kNewContents, kept);
    } else if (!kept.empty()) {
      replacement_.reset();
      RemoveSilently(kept);
    }
  }
  if (backup_ && !backup_->kept().empty()) AddNote(kOlderBackup, backup_->kept());
}

bool SaveJob::IsOthers() const {
  return written_ && platform::StampUnder(replacement_->target()) != written_;
}

bool SaveJob::RestoreOwnFile() {
  const bool is_others = IsOthers();
  if (!is_others && backup_->Restore()) return true;
  notes_ += is_others ? kSavedByOthers : kNotRestored;
  if (backup_->IsThere()) AddNote(kOldContents, backup_->name());
  return false;
}

void SaveJob::AddNote(std::string_view note, const std::string& name) {
  notes_ += note;
  notes_ += name;
}

}  // namespace

SaveResult SaveModel(model::ModelStore& store, platform::Desktop& desktop,
                     const std::string& path) {
  if (path.empty()) return SaveResult::kNotSaved;
  SaveJob job(store, desktop, path);
  std::optional<AutomationError> failure;
  try {
    job.Run();
  } catch (const AutomationError& error) {
    failure = error;
  } catch (const std::bad_alloc&) {
    failure = CurrentError();
  }
  if (!failure) return SaveResult::kSaved;
  job.Fail(*failure);
  return SaveResult::kNotSaved;
}

std::string ChoosePathToSave(const model::ModelStore& store, frmMPSFileOpen& file_dialog) {
  platform::FileDialog request;
  request.kind = platform::FileDialog::Kind::kSave;
  request.title = "Save As...";
  request.filter = "MPS files (*.mps)|*.mps|all files (*.*)|*.*";
  request.default_extension = ".mps";
  std::string path = file_dialog.Choose(request, store.settings().FileLocation);
  if (path.empty()) file_dialog.desktop().Beep();
  return path;
}

}  // namespace quarvel::mps
