// The folder that a target writes to, which each input finds empty.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/support/test_paths.h"

namespace quarvel::fuzz {

inline std::filesystem::path PathOf(const TemporaryFolder& folder) {
  return std::u8string(folder.path().begin(), folder.path().end());
}

inline void EmptyFolder(const std::filesystem::path& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::filesystem::remove_all(entry.path());
  }
}

inline void EmptyFolder(const TemporaryFolder& folder) { EmptyFolder(PathOf(folder)); }

// The current folder while one of these lives. The fuzzer itself works where it was started.
class InFolder {
 public:
  explicit InFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
  ~InFolder() { std::filesystem::current_path(before_); }
  InFolder(const InFolder&) = delete;
  InFolder& operator=(const InFolder&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

// A text that leads out of no folder when it is taken for a path.
inline std::string WithoutFolders(std::string bytes) {
  std::replace(bytes.begin(), bytes.end(), '/', '_');
  return bytes;
}

}  // namespace quarvel::fuzz
