// What a disk may hold after a loss of power. Calls are applied one after the other; what a file or
// the folder was told to flush is on the disk, and all else may be there or not: of what was written
// nothing, all, a first or a last part, or only its length; of the names that were made, changed and
// removed the first so many, in their order.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/faults/recorded_calls.h"

namespace quarvel::faults {

// The contents of files by their names.
using DiskState = std::map<std::string, std::string>;

class SimulatedDisk {
 public:
  // A file that is on the disk from the start.
  void Put(const std::string& path, const std::string& content);
  // A second name of a file that is there.
  void PutName(const std::string& path, const std::string& file);

  // Raises std::runtime_error for a call that it knows nothing of.
  void Apply(const RecordedCall& call);

  // Calls `look` with each state that the disk may be in if power went now.
  void ForEachState(const std::function<void(const DiskState&)>& look) const;
  // What programs see as long as power is there.
  DiskState Seen() const;

 private:
  // Bytes at their place, or a new length.
  struct Change {
    std::int64_t place = 0;
    std::string bytes;
    std::optional<std::int64_t> length;
  };
  struct File {
    std::string on_disk;
    std::vector<Change> waiting;
  };
  // A name that leads to a file, or to nothing any more, and the name that it takes that file from.
  struct NameChange {
    std::string path;
    std::optional<std::size_t> file;
    std::string old_path;
  };
  using Names = std::map<std::string, std::size_t>;

  enum class Part { kNothing, kAll, kFirst, kLast, kLength };

  static void Make(std::string& content, const Change& change);
  static void Make(Names& names, const NameChange& change);
  static std::string ContentOf(const File& file, Part part);
  static const std::vector<Part>& PartsOf(const File& file);
  void Open(const RecordedCall& call);
  void Flush(int descriptor);
  void ChangeName(NameChange change);
  void ForEachContent(Names::const_iterator at, const Names& names, DiskState& state,
                      const std::function<void(const DiskState&)>& look) const;

  std::vector<File> files_;
  Names names_on_disk_;
  Names names_seen_;
  std::vector<NameChange> waiting_names_;
  // What descriptors are open on; a folder is no file.
  std::map<int, std::size_t> open_files_;
};

}  // namespace quarvel::faults
