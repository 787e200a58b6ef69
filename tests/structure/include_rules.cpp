#include "tests/structure/include_rules.h"

#include <algorithm>
#include <optional>
#include <set>
#include <sstream>

namespace quarvel {
namespace {

struct Include {
  std::string_view name;
  bool quoted;
};

// The folder of a drawer or a system part ("platform/qt"), empty for every other path.
std::string_view DrawerOf(std::string_view path) {
  constexpr std::string_view kPlatform = "platform/";
  if (!path.starts_with(kPlatform)) return {};
  const std::size_t end = path.find('/', kPlatform.size());
  return end == std::string_view::npos ? std::string_view() : path.substr(0, end);
}

// The public headers, which belong to the room that implements them: as they are included, and by
// their paths.
constexpr std::string_view kPublicHeaders = "quarvel/";
constexpr std::string_view kPublicFolder = "include/quarvel/";

// What Python needs to pack files: the library's way in, and those who pack.
constexpr std::string_view kStreams = "api/streams.h";
constexpr std::string_view kPackersFolder = "hosts/packing/";

// The place of the path's room in the stack; nothing for a folder that is no room.
std::optional<std::ptrdiff_t> LevelOf(std::string_view path) {
  const auto& rooms = Rooms();
  if (path.starts_with(kPublicHeaders) || path.starts_with(kPublicFolder)) path = "api/";
  const auto room = std::find(rooms.begin(), rooms.end(), path.substr(0, path.find('/')));
  if (room == rooms.end()) return std::nullopt;
  return room - rooms.begin();
}

bool IsHost(std::string_view path) { return path.starts_with("hosts/"); }

// Only what faces the programs outside chooses how the component is drawn.
bool ChoosesDrawers(std::string_view path) {
  return IsHost(path) || path.starts_with("automation/");
}

std::string_view FileName(std::string_view path) { return path.substr(path.rfind('/') + 1); }

bool IsStandardHeader(std::string_view name) {
  return name.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == std::string_view::npos;
}

bool IsWindowsHeader(std::string_view name) {
  static const std::set<std::string_view> names = {
      "windows.h",  "windowsx.h", "winbase.h",  "windef.h", "winuser.h", "wingdi.h",  "winnls.h",
      "commctrl.h", "commdlg.h",  "shellapi.h", "shlobj.h", "shlwapi.h", "uxtheme.h", "tchar.h"};
  return names.contains(name);
}

bool IsComHeader(std::string_view name) {
  static const std::set<std::string_view> names = {
      "objbase.h",  "ole2.h",       "oleauto.h", "oaidl.h",      "oleidl.h", "unknwn.h",
      "objidl.h",   "ocidl.h",      "comdef.h",  "comutil.h",    "olectl.h", "initguid.h",
      "shobjidl.h", "combaseapi.h", "dispex.h",  "quarvel_idl.h"};
  return names.contains(name);
}

// What compilers offer of a processor; these headers have the same in plain code.
bool IsProcessorHeader(std::string_view path, std::string_view name) {
  return ((path == "text/byte_block.h" || path == "text/word_triples.h") &&
          name == "emmintrin.h") ||
         (path == "text/byte_group.h" && name == "immintrin.h");
}

// What packs and unpacks files: for the programs only.
bool IsPackersHeader(std::string_view name) {
  return name == "zlib.h" || name == "bzlib.h" || name == "lzma.h" || name == "zstd.h" ||
         name == "zstd_errors.h" || name == "isa-l.h";
}

bool IsPythonHeader(std::string_view name) { return name.starts_with("pybind11/"); }

bool IsQtHeader(std::string_view name) { return name.starts_with("Q"); }

std::string QuotedProblem(std::string_view path, std::string_view name) {
  const std::string_view drawer = DrawerOf(name);
  if (!drawer.empty() && drawer != DrawerOf(path) && !ChoosesDrawers(path)) {
    return "reaches into " + std::string(drawer);
  }
  const auto level = LevelOf(name);
  if (!level) return "is the header of no room";
  const bool above = *level > *LevelOf(path);
  // The rooms at the top do not know each other, but that Python stands on the library, and packs files
  // with what the programs have for that.
  const bool is_library_for_python =
      path.starts_with("python/") &&
      (name.starts_with(kPublicHeaders) || name == kStreams || name.starts_with(kPackersFolder));
  const bool beside = level >= LevelOf("api/") && level != LevelOf(path) && !is_library_for_python;
  // Those who pack stand on the platform alone.
  const bool leaves_packers = path.starts_with(kPackersFolder) &&
                              !name.starts_with(kPackersFolder) && level > LevelOf("platform/");
  if (above || beside || leaves_packers) return "does not go downwards";
  const bool shows_inside = path.starts_with(kPublicFolder) && !name.starts_with(kPublicHeaders);
  return shows_inside ? "shows programs what is inside of the library" : "";
}

std::string SystemProblem(std::string_view path, std::string_view name) {
  if (IsStandardHeader(name) || IsProcessorHeader(path, name)) return "";
  const std::string_view drawer = DrawerOf(path);
  const std::string_view file = FileName(path);
  const bool automation = path.starts_with("automation/");
  const bool may_be_of_a_system = !drawer.empty() || IsHost(path);
  const bool win32 =
      drawer == "platform/win32" || (may_be_of_a_system && file.find("_win32.") < file.size());
  const bool posix = IsHost(path) && file.find("_posix.") < file.size();
  if (IsComHeader(name)) {
    return automation || (IsHost(path) && win32) ? "" : "names COM below automation";
  }
  if (IsPythonHeader(name)) {
    return path.starts_with("python/") ? "" : "names Python outside its package";
  }
  if (IsQtHeader(name)) return drawer == "platform/qt" ? "" : "names a toolkit outside its drawer";
  if (automation || win32) return "";
  if (IsPackersHeader(name))
    return IsHost(path) ? "" : "names a packer's library below the programs";
  if (IsWindowsHeader(name)) return "names Windows outside its drawer";
  return !drawer.empty() || posix ? "" : "is not of the standard library";
}

std::optional<Include> ParseInclude(std::string_view line) {
  const auto skip_blanks = [&line] {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  };
  skip_blanks();
  if (!line.starts_with('#')) return std::nullopt;
  line.remove_prefix(1);
  skip_blanks();
  constexpr std::string_view kWord = "include";
  if (!line.starts_with(kWord)) return std::nullopt;
  line.remove_prefix(kWord.size());
  skip_blanks();
  if (line.empty() || (line[0] != '"' && line[0] != '<')) return std::nullopt;
  const bool quoted = line[0] == '"';
  line.remove_prefix(1);
  return Include{line.substr(0, line.find(quoted ? '"' : '>')), quoted};
}

using SourceTexts = std::map<std::string, std::string>;

// A walk along the includes, depth first; where it comes to a file that it is still within, there is a
// circle.
class CircleSearch {
 public:
  explicit CircleSearch(const SourceTexts& sources) : sources_(sources) {}

