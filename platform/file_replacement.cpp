#include "platform/file_replacement.h"

#include <utility>

#include "platform/automation_error.h"
#include "platform/system_file.h"
#include "platform/system_names.h"

namespace quarvel::platform {
namespace {

using enum RunTimeError;

// What says that the folder takes no new file, or not under a temporary name.
bool SpeaksOfFolder(const AutomationError& error) {
  const auto number = error.run_time_error();
  return number == kPermissionDenied || number == kPathFileAccessError || number == kPathNotFound;
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path, const FileTraits* when_new)
    : target_(path), old_(AskForWriting(path)) {
  const bool is_plain = !old_ || old_->is_plain;
  if (is_plain) target_ = FinalName(path);
  if (old_) {
    to_have_ = old_;
  } else if (when_new != nullptr) {
    to_have_ = *when_new;
  }
  const bool has_name = NameStart(target_) < target_.size();
  if (!is_plain || !has_name || !OpenTemporary()) OpenDirectly(path);
}

bool FileReplacement::OpenTemporary() {
  try {
    temporary_.emplace(target_, target_, to_have_ ? &*to_have_ : nullptr);
  } catch (const AutomationError& error) {
    // Writing to the file itself then works, or says what is wrong with it.
    if (!SpeaksOfFolder(error)) throw;
    return false;
  }
  // Where a file is written in place, an abandoned one may be all that is whole of it.
  clears_late_ = old_ && (old_->links > 1 || !temporary_->HasOwnerOf(*old_));
  if (!clears_late_) temporary_->ClearAbandoned();
  return true;
}

void FileReplacement::OpenDirectly(const std::string& path) {
  if (old_ && old_->is_plain) {
    direct_.emplace(SystemFile::OpenInPlace(target_));
    contents_ = Contents::kIncomplete;
    direct_->system_file().CutOff(0);
  } else {
    direct_.emplace(path);
    if (!old_) contents_ = Contents::kIncomplete;
  }
}

std::optional<InputFile> FileReplacement::Review() {
  if (!temporary_) return std::nullopt;
  return temporary_->Reread();
}

void FileReplacement::Commit() {
  if (direct_) {
    direct_->FlushToDisk();
    direct_->Close();
  } else if (!TakePlace()) {
    WriteInPlace();
  }
  if (!old_ || old_->is_plain) contents_ = Contents::kNew;
}

bool FileReplacement::TakePlace() {
  const bool is_alone = !old_ || old_->links == 1;
  const bool is_alike = is_alone && (!to_have_ || temporary_->TakeTraits(*to_have_) || !old_);
  temporary_->Complete();
  if (!is_alike) return false;
  try {
    if (temporary_->TakeName(target_)) {
      if (clears_late_) temporary_->ClearAbandoned();
      return true;
    }
  } catch (...) {
    if (temporary_->is_renamed()) contents_ = Contents::kNew;
    throw;
  }
  // There is nothing to be written in place.
  if (!old_) RaiseRunTimeError(kPermissionDenied);
  return false;
}

void FileReplacement::WriteInPlace() {
  std::string name = temporary_->path();
  // From now on the new contents outlive all that can happen to the file.
  temporary_->FlushName();
  SystemFile& contents = temporary_->output().system_file();
  const std::uint64_t size = contents.Size();
  contents.MoveTo(0);
  OutputFile target(SystemFile::OpenInPlace(target_));
  target.system_file().Reserve(size);
  contents_ = Contents::kIncomplete;
  try {
    // A first part of the new contents alone is seen to be incomplete; before a rest of the old ones
    // it would pass for a whole file.
    target.system_file().CutOff(0);
    target.Append(contents, size);
    target.FlushToDisk();
    target.Close();
  } catch (...) {
    temporary_->Keep();
    kept_ = std::move(name);
    throw;
  }
  temporary_->ClearAbandoned();
  temporary_.reset();
}

void ReplaceByCopy(const std::string& from, const std::string& to) {
  SystemFile input = SystemFile::OpenUndisturbed(from);
  const FileTraits traits = input.Traits();
  FileReplacement replacement(to, &traits);
  replacement.output().Append(input, input.Size());
  replacement.Commit();
}

}  // namespace quarvel::platform
