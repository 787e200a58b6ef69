#ifndef _WIN32

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include "platform/program_search.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

// Works in a folder of its own, which is the current one, and with a PATH of its own.
class ProgramSearch : public testing::Test {
 protected:
  ProgramSearch() { fs::current_path(folder_.path()); }
  ~ProgramSearch() override {
    fs::current_path(before_);
    setenv("PATH", path_.c_str(), 1);
  }

  std::string Plant(const std::string& folder, mode_t mode = 0755) {
    fs::create_directories(folder_.File(folder));
    const std::string program = folder_.File(folder) + "/opener";
    WriteWholeFile(program, "#!/bin/sh\n");
    EXPECT_EQ(chmod(program.c_str(), mode), 0);
    return program;
  }
  std::string FoundBy(const std::string& path) {
    setenv("PATH", path.c_str(), 1);
    return FindProgram("opener");
  }

  TemporaryFolder folder_;

 private:
  const fs::path before_ = fs::current_path();
  const std::string path_ = getenv("PATH");
};

TEST_F(ProgramSearch, TakesTheFirstFolderThatHasIt) {
  const std::string first = Plant("first");
  const std::string second = Plant("second");
  const std::string none = folder_.File("none");
  EXPECT_EQ(FoundBy(none + ':' + folder_.File("first") + ':' + folder_.File("second")), first);
  EXPECT_EQ(FoundBy(folder_.File("second") + ':' + folder_.File("first")), second);
  EXPECT_EQ(FoundBy(none), "");
}

TEST_F(ProgramSearch, TakesNothingFromTheCurrentFolder) {
  Plant(".");
  Plant("bin");
  const std::string none = folder_.File("none");
  for (const std::string& path :
       {std::string("."), ":" + none, none + ":", none + "::" + none, std::string("bin"),
        "./bin:" + none, std::string("../") + fs::path(folder_.path()).filename().string()}) {
    EXPECT_EQ(FoundBy(path), "") << path;
  }
}

TEST_F(ProgramSearch, TakesOnlyWhatCanBeRun) {
  Plant("data", 0644);
  fs::create_directories(folder_.File("folders") + "/opener");
  const std::string program = Plant("programs");
  EXPECT_EQ(FoundBy(folder_.File("data") + ':' + folder_.File("folders") + ':' +
                    folder_.File("programs")),
            program);
}

TEST_F(ProgramSearch, TellsTheFoldersThatCount) {
  const struct {
    const char* path;
    const char* folders;
  } cases[] = {
      {"/a:/b", "/a:/b"},
      {":/a::.:b:/c d:", "/a:/c d"},
      {"", "/usr/local/bin:/usr/bin:/bin"},
      {".:", "/usr/local/bin:/usr/bin:/bin"},
  };
  for (const auto& c : cases) {
    setenv("PATH", c.path, 1);
    EXPECT_EQ(SearchedFolders(), c.folders) << c.path;
  }
  unsetenv("PATH");
  EXPECT_EQ(SearchedFolders(), "/usr/local/bin:/usr/bin:/bin");
}

}  // namespace
}  // namespace quarvel::platform

#endif
