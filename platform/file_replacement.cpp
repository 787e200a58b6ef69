#include "platform/file_replacement.h"

#include <cstdint>
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

[[noreturn]] void RaiseChanged() {
  throw AutomationError(static_cast<std::int32_t>(kPermissionDenied), "",
                        "another program has changed the file since it was read");
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path, const FileTraits* when_new,
                                 const std::optional<FileStamp>& read_as)
    : target_(path), old_(AskForWriting(path)), read_as_(read_as) {
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
    GuardOld();
    direct_.emplace(SystemFile::OpenInPlace(target_));
    IsStillThere();
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
  } else {
    const bool is_alike = BecomeAlike();
    temporary_->Complete();
    // Nothing that takes its time stands between this look and the replacement.
    const bool is_there = GuardOld();
    if (!is_alike || !TakePlace(is_there)) WriteInPlace();
  }
  if (!old_ || old_->is_plain) contents_ = Contents::kNew;
}

bool FileReplacement::BecomeAlike() {
  const bool is_alone = !old_ || old_->links == 1;
  return is_alone && (!to_have_ || temporary_->TakeTraits(*to_have_) || !old_);
}

bool FileReplacement::GuardOld() {
  if (read_as_) lock_.emplace(target_, *read_as_);
  return IsStillThere();
}

bool FileReplacement::IsStillThere() const {
  if (!read_as_) return true;
  const auto there = AskAboutName(target_);
  if (there && there->stamp != *read_as_) RaiseChanged();
  return there.has_value();
}

// Where nothing is left of what was read, another file may still come.
bool FileReplacement::TakeName(bool is_there) {
  if (is_there) return temporary_->TakeName(target_);
  if (!temporary_->TakeFreeName(target_)) RaiseChanged();
  return true;
}

bool FileReplacement::TakePlace(bool is_there) {
  try {
    if (TakeName(is_there)) {
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
  // Who writes in place without the lock of saves is done by now.
  IsStillThere();
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
