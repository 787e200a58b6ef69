// The versions that the project's files state, and where they say that problems are welcome.

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "model/about.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

namespace fs = std::filesystem;

// With one blank in place of every run of blanks and line ends.
std::string InOneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  const auto both_blank = [](char a, char b) { return a == ' ' && b == ' '; };
  text.erase(std::unique(text.begin(), text.end(), both_blank), text.end());
  return text;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The files of the product (no tests, no pages) that contain a text.
std::vector<std::string> ProductFilesWith(std::string_view text) {
  const fs::path root = SourceFolder();
  std::vector<std::string> found;
  for (const char* place : {"CMakeLists.txt", "automation", "cmake", "hosts", "model", "packaging",
                            "platform", "text", "viewer"}) {
    std::vector<fs::path> files = {root / place};
    if (fs::is_directory(files[0])) {
      files.assign(fs::recursive_directory_iterator(files[0]), fs::recursive_directory_iterator());
    }
    for (const fs::path& file : files) {
      if (fs::is_directory(file) || !Contains(ReadWholeFile(file.string()), text)) continue;
      found.push_back(fs::relative(file, root).generic_string());
    }
  }
  return found;
}

TEST(Versions, OfTheComponentIsTheOneThatHostsKnow) {
  EXPECT_EQ(model::ComponentVersion(), "1.00.0001");
}

TEST(Versions, StandInOnePlaceEach) {
  EXPECT_EQ(ProductFilesWith(model::ComponentVersion()),
            std::vector<std::string>{"cmake/version.cmake"});
  EXPECT_EQ(ProductFilesWith("VERSION " + std::string(model::ProductVersion())),
            std::vector<std::string>{"CMakeLists.txt"});
  EXPECT_EQ(ProductFilesWith('"' + std::string(model::ProductVersion()) + '"'),
            std::vector<std::string>{});
}

TEST(Versions, AreInTheAboutBox) {
  EXPECT_TRUE(model::AboutText().starts_with("Quarvel version " +
                                             std::string(model::ProductVersion()) +
                                             " (component version 1.00.0001)\r\n"));
}

TEST(Versions, AreInTheReadme) {
  const std::string readme = InOneLine(ProjectFile("README.md"));
  EXPECT_TRUE(Contains(readme, "This is version " + std::string(model::ProductVersion()) + ";"));
  EXPECT_TRUE(Contains(readme, std::string(model::ComponentVersion())));
}

TEST(Versions, OfTheManifestsAreTheComponents) {
  const std::string identity = "name=\"Quarvel.Component\" version=\"1.0.0.1\"/>";
  EXPECT_TRUE(
      Contains(ReadWholeFile(MadeFolder() + "/packaging/Quarvel.Component.manifest"), identity));
  EXPECT_TRUE(Contains(ProjectFile("examples/automation/tour.manifest"), identity));
}

TEST(AboutBox, TellsWhereToReportAsTheReadmesDo) {
  EXPECT_TRUE(model::AboutText().ends_with(model::kWhereToReport));
  for (const char* readme : {"README.md", "packaging/quarvel.readme.txt"}) {
    EXPECT_TRUE(Contains(InOneLine(ProjectFile(readme)), model::kWhereToReport)) << readme;
  }
}

}  // namespace
}  // namespace quarvel
