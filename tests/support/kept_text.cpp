#include "tests/support/kept_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

// The line around a place, for telling where two long texts part.
std::string LineAt(const std::string& text, std::size_t place) {
  if (place >= text.size()) return "the end";
  const std::size_t before = text.substr(0, place).rfind('\n');
  const std::size_t start = before == std::string::npos ? 0 : before + 1;
  return text.substr(start, text.find('\n', place) - start);
}

}  // namespace

void ExpectKept(std::string_view name, const std::string& text) {
  const std::string path = SourceFolder() + "/tests/kept/" + std::string(name);
  if (std::getenv("QUARVEL_WRITE_TRANSCRIPTS") != nullptr) {
    WriteWholeFile(path, text);
    GTEST_SKIP() << path << " was written, and compared with nothing";
  }
  const std::string kept = std::filesystem::exists(ToPath(path)) ? ReadWholeFile(path) : "";
  if (text == kept) return;
  const auto parting = std::mismatch(text.begin(), text.end(), kept.begin(), kept.end()).first;
  const auto place = static_cast<std::size_t>(parting - text.begin());
  const auto line = std::count(text.begin(), parting, '\n') + 1;
  ADD_FAILURE() << path << " says otherwise in line " << line << ":\n"
                << LineAt(kept, place) << "\ninstead of what there is now:\n"
                << LineAt(text, place);
}

}  // namespace quarvel
