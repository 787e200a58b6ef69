#include "tests/faults/way_of_saving.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <stdexcept>

#include <sys/stat.h>

namespace quarvel::faults {
namespace {

namespace fs = std::filesystem;

std::string Word(char letter, int number) { return letter + std::to_string(number); }

std::vector<std::string> Edit(const std::string& path) {
  return {"edit",
          path,
          path,
          "-c",
          "set-name NEW",
          "-c",
          "set-bound C0 UP 7",
          "-c",
          "set-bound C4999 UP 8"};
}

// What the program makes of a file under plain circumstances.
std::string Made(const std::string& bytes, const std::vector<std::string>& words) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("m.mps"), bytes);
  const Ended ended = RunChild({.words = words, .folder = folder.path()});
  if (ended.status != 0) throw std::runtime_error(ended.err);
  return ReadWholeFile(folder.File("m.mps"));
}

std::vector<WayOfSaving> WaysOfConverting() {
  const std::vector<std::string> convert = {"convert", "new.mps", "m.mps"};
  return {
      {.name = "ToANewFile", .words = convert, .files = {{"new.mps", kNew}}},
      {.name = "OverAnotherFile", .words = convert, .files = {{"new.mps", kNew}, {"m.mps", kOld}}},
      {.name = "OverAnotherFileThroughALink",
       .words = {"convert", "new.mps", "link.mps"},
       .files = {{"new.mps", kNew}, {"m.mps", kOld}},
       .links = {{"link.mps", "m.mps"}}},
      {.name = "OverAnotherFileOfTwoNames",
       .words = convert,
       .files = {{"new.mps", kNew}, {"m.mps", kOld}},
       .second_names = {{"second.mps", "m.mps"}},
       .in_place = true},
      {.name = "OverAnotherFileInAReadOnlyFolder",
       .words = convert,
       .files = {{"new.mps", kNew}, {"m.mps", kOld}},
       .in_place = true,
       .is_unprotected = true,
       .is_read_only = true},
      {.name = "ToADeviceThatIsFull",
       .words = {"convert", "new.mps", "full.mps"},
       .files = {{"new.mps", kNew}, {"m.mps", kOld}},
       .links = {{"full.mps", "/dev/full"}},
       .fails = true},
      {.name = "SimplifiedWithItsLog",
       .words = {"simplify", "new.mps", "m.mps", "--log", "m.txt"},
       .files = {{"new.mps", kNew}, {"m.mps", kOld}}},
  };
}

std::vector<WayOfSaving> WaysOfEditing() {
  return {
      {.name = "OwnFile", .words = Edit("m.mps"), .files = {{"m.mps", kOld}}, .backup = "m.bkp"},
      {.name = "OwnFileWithAnOldBackup",
       .words = Edit("m.mps"),
       .files = {{"m.mps", kOld}, {"m.bkp", kStale}},
       .backup = "m.bkp"},
      {.name = "OwnFileThroughALink",
       .words = Edit("link.mps"),
       .files = {{"m.mps", kOld}},
       .links = {{"link.mps", "m.mps"}},
       .backup = "link.bkp"},
      {.name = "OwnFileOfTwoNames",
       .words = Edit("m.mps"),
       .files = {{"m.mps", kOld}},
       .second_names = {{"second.mps", "m.mps"}},
       .backup = "m.bkp",
       .in_place = true},
      {.name = "OwnPrivateFile",
       .words = Edit("m.mps"),
       .files = {{"m.mps", kOld}},
       .backup = "m.bkp",
       .is_private = true},
      {.name = "OwnFileNamedAsABackup",
       .words = Edit("m.bkp"),
       .files = {{"m.bkp", kOld}},
       .target = "m.bkp",
       .kept_backup = "m.bkp.1"},
      {.name = "OwnFileInAReadOnlyFolder",
       .words = Edit("m.mps"),
       .files = {{"m.mps", kOld}},
       .backup = "m.bkp",
       .in_place = true,
       .is_read_only = true,
       .fails = true},
  };
}

}  // namespace

bool WayOfSaving::MayBackUp(const std::string& file_name) const {
  if (file_name == backup) return true;
  return file_name != target && !second_names.contains(file_name) && !files.contains(file_name);
}

