#include "tests/mps/save_ways.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "tests/mps/saving.h"

namespace quarvel::mps {
namespace {

constexpr auto kWays = std::to_array<SaveWay>({
    {.name = "a new file", .is_there = false},
    {.name = "another file"},
    {.name = "another file, large", .is_large = true},
    {.name = "the own file", .is_own = true},
    {.name = "the own file, large", .is_own = true, .is_large = true},
    {.name = "the own file with an old backup", .is_own = true, .has_backup = true},
    {.name = "the own file, empty, with a better backup",
     .is_own = true,
     .has_backup = true,
     .is_better = true},
    {.name = "the own file, private", .is_own = true, .is_private = true},
    {.name = "the own file, no elements", .is_own = true, .is_empty = true},
    {.name = "another file, no elements", .is_empty = true},
    {.name = "the own file, failing host", .is_own = true, .host_fails = true},
    {.name = "the own file of a backup's name", .is_own = true, .file = "model.bkp"},
#ifndef _WIN32
    {.name = "a link to another file", .is_link = true},
    {.name = "a link to the own file", .is_own = true, .is_link = true},
#endif
    {.name = "another file of two names", .has_two_names = true},
    {.name = "the own file of two names", .is_own = true, .has_two_names = true},
    {.name = "the own file of two names, failing host",
     .is_own = true,
     .has_two_names = true,
     .host_fails = true},
});

}  // namespace

std::span<const SaveWay> SaveWays() { return kWays; }

SaveCase::SaveCase(const SaveWay& way, OwnDesktop on)
    : HandMadeModel(std::move(on)),
      way_(way),
      path_(folder_.File(way.is_link ? "link.mps" : way.file)) {
  MakeModel();
  MakeFiles();
  if (way.is_own) build.Location(path_);
}

void SaveCase::MakeModel() {
  if (way_.is_empty) {
    model.MakeNewModel();
    return;
  }
  build.Row("COST", 'N').Column("X").Element("X", "COST", 1);
  if (way_.host_fails) build.Row("NINEROWSX", 'L');
  if (way_.is_large) {
    ChangeFields(model, [](model::ModelData& data) {
      for (int line = 0; line < 9000; ++line) data.ModelDescription += "a line as others\r\n";
    });
  }
  new_text_ = Write().text;
}

void SaveCase::MakeFiles() {
  const std::string file = folder_.File(way_.file);
  if (way_.is_there) {
    old_text_ = way_.is_better ? "" : "ROWS\r\n N  BEFORE\r\nENDATA\r\n";
    WriteWholeFile(file, *old_text_);
  }
  if (way_.has_backup) WriteWholeFile(folder_.File("model.bkp"), kOldBackup);
  if (way_.is_link) std::filesystem::create_symlink(ToPath(file), ToPath(path_));
  if (way_.has_two_names) {
    std::filesystem::create_hard_link(ToPath(file), ToPath(folder_.File("second.mps")));
  }
  if (way_.is_private) {
    std::filesystem::permissions(ToPath(file), std::filesystem::perms(0600));
  }
}

int SaveCase::Save() {
  if (way_.host_fails) {
    desktop.on_box = [](const platform::ShownBox& box) {
      if (box.text == kNotStandard) RaiseRunTimeError(RunTimeError::kDeviceIoError);
      return platform::MsgBoxResult::kOk;
    };
  }
  return model.SaveMPSFile(path_);
}

int SaveCase::SaveAgain() {
  desktop.on_box = [](const platform::ShownBox&) { return platform::MsgBoxResult::kOk; };
  return model.SaveMPSFile(path_);
}

std::optional<std::string> SaveCase::TextOf(const std::string& path) {
  std::ifstream file(ToPath(path), std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::string> SaveCase::OthersWith(const std::string& text) const {
  std::vector<std::string> found;
  for (const std::string& name : Names()) {
    const std::string other = folder_.File(name);
    if (name != "second.mps" && other != path_ && TextOf(other) == text) found.push_back(name);
  }
  return found;
}

std::vector<std::string> SaveCase::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(ToPath(folder_.path()))) {
    const std::u8string name = entry.path().filename().u8string();
    names.emplace_back(name.begin(), name.end());
  }
  return names;
}

}  // namespace quarvel::mps
