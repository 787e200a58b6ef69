// docs/architecture.md says what each room stands on; the includes and the libraries' links agree.
#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/structure/include_rules.h"
#include "tests/structure/project_sources.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

using Arrows = std::map<std::string, std::set<std::string>>;

// The room of a path, a part that is a library of its own under its own name: "mps", "platform/qt".
std::string RoomOf(const std::string& path) {
  static const std::regex part("((?:platform/(?:qt|win32|console|scripted))|hosts/packing)/.*");
  std::smatch found;
  if (path.starts_with("quarvel/") || path.starts_with("include/quarvel/")) return "api";
  if (std::regex_match(path, found, part)) return found[1].str();
  return path.substr(0, path.find('/'));
}

bool IsRoom(const std::string& name) {
  const std::string folder = name.substr(0, name.find('/'));
  return std::find(Rooms().begin(), Rooms().end(), folder) != Rooms().end();
}

// | `room` | `other`, `other` |
Arrows ArrowsOfPage() {
  Arrows arrows;
  std::istringstream page(ReadWholeFile(SourceFolder() + "/docs/architecture.md"));
  static const std::regex row(R"(\| `([a-z0-9/]+)` \|(.*)\|\s*)");
  static const std::regex name("`([a-z0-9/]+)`");
  for (std::string line; std::getline(page, line);) {
    std::smatch found;
    if (!std::regex_match(line, found, row)) continue;
    std::set<std::string>& below = arrows[found[1]];
    const std::string names = found[2];
    for (std::sregex_iterator at(names.begin(), names.end(), name), end; at != end; ++at) {
      below.insert((*at)[1]);
    }
  }
  return arrows;
}

Arrows ArrowsOfIncludes() {
  Arrows arrows;
  static const std::regex include("(?:^|\n)#include \"([a-z0-9_/]+)\\.h\"");
  for (const auto& [path, source] : ProjectSources()) {
    const std::string room = RoomOf(path);
    if (!IsRoom(room)) continue;
    std::set<std::string>& below = arrows[room];
    for (std::sregex_iterator at(source.begin(), source.end(), include), end; at != end; ++at) {
      const std::string other = RoomOf((*at)[1]);
      if (other != room) below.insert(other);
    }
  }
  return arrows;
}

// What the libraries of CMake are linked with, and what those are: "quarvel_platform" is `platform`.
Arrows LinksOf(const std::string& text) {
  Arrows links;
  static const std::regex call(R"(target_link_libraries\(quarvel_([a-z0-9]+) ([^)]*)\))");
  static const std::regex library("quarvel_([a-z0-9]+)");
  for (std::sregex_iterator at(text.begin(), text.end(), call), end; at != end; ++at) {
    const std::string names = (*at)[2];
    for (std::sregex_iterator of(names.begin(), names.end(), library); of != end; ++of) {
      links[(*at)[1]].insert((*of)[1]);
    }
  }
  return links;
}

bool Reaches(const Arrows& links, const std::string& from, const std::string& to) {
  const auto direct = links.find(from);
  if (direct == links.end()) return false;
  for (const std::string& next : direct->second) {
    if (next == to || Reaches(links, next, to)) return true;
  }
  return false;
}

std::string LibraryOf(const std::string& room) { return room.substr(room.rfind('/') + 1); }

std::string Words(const std::set<std::string>& names) {
  std::string words;
  for (const std::string& name : names) words += name + ' ';
  return words;
}

TEST(Architecture, PageNamesWhatEachRoomIncludes) {
  const Arrows page = ArrowsOfPage();
  const Arrows includes = ArrowsOfIncludes();
  ASSERT_GE(page.size(), 10u);
  for (const auto& [room, below] : includes) {
    ASSERT_TRUE(page.contains(room)) << room << " is not in docs/architecture.md";
    EXPECT_EQ(Words(page.at(room)), Words(below)) << room;
  }
  EXPECT_EQ(page.size(), includes.size());
}

TEST(Architecture, LibrariesAreLinkedWithWhatTheirRoomsInclude) {
  const std::string root = SourceFolder();
  const Arrows links = LinksOf(ReadWholeFile(root + "/CMakeLists.txt") +
                               ReadWholeFile(root + "/cmake/automation.cmake") +
                               ReadWholeFile(root + "/python/CMakeLists.txt"));
  // The component's file, and not its library, takes the drawer; so does the program quarvel-view.
  const std::set<std::string> elsewhere = {"automation -> platform/win32", "hosts -> platform/qt"};
  for (const auto& [room, below] : ArrowsOfPage()) {
    for (const std::string& other : below) {
      if (elsewhere.contains(room + " -> " + other)) continue;
      EXPECT_TRUE(Reaches(links, LibraryOf(room), LibraryOf(other))) << room << " -> " << other;
    }
  }
}

}  // namespace
}  // namespace quarvel
