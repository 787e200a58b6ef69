// Comments and pages name files that exist: "mps/sections.h" from the project's root, or a source
// by its bare name, "main.cpp", wherever it stands. Names of one letter (mps/a.cpp) are examples.

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

namespace fs = std::filesystem;

// The files of the project by their paths from its root, without what builds and version control
// keep and without the kept inputs of tests.
const std::set<std::string>& ProjectFiles() {
  static const std::set<std::string> files = [] {
    std::set<std::string> found;
    const fs::path root = SourceFolder();
    for (auto i = fs::recursive_directory_iterator(root); i != fs::end(i); ++i) {
      const std::string name = i->path().filename().string();
      if (i->is_directory() && (name.starts_with('.') || name == "build" || name == "corpus")) {
        i.disable_recursion_pending();
      } else if (i->is_regular_file()) {
        found.insert(fs::relative(i->path(), root).generic_string());
      }
    }
    return found;
  }();
  return files;
}

bool IsPage(std::string_view path) { return path.ends_with(".md"); }

// What a line tells its reader: all of a page's, what follows the comment sign in a source.
std::string ToldIn(std::string_view path, const std::string& line) {
  if (IsPage(path)) return line;
  const bool strokes = path.ends_with(".cpp") || path.ends_with(".h") || path.ends_with(".idl") ||
                       path.ends_with(".rc") || path.ends_with(".in");
  const std::size_t sign = line.find(strokes ? "//" : "#");
  return sign == std::string::npos ? "" : line.substr(sign);
}

bool TellsOfFiles(std::string_view path) {
  for (const char* end :
       {".md", ".cpp", ".h", ".in", ".idl", ".rc", ".cmake", ".awk", ".sh", "CMakeLists.txt"}) {
    if (path.ends_with(end)) return true;
  }
  return false;
}

// Whether there is a file that the name may mean, or one that it is made from. Public headers are named as
// programs include them.
bool IsThere(const std::string& name) {
  if (name.find('/') != std::string::npos) {
    return ProjectFiles().contains(name) || ProjectFiles().contains(name + ".in") ||
           ProjectFiles().contains("include/" + name);
  }
  for (const std::string& file : ProjectFiles()) {
    if (fs::path(file).filename() == name) return true;
  }
  return false;
}

// The names of files in a line of comment that are held to exist: sources with their folders or
// bare, other files with their folders.
std::vector<std::string> NamesIn(const std::string& told) {
  static const std::regex path(
      R"re((^|[^\w/.<*{$}-])((?:[\w-]+/)*[\w-]{2,}\.(?:cpp|idl|awk)|)re"
      R"re((?:[\w-]+/)+[\w-]{2,}\.(?:h|rc|cmake|sh|md|manifest))(?![\w/]))re");
  std::vector<std::string> names;
  const std::size_t dot = told.find('.');
  if (dot == std::string::npos || dot + 2 >= told.size()) return names;
  const std::sregex_iterator end;
  for (std::sregex_iterator i(told.begin(), told.end(), path); i != end; ++i) {
    names.push_back((*i)[2]);
  }
  return names;
}

// "README.md:12 names mps/gone.h" for each file that the text of a file names in vain.
std::vector<std::string> NamedInVain(const std::string& path, const std::string& text) {
  std::vector<std::string> found;
  std::istringstream lines(text);
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    for (const std::string& name : NamesIn(ToldIn(path, line))) {
      if (IsThere(name)) continue;
      found.push_back(path + ":" + std::to_string(number) + " names " + name);
    }
  }
  return found;
}

TEST(NamedFiles, AreMissedWhereTheyAreNamed) {
  using Found = std::vector<std::string>;
  EXPECT_EQ(NamedInVain("a.md", "see\n`mps/gone.h`\n"), Found{"a.md:2 names mps/gone.h"});
  EXPECT_EQ(NamedInVain("mps/a.cpp", "int x;  // (gone.cpp)"), Found{"mps/a.cpp:1 names gone.cpp"});
  EXPECT_EQ(NamedInVain("mps/a.cpp", "#include \"mps/gone.h\""), Found{});
  EXPECT_EQ(NamedInVain("cmake/a.cmake", "# cmake/gone.sh"),
            Found{"cmake/a.cmake:1 names cmake/gone.sh"});
  EXPECT_EQ(
      NamedInVain("a.md", "mps/a.cpp, structure_test.cpp, tests/structure/structure_test.cpp"),
      Found{});
}

TEST(NamedFiles, AreThere) {
  int files = 0;
  for (const std::string& path : ProjectFiles()) {
    if (!TellsOfFiles(path) || path.ends_with("named_files_test.cpp")) continue;
    ++files;
    for (const std::string& name : NamedInVain(path, ProjectFile(path))) {
      ADD_FAILURE() << name;
    }
  }
  EXPECT_GT(files, 100);
}

}  // namespace
}  // namespace quarvel
