#include "mps/backup.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/automation_error.h"
#include "platform/file_replacement.h"
#include "platform/files.h"
#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

using platform::NameKind;

// Where the line that ends a model is looked for; what follows it is no part of the model.
constexpr std::uint64_t kEndOfModel = 4096;

std::string BackupName(const std::string& path) {
  const std::size_t point = path.rfind('.');
  return (point == std::string::npos ? path : path.substr(0, point + 1)) + "bkp";
}

// A line whose first word is ENDATA, in any case.
bool EndsModel(std::string_view line) {
  constexpr std::string_view kEnd = "ENDATA";
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  if (line.size() < kEnd.size()) return false;
  for (std::size_t i = 0; i < kEnd.size(); ++i) {
    if (text::UpperCaseAscii(line[i]) != kEnd[i]) return false;
  }
  return line.size() == kEnd.size() || line[kEnd.size()] == ' ';
}

bool IsWholeModel(std::string_view tail) {
  while (!tail.empty()) {
    const std::size_t end = tail.find_first_of("\r\n");
    if (EndsModel(tail.substr(0, end))) return true;
    tail.remove_prefix(end == tail.npos ? tail.size() : end + 1);
  }
  return false;
}

std::string NumberedName(const std::string& name, int number) {
  return name + "." + std::to_string(number);
}

}  // namespace

Backup::Backup(const std::string& path) : path_(path), name_(BackupName(path)) {}

void Backup::Make() {
  const auto there = platform::AskAboutName(name_);
  const bool is_file = there && there->kind == NameKind::kFile;
  const bool is_own = name_ == path_ || (is_file && platform::IsSameFile(name_, path_));
  // A new file of that name has nothing to be kept.
  if (name_ == path_ && !there) return;
  const auto copy = platform::CopyBeside(path_, name_);
  if (is_own) {
    TakeFreeName(*copy);
  } else {
    if (is_file && there->stamp.size > 0) KeepBetter(*copy);
    if (!copy->TakeName(name_)) {
      RaiseRunTimeError(there && there->kind == NameKind::kFolder
                            ? RunTimeError::kPathFileAccessError
                            : RunTimeError::kPermissionDenied);
    }
  }
  stamp_ = platform::StampUnder(name_);
}

void Backup::TakeFreeName(platform::TemporaryFile& copy) {
  const std::string base = name_;
  for (int number = 1;; ++number) {
    name_ = NumberedName(base, number);
    if (copy.TakeFreeName(name_)) return;
  }
}

void Backup::KeepBetter(platform::TemporaryFile& copy) {
  const std::string tail = copy.LastBytes(kEndOfModel);
  if (IsWholeModel(tail)) return;
  if (!tail.empty() && !IsWholeModel(platform::LastBytes(name_, kEndOfModel))) return;
  for (int number = 1; kept_.empty(); ++number) {
    std::string kept = NumberedName(name_, number);
    if (platform::RenameToFree(name_, kept)) kept_ = std::move(kept);
  }
}

bool Backup::IsThere() const { return stamp_ && platform::StampUnder(name_) == stamp_; }

void Backup::Delete() noexcept {
  try {
    if (IsThere()) platform::RemoveFile(name_);
  } catch (const std::exception&) {
    // It stays, as after a failure.
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
