#include "mps/file_save.h"

#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "mps/model_writer.h"
#include "platform/files.h"
#include "platform/system_names.h"

namespace quarvel::mps {
namespace {

using Contents = platform::FileReplacement::Contents;

// What is added to a failure where it is so, each on a line of its own; those about another file
// end with its name.
constexpr std::string_view kNotRestored = "\r\nWhat the file held before could not be restored.";
constexpr std::string_view kSavedByOthers =
    "\r\nThe file has been saved by another program meanwhile and is left as it is.";
constexpr std::string_view kIncomplete = "\r\nThe file is incomplete.";
constexpr std::string_view kHasNew =
    "\r\nThe file has the new contents, which a loss of power may undo.";
constexpr std::string_view kOldContents = "\r\nWhat it held before is in ";
constexpr std::string_view kNewContents = "\r\nWhat it was to hold is in ";
constexpr std::string_view kBackupStays = "\r\nThe backup could not be deleted: ";
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
  SaveJob(model::ModelStore& store, const std::string& path, SaveListener& listener,
          const SaveManner& manner)
      : store_(store), given_path_(path), listener_(listener), manner_(manner) {}

  // False when the listener did not accept what was written.
  bool Run(FileLayout layout, const FileFacts& facts);
  // After a failure: puts the file back to what it was where the order of steps asks for it, and
  // says what went wrong.
  void Fail(const AutomationError& failure);

 private:
  void BackUp();
  bool WriteFile(std::optional<ModelWriter>& writer);
  void NoteWritten();
  void DeleteBackup();
  void Restore();
  // False when the file is not what it was.
  bool IsAsBefore();
  // Whether another process has saved the file after this one.
  bool IsOthers() const;
  bool RestoreOwnFile();
  void AddNote(std::string_view note, const std::string& name);

  model::ModelStore& store_;
  const std::string& given_path_;
  SaveListener& listener_;
  const SaveManner& manner_;
  std::string path_;  // a copy, as a host may do anything while a box is shown
  std::optional<Backup> backup_;
  std::optional<platform::FileReplacement> replacement_;
  std::optional<platform::FileStamp> written_;
  std::string notes_;  // for who hears of the failure
};

bool SaveJob::Run(FileLayout layout, const FileFacts& facts) {
  const model::ModelData& data = store_.data();
  path_ = given_path_;
  // Its memory is taken before any file is touched.
  std::optional<ModelWriter> writer;
  if (data.NumberOfElements != 0) writer.emplace(store_, layout, facts);
  if (path_ == data.FileLocation && !platform::IsNameOfOpenFile(path_)) BackUp();
  const bool is_accepted = WriteFile(writer);
  if (is_accepted && !writer) {
    listener_.NothingWritten();
    return true;
  }
  if (is_accepted && backup_ && !backup_->kept().empty()) listener_.Kept(backup_->kept());
  if (is_accepted) listener_.Written(*writer);
  DeleteBackup();
  if (is_accepted) store_.settings().FileLocation = std::move(path_);
  return is_accepted;
}

void SaveJob::BackUp() {
  backup_.emplace(path_, manner_.backup);
  try {
    backup_->Make();
  } catch (const AutomationError& error) {
    if (manner_.backup == BackupManner::kComponent) throw;
    throw AutomationError(
        error.number(), "",
        "its backup " + backup_->name() + " could not be made: " + error.description());
  }
}

// Without a writer the file is empty then.
bool SaveJob::WriteFile(std::optional<ModelWriter>& writer) {
  replacement_.emplace(path_, nullptr, manner_.read_as);
  if (writer) {
    writer->Write(
        [this](std::string_view piece) { listener_.Take(piece, replacement_->output()); });
    if (!listener_.Accepts(*replacement_)) return false;
  }
  replacement_->Commit();
  NoteWritten();
  return true;
}

// The file is saved, whatever memory this takes; without its stamp it counts as nobody else's later.
void SaveJob::NoteWritten() {
  try {
    written_ = platform::StampUnder(replacement_->target());
  } catch (const std::bad_alloc&) {
    written_.reset();
  }
}

// A good save stays one, whatever memory it takes to tell that the backup stays.
void SaveJob::DeleteBackup() {
  if (!backup_ || backup_->Delete()) return;
  try {
    listener_.BackupStays(backup_->name());
  } catch (const std::bad_alloc&) {
    // It is not told then.
  }
}

void SaveJob::Fail(const AutomationError& failure) {
  try {
    Restore();
  } catch (const std::bad_alloc&) {
    // The failure itself is told all the same.
  }
  listener_.Failed(failure, notes_);
}

void SaveJob::Restore() {
  const bool is_as_before = IsAsBefore();
  if (!backup_) return;
  if (is_as_before && manner_.backup == BackupManner::kBeside && !backup_->Delete()) {
    AddNote(kBackupStays, backup_->name());
  }
  if (!backup_->kept().empty()) AddNote(kOlderBackup, backup_->kept());
}

bool SaveJob::IsAsBefore() {
  if (!replacement_ || replacement_->contents() == Contents::kOld) return true;
  const bool is_restored = backup_ && backup_->is_made() && RestoreOwnFile();
  const std::string kept = replacement_->kept();
  if (!is_restored) {
    if (replacement_->contents() == Contents::kIncomplete) notes_ += kIncomplete;
    if (replacement_->contents() == Contents::kNew && !IsOthers()) notes_ += kHasNew;
    if (!kept.empty()) AddNote(kNewContents, kept);
  } else if (!kept.empty()) {
    replacement_.reset();
    RemoveSilently(kept);
  }
  return is_restored;
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

void SaveListener::Take(std::string_view piece, platform::OutputFile& file) { file.Write(piece); }

bool SaveListener::Accepts(platform::FileReplacement&) { return true; }

void SaveListener::Kept(const std::string&) {}
void SaveListener::BackupStays(const std::string&) {}

SaveResult SaveFile(model::ModelStore& store, const std::string& path, FileLayout layout,
                    const FileFacts& facts, SaveListener& listener, const SaveManner& manner) {
  if (path.empty()) return SaveResult::kNotSaved;
  SaveJob job(store, path, listener, manner);
  std::optional<AutomationError> failure;
  try {
    return job.Run(layout, facts) ? SaveResult::kSaved : SaveResult::kNotSaved;
  } catch (const AutomationError& error) {
    failure = error;
  } catch (const std::bad_alloc&) {
    failure = CurrentError();
  }
  job.Fail(*failure);
  return SaveResult::kNotSaved;
}

}  // namespace quarvel::mps
