#include "tests/mps/data_files.h"

#include <algorithm>
#include <filesystem>

#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace fs = std::filesystem;

std::vector<std::string> DataFiles() {
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(ToPath(DataFolder().value()))) {
    if (entry.path().extension() != ".mps") continue;
    files.push_back(entry.path().parent_path().filename().string() + "/" +
                    entry.path().stem().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string PathOf(const std::string& data_file) {
  return DataFolder().value() + "/" + data_file + ".mps";
}

Questions KindsOf(const std::vector<std::string>& problems) {
  Questions kinds;
  for (const std::string& problem : problems) {
    std::string kind = problem.substr(0, problem.find("\r\n"));
    const bool warning = kind.starts_with("Warning");
    for (const std::string cut : {" (line ", " in line ", " for row ", " for column "}) {
      const std::size_t at = kind.find(cut);
      const bool names_item = cut.starts_with(" for");
      if (at != std::string::npos && names_item == warning) kind.resize(at + cut.size());
    }
    ++kinds[kind];
  }
  return kinds;
}

}  // namespace quarvel::mps
