#include "mps/backup.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <string_view>
#include <utility>

#include "mps/end_line.h"
#include "platform/automation_error.h"
#include "platform/file_replacement.h"
#include "platform/files.h"

namespace quarvel::mps {
namespace {

using platform::NameKind;

std::string BackupName(const std::string& path, BackupManner manner) {
  const std::size_t point = path.rfind('.');
  const bool has_point = point != std::string::npos;
  if (manner == BackupManner::kComponent) {
    return (has_point ? path.substr(0, point + 1) : path) + "bkp";
  }
  const bool has_extension = has_point && point > platform::NameStart(path);
  return (has_extension ? path.substr(0, point) : path) + ".bkp";
}

std::string NumberedName(const std::string& name, int number) {
  return name + "." + std::to_string(number);
}

}  // namespace

Backup::Backup(const std::string& path, BackupManner manner)
    : path_(path), manner_(manner), name_(BackupName(path, manner)) {}

void Backup::Make() {
  const auto there = platform::AskAboutName(name_);
  const bool is_file = there && there->kind == NameKind::kFile;
  const bool is_own = name_ == path_ || (is_file && platform::IsSameFile(name_, path_));
  // A new file of that name has nothing to be kept.
  if (name_ == path_ && !there) return;
  if (manner_ == BackupManner::kBeside && !platform::AskAboutName(platform::FinalName(path_)))
    return;
  const auto copy = platform::CopyBeside(path_, name_);
  try {
    if (is_own) {
      TakeFreeName(*copy);
    } else {
      if (there && !MayGo(*there, *copy)) Keep();
      TakeName(*copy, there && there->kind == NameKind::kFolder);
    }
    stamp_ = StampOfCopy();
  } catch (...) {
    const bool was_free = is_own || !there || !kept_.empty();
    if (copy->is_renamed() && was_free && manner_ == BackupManner::kBeside) RemoveSilently();
    throw;
  }
}

// Without it nobody can tell the copy from another's file: a command gives up then.
std::optional<platform::FileStamp> Backup::StampOfCopy() const {
  if (manner_ == BackupManner::kComponent) return platform::StampUnder(name_);
  const auto named = platform::AskAboutName(name_);
  if (!named) RaiseRunTimeError(RunTimeError::kFileNotFound);
  return named->stamp;
}

void Backup::TakeName(platform::TemporaryFile& copy, bool is_folder) {
  if (copy.TakeName(name_)) return;
  RaiseRunTimeError(is_folder ? RunTimeError::kPathFileAccessError
                              : RunTimeError::kPermissionDenied);
}

void Backup::TakeFreeName(platform::TemporaryFile& copy) {
  const std::string base = name_;
  for (int number = 1;; ++number) {
    name_ = NumberedName(base, number);
    if (copy.TakeFreeName(name_)) return;
  }
}

bool Backup::MayGo(const platform::NamedFile& there, platform::TemporaryFile& copy) const {
  // A folder is in the way, which is told.
  if (there.kind == NameKind::kFolder) return true;
  if (there.kind == NameKind::kLink) return manner_ == BackupManner::kComponent;
  if (there.kind != NameKind::kFile) return false;
  if (there.stamp.size == 0) return true;
  if (!platform::IsUntouchedCopy(there.stamp)) return false;
  const std::string tail = copy.LastBytes(kEndOfModel);
  if (HasEndLine(tail)) return true;
  return !tail.empty() && !HasEndLine(platform::LastBytes(name_, kEndOfModel));
}

void Backup::Keep() {
  for (int number = 1; kept_.empty(); ++number) {
    std::string kept = NumberedName(name_, number);
    if (platform::RenameToFree(name_, kept)) kept_ = std::move(kept);
  }
}

bool Backup::IsThere() const { return stamp_ && platform::StampUnder(name_) == stamp_; }

bool Backup::Delete() noexcept {
  if (!stamp_) return true;
  try {
    const auto there = platform::AskAboutName(name_);
    if (there && there->kind == NameKind::kFile && there->stamp == stamp_) {
      platform::RemoveFile(name_);
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void Backup::RemoveSilently() const noexcept {
  try {
    platform::RemoveFile(name_);
  } catch (const std::exception&) {
    // It is whole.
  }
}

bool Backup::Restore() noexcept {
  try {
    if (!IsThere()) return false;
    platform::ReplaceByCopy(name_, path_);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace quarvel::mps