  void Visit(const std::string& path) {
    const auto open = std::find(way_.begin(), way_.end(), path);
    if (open != way_.end()) {
      std::string circle;
      for (auto file = open; file != way_.end(); ++file) circle += *file + " -> ";
      circles.push_back(circle + path);
      return;
    }
    if (!seen_.insert(path).second || !sources_.contains(path)) return;
    way_.push_back(path);
    std::istringstream source(sources_.at(path));
    for (std::string line; std::getline(source, line);) {
      const auto include = ParseInclude(line);
      if (include && include->quoted) Visit(std::string(include->name));
    }
    way_.pop_back();
  }

  std::vector<std::string> circles;

 private:
  const SourceTexts& sources_;
  std::vector<std::string> way_;
  std::set<std::string> seen_;
};

}  // namespace

std::vector<std::string> IncludeCircles(const SourceTexts& sources) {
  CircleSearch search(sources);
  for (const auto& [path, source] : sources) search.Visit(path);
  return search.circles;
}

const std::vector<std::string_view>& Rooms() {
  static const std::vector<std::string_view> rooms = {
      "text",   "platform",  "model", "mps",        "simplify", "inspect",
      "viewer", "component", "api",   "automation", "hosts",    "python"};
  return rooms;
}

std::vector<std::string> IncludeViolations(std::string_view path, std::string_view source) {
  std::vector<std::string> violations;
  if (!LevelOf(path)) return violations;
  for (int number = 1; !source.empty(); ++number) {
    const std::size_t end = std::min(source.find('\n'), source.size());
    const auto include = ParseInclude(source.substr(0, end));
    source.remove_prefix(std::min(end + 1, source.size()));
    if (!include) continue;
    const std::string problem =
        include->quoted ? QuotedProblem(path, include->name) : SystemProblem(path, include->name);
    if (problem.empty()) continue;
    violations.push_back(std::string(path) + ":" + std::to_string(number) + " includes " +
                         std::string(include->name) + ", which " + problem);
  }
  return violations;
}

}  // namespace quarvel
