// A source has its test under its own name in the folder of its room's tests. Where the others are
// tested stands in tests/structure/tested_elsewhere.txt, which is held complete and true.
#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/structure/include_rules.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTable = "tests/structure/tested_elsewhere.txt";

bool Exists(const std::string& path) { return fs::exists(fs::path(SourceFolder()) / path); }

std::string OwnTestOf(const std::string& source) {
  const std::string stem = fs::path(source).stem().string();
  return "tests/" + source.substr(0, source.find('/')) + "/" + stem + "_test.cpp";
}

// The sources of all rooms by their paths from the root.
std::vector<std::string> SourcesOfRooms() {
  std::vector<std::string> sources;
  const fs::path root = SourceFolder();
  for (const std::string_view room : Rooms()) {
    if (!fs::exists(root / room)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
      const fs::path& path = entry.path();
      if (path.extension() != ".cpp" || path.filename() == "main.cpp") continue;
      sources.push_back(fs::relative(path, root).generic_string());
    }
  }
  std::sort(sources.begin(), sources.end());
  return sources;
}

// What is tested elsewhere, with where: a source, or a folder ("platform/qt/") for all in it.
std::map<std::string, std::vector<std::string>> Table() {
  std::map<std::string, std::vector<std::string>> table;
  std::istringstream text(ReadWholeFile(SourceFolder() + "/" + kTable));
  for (std::string line; std::getline(text, line);) {
    std::istringstream words(line.substr(0, line.find('#')));
    std::string source;
    if (!(words >> source)) continue;
    for (std::string test; words >> test;) table[source].push_back(test);
    EXPECT_FALSE(table[source].empty()) << kTable << ": where is " << source << " tested?";
  }
  return table;
}

TEST(TestedElsewhere, ListsEverySourceWithoutATestOfItsName) {
  const auto table = Table();
  EXPECT_FALSE(SourcesOfRooms().empty());
  for (const std::string& source : SourcesOfRooms()) {
    const std::string folder = source.substr(0, source.rfind('/') + 1);
    if (Exists(OwnTestOf(source)) || table.contains(source) || table.contains(folder)) continue;
    ADD_FAILURE() << "write " << OwnTestOf(source) << ", or add to " << kTable << " the line\n"
                  << source << "  tests/<room>/<the test that holds it>_test.cpp";
  }
}

TEST(TestedElsewhere, NamesOnlyWhatIsThere) {
  for (const auto& [source, tests] : Table()) {
    EXPECT_TRUE(Exists(source)) << "take " << source << " out of " << kTable << ": it is gone";
    EXPECT_TRUE(source.ends_with('/') || !Exists(OwnTestOf(source)))
        << "take " << source << " out of " << kTable << ": it has a test of its name";
    for (const std::string& test : tests) {
      EXPECT_TRUE(Exists(test)) << kTable << ": " << source << " names " << test << ": it is gone";
    }
  }
}

}  // namespace
}  // namespace quarvel
