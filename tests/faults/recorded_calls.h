// The calls of a program that the library of tests/faults/preload/ has told of, one after the other.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quarvel::faults {

struct RecordedCall {
  // "open", "read", "write", "close", "sync", "truncate", "rename", "unlink", "link" ...
  std::string kind{};
  std::int64_t result = 0;
  int descriptor = -1;
  // The place of a write, the flags of an open, the length of a truncation, a mode.
  std::int64_t number = 0;
  // Whether it changes something (or opens for that), and whether it may need room on the disk.
  bool changes = false;
  bool needs_room = false;
  std::string path{};
  std::string new_path{};
  // What was written.
  std::string bytes{};
};

// The calls that the record at `path` holds; none when there is no such file.
std::vector<RecordedCall> ReadRecord(const std::string& path);

}  // namespace quarvel::faults
