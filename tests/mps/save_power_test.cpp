// A loss of power at every moment of a save: of what the system was told, only
// what was flushed is sure to remain. A name may lead to what it led to when
// its folder was flushed last, or to anything it has led to since.
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "platform/file_watch.h"
#include "tests/mps/save_ways.h"
#include "tests/mps/saving.h"

namespace quarvel::mps {
namespace {

using platform::FileCall;
using platform::FileFault;

// What would be on the disk after a loss of power, as one save goes on. Files
// are told apart by a number; what one holds is known when it is flushed.
class Disk : public platform::FileWatch {
 public:
  Disk(const SaveCase& save, const std::string& target) : save_(save), target_(target) {
    for (const std::string& name : save.Names()) AddFile(name);
    flushed_names_ = names_;
    before_ = platform::SetFileWatch(this);
  }
  ~Disk() override { platform::SetFileWatch(before_); }
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  FileFault Before(FileCall call, const std::string& path, const std::string& to,
                   std::size_t&) override {
    Done();
    call_ = call;
    path_ = path;
    to_ = to;
    return FileFault::kNone;
  }
  // The last call was made: sees what it changed, and whether a loss of power
  // does harm now.
  void Done() {
    Apply();
    call_ = FileCall::kAsk;
    ++moments_;
    if (!IsSafe(names_) || !IsSafe(flushed_names_)) ++unsafe_;
  }

  int moments() const { return moments_; }
  int unsafe() const { return unsafe_; }
  int flushes() const { return flushes_; }

 private:
  struct File {
    std::string text;  // when it was flushed
    bool is_flushed = true;
  };
  using NamesOfFiles = std::map<std::string, int>;

  static std::string NameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }
  std::string PathOf(const std::string& name) const {
    return save_.path().substr(0, save_.path().rfind('/') + 1) + name;
  }

  void AddFile(const std::string& name) {
    names_[name] = static_cast<int>(files_.size());
    files_[names_[name]].text = SaveCase::TextOf(PathOf(name)).value_or("");
    // The second name of the file that is written in place.
    if (name == "second.mps") second_ = names_[name];
  }

  void Apply() {
    const std::string name = NameOf(path_);
    const bool is_known = names_.contains(name);
    switch (call_) {
      case FileCall::kCreate:
        if (!is_known) AddFile(name);
        break;
      case FileCall::kWrite:
      case FileCall::kResize:
        files_.at(names_.at(name)).is_flushed = false;
        break;
      case FileCall::kFlush:
        Flush(name, is_known);
        break;
      case FileCall::kRename:
        Rename(name, NameOf(to_));
        break;
      case FileCall::kRemove:
        names_.erase(name);
        break;
      default:
        break;
    }
  }

  void Flush(const std::string& name, bool is_known) {
    ++flushes_;
    if (!is_known) {
      flushed_names_ = names_;  // a folder
      return;
    }
    File& file = files_.at(names_.at(name));
    file.text = FlushedText(name);
    file.is_flushed = true;
#ifdef _WIN32
    flushed_names_[name] = names_.at(name);  // the system flushes a file with its name
#endif
  }

  // Where a file in use cannot be read, its length has to do.
  std::string FlushedText(const std::string& name) const {
    if (const auto text = SaveCase::TextOf(PathOf(name))) return *text;
    const auto size = std::filesystem::file_size(ToPath(PathOf(name)));
    if (size == save_.new_text().size()) return save_.new_text();
    return save_.old_text() && size == save_.old_text()->size() ? *save_.old_text() : "unknown";
  }

  void Rename(const std::string& from, const std::string& to) {
    names_[to] = names_.at(from);
    names_.erase(from);
#ifdef _WIN32
    flushed_names_ = names_;  // written through
#endif
  }

  bool IsWhole(const File& file) const {
    return file.is_flushed && (file.text == save_.new_text() || file.text == save_.old_text());
  }
  // One of the two is there whole: under the file's name, unless that is being
  // written in place.
  bool IsSafe(const NamesOfFiles& names) const {
    const auto found = names.find(target_);
    if (found == names.end()) return !save_.old_text();
    if (IsWhole(files_.at(found->second))) return true;
    if (second_ < 0) return false;
    for (const auto& [name, number] : names) {
      if (number != second_ && IsWhole(files_.at(number))) return true;
    }
    return false;
  }

  const SaveCase& save_;
  const std::string target_;
  platform::FileWatch* before_ = nullptr;
  std::map<int, File> files_;
  NamesOfFiles names_;
  NamesOfFiles flushed_names_;
  int second_ = -1;
  FileCall call_ = FileCall::kAsk;
  std::string path_;
  std::string to_;
  int moments_ = 0;
  int unsafe_ = 0;
  int flushes_ = 0;
};

TEST(SavingAndPower, HasOneWholeFileOnTheDiskAtEveryMoment) {
  int moments = 0;
  for (const SaveWay& way : SaveWays()) {
    SCOPED_TRACE(way.name);
    SaveCase save(way);
    Disk disk(save, way.file);
    const int result = save.Save();
    disk.Done();
    EXPECT_EQ(result, way.host_fails ? kNotSaved : kSaved);
    EXPECT_EQ(disk.unsafe(), 0);
    EXPECT_GT(disk.flushes(), 0);
    moments += disk.moments();
  }
  EXPECT_GT(moments, 200);
}

}  // namespace
}  // namespace quarvel::mps
