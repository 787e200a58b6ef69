#include "tests/structure/project_sources.h"

#include <filesystem>
#include <vector>

#include "tests/structure/include_rules.h"
#include "tests/support/test_paths.h"

namespace quarvel {

const std::map<std::string, std::string>& ProjectSources() {
  namespace fs = std::filesystem;
  static const std::map<std::string, std::string> sources = [] {
    std::map<std::string, std::string> found;
    const fs::path root = SourceFolder();
    std::vector<std::string> folders(Rooms().begin(), Rooms().end());
    folders.insert(folders.end(), {"include", "tests", "fuzz", "bench"});
    for (const std::string& folder : folders) {
      if (!fs::exists(root / folder)) continue;
      for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".cpp" && extension != ".h") continue;
        found[fs::relative(entry.path(), root).generic_string()] =
            ReadWholeFile(entry.path().generic_string());
      }
    }
    return found;
  }();
  return sources;
}

}  // namespace quarvel
