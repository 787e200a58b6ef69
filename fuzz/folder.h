// The folder that a target writes to, which each input finds empty.
#pragma once

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

}  // namespace quarvel::fuzz
