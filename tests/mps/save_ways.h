// The ways of saving that the tests of faults go through: what stands in the folder before, and
// what the file is to hold afterwards.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tests/mps/write_helpers.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {

struct SaveWay {
  const char* name;
  bool is_own = false;      // the model's own file
  bool is_there = true;     // the file exists before
  bool has_backup = false;  // an older one stands there
  bool is_better = false;   // that backup is whole, and the file is empty
  bool is_link = false;     // the path is a link to the file
  bool has_two_names = false;
  bool is_private = false;  // its user alone may read it
  bool is_empty = false;    // the model has no elements
  bool is_large = false;    // the model takes many writes
  bool host_fails = false;  // in the box after writing
  const char* file = "model.mps";
};

std::span<const SaveWay> SaveWays();

// One save in a folder of its own.
class SaveCase : public HandMadeModel {
 public:
  explicit SaveCase(const SaveWay& way,
                    OwnDesktop on = std::make_unique<platform::ScriptedDesktop>());

  // Saves in this way; the result is that of SaveMPSFile.
  int Save();
  // Saves once more, without any fault: no host fails.
  int SaveAgain();

  const std::string& path() const { return path_; }
  const std::string& new_text() const { return new_text_; }
  const std::optional<std::string>& old_text() const { return old_text_; }

  // What a file holds; nothing when it is not there.
  static std::optional<std::string> TextOf(const std::string& path);
  std::optional<std::string> Text() const { return TextOf(path_); }
  // The names in the folder of other files that hold this text.
  std::vector<std::string> OthersWith(const std::string& text) const;
  std::vector<std::string> Names() const;

  // The text of a backup that is older than the save.
  static constexpr std::string_view kOldBackup = "ROWS\r\n N  OLDER\r\nENDATA\r\n";

 private:
  void MakeModel();
  void MakeFiles();

  const SaveWay& way_;
  TemporaryFolder folder_{TemporaryFolder::Place::kInMemory};
  std::string path_;
  std::optional<std::string> old_text_;
  std::string new_text_;
};

}  // namespace quarvel::mps
