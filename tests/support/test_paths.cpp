#include "tests/support/test_paths.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace quarvel {
namespace {

namespace fs = std::filesystem;

std::string ToText(const fs::path& path) {
  const std::u8string utf8 = path.generic_u8string();
  return {utf8.begin(), utf8.end()};
}

// A path of the building machine as this program sees it.
std::string Reachable(std::string path) {
#ifdef _WIN32
  if (path.starts_with('/')) path.insert(0, "Z:");
#endif
  return path;
}

std::optional<std::string> FolderOfEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  if (value == nullptr || *value == '\0') return std::nullopt;
  const std::string path = Reachable(value);
  if (!fs::is_directory(ToPath(path))) {
    throw std::runtime_error(std::string(variable) + " names no folder: " + path);
  }
  return path;
}

fs::path FolderAt(TemporaryFolder::Place place) {
  const fs::path memory = "/dev/shm";
  std::error_code ignored;
  const bool in_memory =
      place == TemporaryFolder::Place::kInMemory && fs::is_directory(memory, ignored);
  return in_memory ? memory : fs::temp_directory_path();
}

}  // namespace

fs::path ToPath(std::string_view utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string SourceFolder() {
  if (auto folder = FolderOfEnvironment("QUARVEL_SOURCE")) return *folder;
  return Reachable(QUARVEL_SOURCE);
}

std::string MadeFolder() { return Reachable(QUARVEL_MADE); }

std::optional<std::string> DataFolder() {
  if (auto folder = FolderOfEnvironment("QUARVEL_DATA")) return folder;
  const std::string beside = ToText(ToPath(SourceFolder()).parent_path()) + "/shared/data";
  if (!fs::is_directory(ToPath(beside))) return std::nullopt;
  return beside;
}

std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(ToPath(path), std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file.good() && !file.eof()) throw std::runtime_error("cannot read " + path);
  return bytes;
}

std::string ProjectFile(const std::string& path) {
  return ReadWholeFile(SourceFolder() + "/" + path);
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(ToPath(path), std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path);
}

TemporaryFolder::TemporaryFolder(Place place) {
  static std::atomic<unsigned> count = 0;
  // The clock tells test programs apart that run at the same time; creating the folder decides.
  for (;;) {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    const std::string name =
        "quarvel t\u00e9st " + std::to_string(now) + "-" + std::to_string(++count);
    const fs::path folder = FolderAt(place) / ToPath(name);
    if (!fs::create_directory(folder)) continue;
    path_ = ToText(folder);
    return;
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(ToPath(path_), ignored);
}

std::string TemporaryFolder::File(std::string_view name) const {
  return path_ + "/" + std::string(name);
}

}  // namespace quarvel
