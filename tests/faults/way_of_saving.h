// The ways in which the program saves a file, each with the folder that it starts from.
#pragma once

#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/faults/child.h"
#include "tests/support/test_paths.h"

namespace quarvel::faults {

struct WayOfSaving {
  std::string name{};
  // The words after the program's name; it runs in the folder.
  std::vector<std::string> words{};
  // The files that stand in the folder before, and which of these contents each has.
  std::map<std::string, std::string_view> files{};
  // Symbolic links, and names of the same file, with what they lead to.
  std::map<std::string, std::string> links{};
  std::map<std::string, std::string> second_names{};
  // What is saved, and the copy that is kept beside it meanwhile; empty when there is none.
  std::string target = "m.mps";
  std::string backup{};
  // Whether the target is written in its own place, because nothing else can take it.
  bool in_place = false;
  // Whether there is then no second copy either, so that a killed save may tear it.
  bool is_unprotected = false;
  // A name that a failed save may leave a backup under, and that no later save takes away.
  std::string kept_backup{};
  // Whether nobody but their owner may read the files.
  bool is_private = false;
  // Whether the folder takes no new files.
  bool is_read_only = false;
  // Whether the save cannot succeed.
  bool fails = false;

  // Whether the target is written in its own place, with the whole contents elsewhere meanwhile.
  bool HasASecondCopy() const { return in_place && !is_unprotected && !fails; }
  // Whether a file of that name may be such a copy: no other name of the target, no source.
  bool MayBackUp(const std::string& file_name) const;
};

// The model as it stands before a save and as it is saved, both as the program writes them: several
// times as long as what the program hands to the system at once, and different at both ends. And
// what an earlier backup holds, and a model of 200,000 elements.
inline constexpr std::string_view kOld = "old";
inline constexpr std::string_view kNew = "new";
inline constexpr std::string_view kStale = "stale";
inline constexpr std::string_view kLarge = "large";
const std::string& Bytes(std::string_view which);

const std::vector<WayOfSaving>& WaysOfSaving();

// How GoogleTest shows one.
void PrintTo(const WayOfSaving& way, std::ostream* out);

// A model that the program reads, of as many rows as columns, not yet in the form that it writes.
std::string GeneratedModel(int columns, int elements_of_each);

// A folder in which a way of saving is gone again and again.
class SavingFolder {
 public:
  explicit SavingFolder(const WayOfSaving& way) : way_(way) {}
  ~SavingFolder();
  SavingFolder(const SavingFolder&) = delete;
  SavingFolder& operator=(const SavingFolder&) = delete;

  const WayOfSaving& way() const { return way_; }
  std::string path() const;
  std::string RecordPath() const { return outer_.File("record"); }

  // Puts the folder in the state before the save.
  void Lay() const;
  // Saves, with these faults.
  Ended Save(const std::string& faults = "", const std::string& record = "") const;
  Start StartOf(const std::string& faults = "", const std::string& record = "") const;

  // What the name leads to; nothing when that is no file.
  std::optional<std::string> Content(const std::string& name) const;
  // The names in the folder.
  std::vector<std::string> Names() const;
  // What is wrong with the folder beside the contents of files: a link that is gone, a second name
  // that has left its file, a file that others may read. Empty when nothing is.
  std::string Disorder() const;

 private:
  TemporaryFolder outer_;
  const WayOfSaving& way_;
};

}  // namespace quarvel::faults
