#include "mps/save_driver.h"

#include <cstddef>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "mps/frm_mps_file_open.h"
#include "mps/mps_writer.h"
#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/files.h"

namespace quarvel::mps {
namespace {

constexpr std::string_view kNoElements = "No elements in the model.  Aborting save.";
constexpr std::string_view kNotStandard =
    "The file written is not a standard MPS file, since at least one of the row or column names or "
    "element values was too long";

// The last extension becomes "bkp"; a point in a folder's name is taken as well.
std::string BackupName(const std::string& path) {
  const std::size_t point = path.rfind('.');
  return (point == std::string::npos ? path : path.substr(0, point + 1)) + "bkp";
}

// A copy of the model's own file, kept beside it while that file is overwritten.
class Backup {
 public:
  explicit Backup(std::string path) : path_(std::move(path)), name_(BackupName(path_)) {}

  // Makes no copy where the backup would be the very file that it is to protect.
  void Make() {
    if (name_ == path_ || platform::IsSameFile(name_, path_)) return;
    if (platform::FileExists(name_)) platform::RemoveFile(name_);
    platform::CopyFileContents(path_, name_);
    complete_ = true;
  }

  void Delete() {
    if (complete_ && platform::FileExists(name_)) platform::RemoveFile(name_);
  }

  // Only a whole copy is put back; the backup stays. A failure here is not reported: what the user
  // must hear of is the failure that led here.
  void Restore() noexcept {
    if (!complete_) return;
    try {
      platform::CopyFileContents(name_, path_);
    } catch (...) {
    }
  }

 private:
  std::string path_;
  std::string name_;
  bool complete_ = false;
};

// Writes and closes the file; nothing when the model has no elements (the file is empty then), else
// whether it is a standard one.
std::optional<bool> WriteFile(const model::ModelData& data, const std::string& path) {
  platform::OutputFile file(path);
  std::optional<bool> standard;
  if (data.NumberOfElements != 0) {
    MpsWriter writer(data, file);
    writer.Write();
    standard = writer.standard();
  }
  file.Flush();
  file.Close();
  return standard;
}

void Save(model::ModelStore& store, platform::Desktop& desktop, const std::string& path,
          std::optional<Backup>& backup) {
  const model::ModelData& data = store.data();
  if (path == data.FileLocation) backup.emplace(path).Make();
  const std::optional<bool> standard = WriteFile(data, path);
  if (!standard) {
    desktop.MsgBox(platform::Refusal(kNoElements));
    return;
  }
  if (!*standard) desktop.MsgBox(platform::Note(kNotStandard));
  if (backup) backup->Delete();
  store.settings().FileLocation = path;
}

}  // namespace

SaveResult SaveModel(model::ModelStore& store, platform::Desktop& desktop,
                     const std::string& path) {
  if (path.empty()) return SaveResult::kNotSaved;
  std::optional<Backup> backup;
  std::optional<AutomationError> failure;
  try {
    Save(store, desktop, path, backup);
  } catch (const AutomationError& error) {
    failure = error;
  } catch (const std::bad_alloc&) {
    failure = CurrentError();
  }
  if (!failure) return SaveResult::kSaved;
  if (backup) backup->Restore();
  desktop.MsgBox(platform::Failure(*failure));
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