std::string GeneratedModel(int columns, int elements_of_each) {
  std::string model = "NAME OLD\nROWS\n N COST\n";
  for (int i = 0; i < columns; ++i) model += " G " + Word('R', i) + '\n';
  model += "COLUMNS\n";
  for (int i = 0; i < columns; ++i) {
    model += ' ' + Word('C', i) + " COST 1\n";
    for (int j = 0; j < elements_of_each; ++j) {
      const std::string row = Word('R', (i + j) % columns);
      model += ' ' + Word('C', i) + ' ' + row + ' ' + std::to_string(i + j + 1) + '\n';
    }
  }
  return model + "RHS\n RHS R0 1\nBOUNDS\n UP BOUND C0 1\nENDATA\n";
}

const std::string& Bytes(std::string_view which) {
  static const std::string old_bytes =
      Made(GeneratedModel(5000, 1), {"edit", "m.mps", "m.mps", "-c", "set-bound C4999 UP 1"});
  static const std::string new_bytes = Made(old_bytes, Edit("m.mps"));
  static const std::string stale_bytes = "an earlier backup\n";
  if (which == kLarge) {
    static const std::string large_bytes = Made(GeneratedModel(100000, 1), Edit("m.mps"));
    return large_bytes;
  }
  return which == kOld ? old_bytes : which == kNew ? new_bytes : stale_bytes;
}

void PrintTo(const WayOfSaving& way, std::ostream* out) { *out << way.name; }

const std::vector<WayOfSaving>& WaysOfSaving() {
  static const std::vector<WayOfSaving> ways = [] {
    std::vector<WayOfSaving> all = WaysOfConverting();
    for (const WayOfSaving& way : WaysOfEditing()) all.push_back(way);
    return all;
  }();
  return ways;
}

SavingFolder::~SavingFolder() {
  std::error_code ignored;
  fs::permissions(path(), fs::perms::owner_all, ignored);
}

std::string SavingFolder::path() const { return outer_.File("folder"); }

void SavingFolder::Lay() const {
  const fs::path folder = path();
  if (fs::exists(folder)) fs::permissions(folder, fs::perms::owner_all);
  fs::remove_all(folder);
  fs::create_directory(folder);
  for (const auto& [name, which] : way_.files) {
    WriteWholeFile(folder / name, Bytes(which));
    if (way_.is_private) chmod((folder / name).c_str(), S_IRUSR | S_IWUSR);
  }
  for (const auto& [name, other] : way_.links) fs::create_symlink(other, folder / name);
  for (const auto& [name, other] : way_.second_names) {
    fs::create_hard_link(folder / other, folder / name);
  }
  if (way_.is_read_only) chmod(folder.c_str(), S_IRUSR | S_IXUSR);
}

Start SavingFolder::StartOf(const std::string& faults, const std::string& record) const {
  return {.words = way_.words,
          .folder = path(),
          .faults = faults,
          .record = record,
          .unprivileged = way_.is_read_only};
}

Ended SavingFolder::Save(const std::string& faults, const std::string& record) const {
  return RunChild(StartOf(faults, record));
}

std::optional<std::string> SavingFolder::Content(const std::string& name) const {
  if (name.empty() || !fs::is_regular_file(fs::path(path()) / name)) return std::nullopt;
  return ReadWholeFile(path() + '/' + name);
}

std::vector<std::string> SavingFolder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(path())) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

std::string SavingFolder::Disorder() const {
  const fs::path folder = path();
  for (const auto& [name, other] : way_.links) {
    if (!fs::is_symlink(folder / name)) return name + " is no link any more";
  }
  for (const auto& [name, other] : way_.second_names) {
    if (!fs::equivalent(folder / name, folder / other)) return name + " names another file";
  }
  for (const auto& entry : fs::directory_iterator(folder)) {
    constexpr auto kOfOthers = fs::perms::group_all | fs::perms::others_all;
    const bool open = (entry.status().permissions() & kOfOthers) != fs::perms::none;
    if (way_.is_private && open) return entry.path().filename().string() + " is not private";
  }
  return "";
}

}  // namespace quarvel::faults
