#include <cstdlib>
#include <string_view>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/program_search.h"

namespace quarvel::platform {
namespace {

constexpr std::string_view kSystemFolders = "/usr/local/bin:/usr/bin:/bin";

// Calls `use` for each entry until it gives true.
template <typename Use>
void ForEachEntry(std::string_view entries, Use use) {
  for (;;) {
    const std::size_t end = entries.find(':');
    if (use(entries.substr(0, end)) || end == std::string_view::npos) return;
    entries.remove_prefix(end + 1);
  }
}

bool IsProgram(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string SearchedFolders() {
  std::string folders;
  const char* const path = std::getenv("PATH");
  ForEachEntry(path == nullptr ? "" : path, [&folders](std::string_view entry) {
    if (!entry.starts_with('/')) return false;
    if (!folders.empty()) folders += ':';
    folders += entry;
    return false;
  });
  return folders.empty() ? std::string(kSystemFolders) : folders;
}

std::string FindProgram(const std::string& name) {
  std::string found;
  ForEachEntry(SearchedFolders(), [&](std::string_view folder) {
    std::string path = std::string(folder) + '/' + name;
    if (!IsProgram(path)) return false;
    found = std::move(path);
    return true;
  });
  return found;
}

}  // namespace quarvel::platform
