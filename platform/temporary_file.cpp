#include "platform/temporary_file.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

#include "platform/automation_error.h"
#include "platform/system_file.h"

namespace quarvel::platform {
namespace {

// So many saves of one file at a time, and what else stands in the way.
constexpr int kMostSlots = 1000;
// With what stands around it, shorter than any file system's limit.
constexpr std::size_t kLongestName = 100;

// The part of its second in which a copy seems to be written, in the unit of a FileStamp.
constexpr std::int64_t kSecond = 10'000'000;
constexpr std::int64_t kCopyPart = 4'718'281;

constexpr std::string_view kBeforeSlot = ".quarvel-";

// Cut where a character begins.
std::string Shortened(std::string name) {
  if (name.size() <= kLongestName) return name;
  std::size_t end = kLongestName;
  while ((static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
  name.resize(end);
  return name;
}

// Temporary names without their number.
std::string Stem(const std::string& beside, const std::string& named_after) {
  const std::string name = Shortened(named_after.substr(NameStart(named_after)));
  return beside.substr(0, NameStart(beside)).append(".").append(name).append(kBeforeSlot);
}

std::string Slot(const std::string& stem, int number) {
  return stem + std::to_string(number) + "~";
}

// Of a path that begins with the stem.
bool IsSlot(const std::string& path, const std::string& stem) {
  const std::string_view rest = std::string_view(path).substr(stem.size());
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  return rest.size() > 1 && rest.back() == '~' &&
         std::all_of(rest.begin(), rest.end() - 1, is_digit);
}

std::vector<std::string> SlotsThere(const std::string& stem) {
  std::vector<std::string> paths = PathsThatBeginWith(stem);
  std::erase_if(paths, [&](const std::string& path) { return !IsSlot(path, stem); });
  return paths;
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& beside, const std::string& named_after,
                             const FileTraits* like)
    : stem_(Stem(beside, named_after)), folder_(FolderOf(beside)) {
  for (; slot_ < kMostSlots; ++slot_) {
    path_ = Slot(stem_, slot_);
    if (auto file = SystemFile::CreateNew(path_, like)) {
      output_.emplace(std::move(*file));
      return;
    }
  }
  RaiseRunTimeError(RunTimeError::kFileAlreadyExists);
}

TemporaryFile::~TemporaryFile() {
  if (is_renamed_ || is_kept_) return;
  try {
    output_->system_file().RemoveName();
  } catch (const std::exception&) {
    // The next file made for the same name deletes it.
  }
}

bool TemporaryFile::HasOwnerOf(const FileTraits& file) {
  const FileTraits own = output_->system_file().Traits();
  return own.owner == file.owner && own.group == file.group;
}

void TemporaryFile::ClearAbandoned() const noexcept {
  try {
    // Those below its own number were all there; others are found where the folder can be read.
    for (int number = 0; number < slot_; ++number) RemoveAbandoned(Slot(stem_, number));
    for (const std::string& path : SlotsThere(stem_)) {
      if (path != path_) RemoveAbandoned(path);
    }
  } catch (const std::exception&) {
    // A good save stays good.
  }
}

bool TemporaryFile::TakeTraits(const FileTraits& like) {
  return output_->system_file().TakeTraits(like);
}

void TemporaryFile::Complete() {
  output_->FlushToDisk();
  if (output_->system_file().Size() != output_->written()) {
    RaiseRunTimeError(RunTimeError::kDeviceIoError);
  }
}

InputFile TemporaryFile::Reread() {
  output_->Flush();
  SystemFile& file = output_->system_file();
  file.MoveTo(0);
  return InputFile(file.Duplicate());
}

std::string TemporaryFile::LastBytes(std::uint64_t count) {
  return platform::LastBytes(output_->system_file(), count);
}

bool TemporaryFile::TakeName(const std::string& name) {
  if (!RenameOver(path_, name)) return false;
  Renamed();
  return true;
}

bool TemporaryFile::TakeFreeName(const std::string& name) {
  if (!RenameToFree(path_, name)) return false;
  Renamed();
  return true;
}

void TemporaryFile::Renamed() {
  is_renamed_ = true;
  // Whoever opens the file by its new name does not find it in use.
  try {
    output_->Close();
  } catch (const AutomationError&) {
    // Every byte is on the disk already.
  }
  FlushName();
}

void TemporaryFile::FlushName() const { FlushFolder(folder_); }

std::vector<std::string> TemporaryNamesBeside(const std::string& path) {
  return SlotsThere(Stem(path, path));
}

bool IsTemporaryName(const std::string& path) {
  const std::size_t before = path.rfind(kBeforeSlot);
  return before != std::string::npos && path[NameStart(path)] == '.' &&
         IsSlot(path, path.substr(0, before + kBeforeSlot.size()));
}

bool IsUntouchedCopy(const FileStamp& stamp) { return stamp.time % kSecond == kCopyPart; }

std::unique_ptr<TemporaryFile> CopyBeside(const std::string& file, const std::string& name) {
  SystemFile input = SystemFile::OpenUndisturbed(file);
  const FileTraits traits = input.Traits();
  auto copy = std::make_unique<TemporaryFile>(name, file, &traits);
  copy->ClearAbandoned();
  copy->output().Append(input, input.Size());
  static_cast<void>(copy->TakeTraits(traits));
  copy->output().Flush();
  // Without it the next save would take the copy for another program's file.
  if (!copy->output().system_file().SetTime(traits.time / kSecond * kSecond + kCopyPart)) {
    RaiseSystemError(name);
  }
  copy->Complete();
  return copy;
}

}  // namespace quarvel::platform
